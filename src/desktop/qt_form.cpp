#include "desktop/qt_form.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QDialog>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QMetaObject>
#include <QMouseEvent>
#include <QProgressBar>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QToolTip>
#include <QValidator>
#include <algorithm>
#include <utility>

#include "desktop/color_button.h"
#include "desktop/form_table.h"
#include "desktop/qt_text.h"

namespace zando {
namespace {

/// The core's text is 8-bit, and a level keeps it in lines: a field takes no other characters,
/// whether they are typed or pasted among others.
class CLevelTextValidator : public QValidator {
 public:
  using QValidator::QValidator;

  State validate(QString& input, int& position) const override {
    const auto refused = [](QChar character) {
      const char16_t code = character.unicode();
      return code > 0xFF || code == 0 || code == u'\n' || code == u'\r';
    };
    const auto cursor = input.cbegin() + std::min<qsizetype>(position, input.size());
    position -= static_cast<int>(std::count_if(input.cbegin(), cursor, refused));
    input.removeIf(refused);
    return Acceptable;
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
  void reject() override { form_.Cancel(); }
  void setVisible(bool visible) override {
    QDialog::setVisible(visible);
    if (!visible) return;
    if (focusWidget() == nullptr) focusNextChild();
    if (auto* field = qobject_cast<QLineEdit*>(focusWidget())) field->selectAll();
  }

 private:
  CQtForm& form_;
};

/// Double clicks on the lines of a list, the pointer that rests on one, and the first arrow key.
/// The list's own signal of a double click stays away when the first click made the dialog fill it
/// anew.
class CQtForm::CListEvents : public QObject {
 public:
  CListEvents(CQtForm& form, ControlId id, QListWidget& list)
      : QObject(&list), form_(form), id_(id), list_(list) {
    list.installEventFilter(this);
    list.viewport()->installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::ToolTip) {
      ShowTip(*static_cast<QHelpEvent*>(event));
      return true;
    }
    if (watched == &list_ && event->type() == QEvent::KeyPress) {
      return SelectFirst(static_cast<QKeyEvent*>(event)->key());
    }
    if (event->type() != QEvent::MouseButtonDblClick) return QObject::eventFilter(watched, event);
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() != Qt::LeftButton || list_.itemAt(mouse->position().toPoint()) == nullptr) {
      return QObject::eventFilter(watched, event);
    }
    form_.TellSelections();
    form_.attempt_([this] { form_.dialog_.OnDoubleClick(id_); });
    return true;
  }

 private:
  /// The list would step on from its first line, which nobody has chosen yet.
  bool SelectFirst(int key) {
    const bool chosen = !list_.selectedItems().isEmpty();
    if (chosen || (key != Qt::Key_Down && key != Qt::Key_Up)) return false;
    list_.setCurrentRow(std::max(list_.currentRow(), 0));
    return true;
  }

  void ShowTip(const QHelpEvent& event) {
    std::string tip;
    const QListWidgetItem* line = list_.itemAt(event.pos());
    if (line != nullptr) {
      form_.attempt_([&] { tip = form_.dialog_.LineTip(id_, line->data(Qt::UserRole).toInt()); });
    }
    if (tip.empty()) return QToolTip::hideText();
    QToolTip::showText(event.globalPos(), PlainToolTip(TextToQt(tip)), list_.viewport(),
                       list_.visualItemRect(line));
  }

  CQtForm& form_;
  ControlId id_;
  QListWidget& list_;
};

/// Tells the form which field has the focus. A window that comes to lie over the dialog, or a menu
/// of the field itself, borrows the focus only.
class CQtForm::CFieldFocus : public QObject {
 public:
  CFieldFocus(CQtForm& form, ControlId id, QLineEdit& field)
      : QObject(&field), form_(form), id_(id) {
    field.installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::FocusIn) form_.entered_ = id_;
    if (event->type() == QEvent::FocusOut) {
      const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
      const bool lent = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
      if (!lent && form_.entered_ == id_) form_.LeaveField();
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  CQtForm& form_;
  ControlId id_;
};

CQtForm::CQtForm(CDialog& dialog, QWidget* parent, Attempt attempt)
    : CQtForm(dialog, parent, BuildForm, std::move(attempt)) {}

CQtForm::CQtForm(CDialog& dialog, QWidget* parent, const Builder& build, Attempt attempt)
    : dialog_(dialog),
      attempt_(std::move(attempt)),
      window_(std::make_unique<CWindow>(*this, parent)) {
  if (!build(dialog.TemplateId(), *window_)) {
    qWarning("there is no form %d", dialog.TemplateId());
  }
  // A window without a title would be given the name of the executable.
  if (window_->windowTitle().isEmpty()) window_->setWindowTitle(QLatin1String(kProgramName));
  window_->setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  for (QWidget* control : window_->findChildren<QWidget*>()) {
    const QVariant id = control->property("controlId");
    if (id.isValid()) controls_[id.toInt()] = control;
  }
  // Fields check already what the dialog fills them with.
  ConnectControls();
  dialog_.Attach(*this);
}

CQtForm::~CQtForm() {
  entered_.reset();
  dialog_.Detach();
  window_.reset();
}

QDialog& CQtForm::Window() { return *window_; }

ControlId CQtForm::Run() {
  window_->exec();
  return result_.value_or(IDCANCEL);
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
      ConnectField(id, *field);
    } else if (auto* bar = qobject_cast<QProgressBar*>(control)) {
      // Work that begins shows the bar, and leaves no time to arrange the controls around it.
      QSizePolicy policy = bar->sizePolicy();
      policy.setRetainSizeWhenHidden(true);
      bar->setSizePolicy(policy);
    } else if (auto* list = qobject_cast<QListWidget*>(control)) {
      ConnectList(id, *list);
    }
  }
}

