#include "desktop/qt_form.h"

#include <QAbstractButton>
#include <QDialog>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QMetaObject>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QValidator>
#include <algorithm>
#include <utility>

#include "desktop/color_button.h"
#include "desktop/form_table.h"
#include "desktop/qt_text.h"

namespace zando {
namespace {

constexpr int kPictureSize = 128;

/// The core's text is 8-bit: a field refuses what would not survive the way there and back.
class CLatin1Validator : public QValidator {
 public:
  using QValidator::QValidator;

  State validate(QString& input, int& /*position*/) const override {
    const bool fits = std::all_of(input.cbegin(), input.cend(),
                                  [](QChar character) { return character.unicode() <= 0xFF; });
    return fits ? Acceptable : Invalid;
  }
};

QListWidgetItem* LineOf(const QListWidget& list, std::int32_t data) {
  for (int row = 0; row < list.count(); ++row) {
    if (list.item(row)->data(Qt::UserRole).toInt() == data) return list.item(row);
  }
  return nullptr;
}

/// The row before which a line belongs: after all that sort before it or equal to it.
int PlaceFor(const QListWidget& list, const QString& text) {
  int low = 0;
  int high = list.count();
  while (low < high) {
    const int middle = (low + high) / 2;
    if (text.compare(list.item(middle)->text(), Qt::CaseInsensitive) < 0) {
      high = middle;
    } else {
      low = middle + 1;
    }
  }
  return low;
}

}  // namespace

/// Escape and the close button of the window count as Cancel, which the dialog decides on. The text
/// of the first field is selected when the window opens, so that typing replaces it.
class CQtForm::CWindow : public QDialog {
 public:
  CWindow(CQtForm& form, QWidget* parent) : QDialog(parent), form_(form) {}
  void reject() override { form_.Click(IDCANCEL); }
  void setVisible(bool visible) override {
    QDialog::setVisible(visible);
    if (!visible) return;
    if (focusWidget() == nullptr) focusNextChild();
    if (auto* field = qobject_cast<QLineEdit*>(focusWidget())) field->selectAll();
  }

 private:
  CQtForm& form_;
};

/// Double clicks on the lines of a list. The list's own signal stays away when the first click made
/// the dialog fill the list anew.
class CQtForm::CDoubleClicks : public QObject {
 public:
  CDoubleClicks(CQtForm& form, ControlId id, QListWidget& list)
      : QObject(&list), form_(form), id_(id), list_(list) {
    list.viewport()->installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::MouseButtonDblClick) return QObject::eventFilter(watched, event);
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() != Qt::LeftButton || list_.itemAt(mouse->position().toPoint()) == nullptr) {
      return QObject::eventFilter(watched, event);
    }
    form_.TellSelections();
    form_.dialog_.OnDoubleClick(id_);
    return true;
  }

 private:
  CQtForm& form_;
  ControlId id_;
  QListWidget& list_;
};

CQtForm::CQtForm(CDialog& dialog, QWidget* parent)
    : dialog_(dialog), window_(std::make_unique<CWindow>(*this, parent)) {
  if (!BuildForm(dialog.TemplateId(), *window_)) {
    qWarning("there is no form %d", dialog.TemplateId());
  }
  window_->setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  for (QWidget* control : window_->findChildren<QWidget*>()) {
    const QVariant id = control->property("controlId");
    if (id.isValid()) controls_[id.toInt()] = control;
  }
  dialog_.Attach(*this);
  ConnectControls();
}

CQtForm::~CQtForm() {
  dialog_.Detach();
  window_.reset();
}

QDialog& CQtForm::Window() { return *window_; }

ControlId CQtForm::Run() {
  window_->exec();
  return result_;
}

template <typename Control>
Control* CQtForm::Find(ControlId id) const {
  const auto found = controls_.find(id);
  return found != controls_.end() ? qobject_cast<Control*>(found->second) : nullptr;
}

void CQtForm::ConnectControls() {
  for (const auto& [number, control] : controls_) {
    const ControlId id = number;
    if (auto* button = qobject_cast<QAbstractButton*>(control)) {
      QObject::connect(button, &QAbstractButton::clicked, window_.get(), [this, id] { Click(id); });
    } else if (auto* field = qobject_cast<QLineEdit*>(control)) {
      field->setValidator(new CLatin1Validator(field));
    } else if (auto* list = qobject_cast<QListWidget*>(control)) {
      ConnectList(id, *list);
    }
  }
}