void CQtForm::ConnectField(ControlId id, QLineEdit& field) {
  field.setValidator(new CLevelTextValidator(&field));
  new CFieldFocus(*this, id, field);
  QObject::connect(&field, &QLineEdit::textEdited, window_.get(), [this, id] {
    entered_ = id;
    attempt_([this, id] { dialog_.OnChange(id); });
  });
}

void CQtForm::ConnectList(ControlId id, QListWidget& list) {
  new CListEvents(*this, id, list);
  // The dialog may fill the list anew, which must wait until the list is done with the mouse.
  QObject::connect(&list, &QListWidget::itemSelectionChanged, window_.get(), [this, id] {
    changedLists_.insert(id);
    QMetaObject::invokeMethod(
        window_.get(), [this] { TellSelections(); }, Qt::QueuedConnection);
  });
}

void CQtForm::Click(ControlId id) {
  TellSelections();
  // A button that is pressed from the keyboard acts while the focus is still in a field.
  LeaveField();
  if (!result_) attempt_([this, id] { dialog_.Click(id); });
}

void CQtForm::Cancel() {
  TellSelections();
  entered_.reset();
  if (!result_) attempt_([this] { dialog_.Click(IDCANCEL); });
}

void CQtForm::LeaveField() {
  const auto field = std::exchange(entered_, std::nullopt);
  if (field && !result_) attempt_([&] { dialog_.OnKillFocus(*field); });
}

void CQtForm::TellSelections() {
  for (const ControlId list : std::exchange(changedLists_, {})) {
    attempt_([this, list] { dialog_.OnSelectionChange(list); });
  }
}

std::string CQtForm::GetText(ControlId id) const {
  const auto* field = Find<QLineEdit>(id);
  return field != nullptr ? TextFromQt(field->text()) : std::string();
}

void CQtForm::SetText(ControlId id, std::string_view text) {
  if (auto* field = Find<QLineEdit>(id)) {
    field->setText(TextToQt(text));
  } else if (auto* label = Find<QLabel>(id)) {
    label->setTextFormat(Qt::PlainText);
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

void CQtForm::SetSorted(ControlId id, bool sorted) {
  if (sorted) {
    unsorted_.erase(id);
  } else {
    unsorted_.insert(id);
  }
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
  list->insertItem(unsorted_.contains(id) ? list->count() : PlaceFor(*list, shown), line);
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
  label->setPixmap(picture.pixmap(label->minimumSize(), window_->devicePixelRatioF()));
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

void CQtForm::Enable(ControlId id, bool enabled) {
  if (auto* control = Find<QWidget>(id)) control->setEnabled(enabled);
}

void CQtForm::SetFocus(ControlId id) {
  auto* control = Find<QWidget>(id);
  if (control == nullptr) return;
  control->setFocus();
  if (auto* field = qobject_cast<QLineEdit*>(control)) field->selectAll();
}

void CQtForm::SetProgressRange(ControlId id, std::int32_t low, std::int32_t high) {
  if (auto* bar = Find<QProgressBar>(id)) bar->setRange(low, high);
}

void CQtForm::SetProgressPos(ControlId id, std::int32_t position) {
  auto* bar = Find<QProgressBar>(id);
  if (bar == nullptr) return;
  bar->setValue(std::clamp(position, bar->minimum(), bar->maximum()));
  bar->repaint();
}

void CQtForm::HandleEvents() { QCoreApplication::processEvents(); }

void CQtForm::ReportError(ControlId id, std::string_view message) {
  QMessageBox box(QMessageBox::Warning, QLatin1String(kProgramName), TextToQt(message),
                  QMessageBox::Ok, window_.get());
  box.setTextFormat(Qt::PlainText);
  box.exec();
  SetFocus(id);
}

void CQtForm::Close(ControlId result) {
  result_ = result;
  window_->done(result);
}

ControlId RunModal(CDialog& dialog, QWidget* parent, Attempt attempt) {
  return CQtForm(dialog, parent, std::move(attempt)).Run();
}

}  // namespace zando