void CQtForm::ConnectList(ControlId id, QListWidget& list) {
  new CDoubleClicks(*this, id, list);
  // The dialog may fill the list anew, which must wait until the list is done with the mouse.
  QObject::connect(&list, &QListWidget::itemSelectionChanged, window_.get(), [this, id] {
    changedLists_.insert(id);
    QMetaObject::invokeMethod(
        window_.get(), [this] { TellSelections(); }, Qt::QueuedConnection);
  });
}

void CQtForm::Click(ControlId id) {
  TellSelections();
  dialog_.Click(id);
}

void CQtForm::TellSelections() {
  for (const ControlId list : std::exchange(changedLists_, {})) dialog_.OnSelectionChange(list);
}

std::string CQtForm::GetText(ControlId id) const {
  const auto* field = Find<QLineEdit>(id);
  return field != nullptr ? TextFromQt(field->text()) : std::string();
}

void CQtForm::SetText(ControlId id, std::string_view text) {
  if (auto* field = Find<QLineEdit>(id)) {
    field->setText(TextToQt(text));
  } else if (auto* label = Find<QLabel>(id)) {
    label->setText(TextToQt(text));
  }
}

bool CQtForm::IsChecked(ControlId id) const {
  const auto* button = Find<QAbstractButton>(id);
  return button != nullptr && button->isChecked();
}

void CQtForm::SetChecked(ControlId id, bool checked) {
  auto* button = Find<QAbstractButton>(id);
  if (button == nullptr) return;
  // A radio button alone in its group does not let itself be unchecked.
  const bool exclusive = button->autoExclusive();
  if (!checked) button->setAutoExclusive(false);
  button->setChecked(checked);
  button->setAutoExclusive(exclusive);
}

void CQtForm::ClearList(ControlId id) {
  auto* list = Find<QListWidget>(id);
  if (list == nullptr) return;
  const QSignalBlocker silence(list);
  scrolled_[id] = list->verticalScrollBar()->value();
  list->clear();
}

void CQtForm::AddLine(ControlId id, std::string_view text, std::int32_t data) {
  auto* list = Find<QListWidget>(id);
  if (list == nullptr) return;
  const QSignalBlocker silence(list);
  const QString shown = TextToQt(text);
  auto* line = new QListWidgetItem(shown);
  line->setData(Qt::UserRole, data);
  list->insertItem(PlaceFor(*list, shown), line);
}

std::int32_t CQtForm::SelectedLine(ControlId id) const {
  const auto* list = Find<QListWidget>(id);
  if (list == nullptr) return -1;
  const QList<QListWidgetItem*> selected = list->selectedItems();
  return selected.isEmpty() ? -1 : selected.front()->data(Qt::UserRole).toInt();
}

void CQtForm::SelectLine(ControlId id, std::int32_t data) {
  auto* list = Find<QListWidget>(id);
  if (list == nullptr) return;
  const QSignalBlocker silence(list);
  QListWidgetItem* line = LineOf(*list, data);
  list->clearSelection();
  list->setCurrentItem(line);
  if (line == nullptr) return;
  if (const auto before = scrolled_.find(id); before != scrolled_.end()) {
    list->doItemsLayout();
    list->verticalScrollBar()->setValue(before->second);
    scrolled_.erase(before);
  }
  list->scrollToItem(line);
}

void CQtForm::SetPicture(ControlId id, std::string_view name) {
  auto* label = Find<QLabel>(id);
  if (label == nullptr) return;
  const QIcon picture(QStringLiteral(":/pictures/%1.svg").arg(TextToQt(name)));
  label->setPixmap(picture.pixmap(QSize(kPictureSize, kPictureSize), window_->devicePixelRatioF()));
}

ColorRef CQtForm::GetColor(ControlId id) const {
  const auto* button = Find<CColorButton>(id);
  return button != nullptr ? button->Color() : ColorRef{};
}

void CQtForm::SetColor(ControlId id, ColorRef color) {
  if (auto* button = Find<CColorButton>(id)) button->SetColor(color);
}

void CQtForm::Show(ControlId id, bool visible) {
  if (auto* control = Find<QWidget>(id)) control->setVisible(visible);
}

void CQtForm::ReportError(ControlId id, std::string_view message) {
  QMessageBox::warning(window_.get(), QStringLiteral("ZANDO"), TextToQt(message));
  auto* control = Find<QWidget>(id);
  if (control == nullptr) return;
  control->setFocus();
  if (auto* field = qobject_cast<QLineEdit*>(control)) field->selectAll();
}

void CQtForm::Close(ControlId result) {
  result_ = result;
  window_->done(result);
}

ControlId RunModal(CDialog& dialog, QWidget* parent) { return CQtForm(dialog, parent).Run(); }

}  // namespace zando
