#include "desktop/qt_desktop.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <cstdlib>

#include "desktop/qt_form.h"
#include "desktop/qt_main_window.h"
#include "desktop/qt_text.h"

namespace zando {
namespace {

/// Refusals in a row until the desktop is taken not to place the cursor.
constexpr int kCursorAttempts = 5;

/// What opens now belongs to the dialog that is open, and to the main window when none is.
QWidget* Uppermost(QWidget& mainWindow) {
  QWidget* dialog = QApplication::activeModalWidget();
  return dialog != nullptr ? dialog : &mainWindow;
}

QMessageBox::StandardButton Ask(QWidget& mainWindow, QMessageBox::Icon icon, const QString& text,
                                QMessageBox::StandardButtons buttons,
                                QMessageBox::StandardButton proposed) {
  QMessageBox box(icon, QLatin1String(kProgramName), text, buttons, Uppermost(mainWindow));
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(proposed);
  return static_cast<QMessageBox::StandardButton>(box.exec());
}

/// "Text (*.a)|*.a|All (*.*)|*.*||" as Qt's filters.
QStringList NameFilters(std::string_view filter) {
  const QStringList parts = TextToQt(filter).split(QLatin1Char('|'), Qt::SkipEmptyParts);
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QString pattern = parts[i + 1];
    // "*.*" means every file, also one whose name has no dot.
    pattern.replace(QLatin1String("*.*"), QLatin1String("*")).replace(QLatin1Char(';'), ' ');
    const QString name = parts[i].section(QLatin1Char('('), 0, 0).trimmed();
    filters << name + QLatin1String(" (") + pattern + QLatin1Char(')');
  }
  return filters;
}

void Propose(QFileDialog& dialog, const std::filesystem::path& proposal) {
  if (proposal.empty()) return;
  const QString path = PathToQt(proposal);
  if (QFileInfo(path).isDir()) {
    dialog.setDirectory(path);
    return;
  }
  if (proposal.has_parent_path()) dialog.setDirectory(PathToQt(proposal.parent_path()));
  dialog.selectFile(PathToQt(proposal.filename()));
}

/// A file whose name has no extension can be opened, too: only a name that is not there gets one.
void CompleteMissingNames(QFileDialog& dialog) {
  const auto* field = dialog.findChild<QLineEdit*>();
  if (field == nullptr) return;
  const QString extension = dialog.defaultSuffix();
  QObject::connect(field, &QLineEdit::textChanged, &dialog,
                   [&dialog, extension](const QString& name) {
                     const bool isThere = QFileInfo(dialog.directory(), name).isFile();
                     dialog.setDefaultSuffix(isThere ? QString() : extension);
                   });
}

QColor ColorToQt(ColorRef color) {
  return {static_cast<int>(color & 0xff), static_cast<int>(color >> 8 & 0xff),
          static_cast<int>(color >> 16 & 0xff)};
}

}  // namespace

bool CQtDesktop::PlatformPlacesCursor() {
  return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

CQtDesktop::~CQtDesktop() { CQtDesktop::ShowCursor(true); }

void CQtDesktop::ShowMessage(std::string_view text) {
  Ask(window_, QMessageBox::Warning, TextToQt(text), QMessageBox::Ok, QMessageBox::Ok);
}

SaveAnswer CQtDesktop::AskSaveChanges(std::string_view name) {
  const QString question = QObject::tr("Save changes to %1?").arg(TextToQt(name));
  switch (Ask(window_, QMessageBox::Warning, question,
              QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save)) {
    case QMessageBox::Save:
      return SaveAnswer::Save;
    case QMessageBox::Discard:
      return SaveAnswer::Discard;
    default:
      return SaveAnswer::Cancel;
  }
}

YesNo CQtDesktop::AskYesNo(std::string_view question) {
  const auto answer = Ask(window_, QMessageBox::Question, TextToQt(question),
                          QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
  return answer == QMessageBox::Yes ? YesNo::Yes : YesNo::No;
}

void CQtDesktop::SetStatusText(std::string_view text) { window_.SetStatusText(TextToQt(text)); }

void CQtDesktop::ShowFailure(std::string_view text) { window_.ShowFailure(TextToQt(text)); }

void CQtDesktop::ClearFailure() { window_.ClearFailure(); }

std::unique_ptr<CProgress> CQtDesktop::ShowProgress(std::string_view text) {
  return window_.ShowProgress(TextToQt(text));
}

std::optional<std::filesystem::path> CQtDesktop::ChooseFile(const FileRequest& request) {
  const bool saving = request.kind == FileRequest::Kind::Save;
  QFileDialog dialog(Uppermost(window_), TextToQt(request.title));
  // Choosers of some desktops ask about overwriting before the extension is added.
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setDefaultSuffix(TextToQt(request.extension));
  if (!request.filter.empty()) dialog.setNameFilters(NameFilters(request.filter));
  if (!saving) CompleteMissingNames(dialog);
  Propose(dialog, request.proposal);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return PathFromQt(dialog.selectedFiles().front());
}

std::optional<ColorRef> CQtDesktop::ChooseColor(ColorRef initial) {
  const QColor color = QColorDialog::getColor(ColorToQt(initial), Uppermost(window_));
  if (!color.isValid()) return std::nullopt;
  return Rgb(static_cast<std::uint32_t>(color.red()), static_cast<std::uint32_t>(color.green()),
             static_cast<std::uint32_t>(color.blue()));
}

ControlId CQtDesktop::DoModal(CDialog& dialog) {
  return RunModal(dialog, Uppermost(window_), [this](const std::function<void()>& operation) {
    window_.RunGuarded(operation);
  });
}

ScreenPoint CQtDesktop::GetCursorPos() const { return pointer_.Position(); }

void CQtDesktop::SetCursorPos(ScreenPoint point) {
  if (!canPlaceCursor_) return;
  // A hand that moves on may have carried the cursor off again before it is looked for.
  for (int attempt = 0; attempt < kCursorAttempts; ++attempt) {
    if (pointer_.MoveTo(point)) return;
  }
  // Remote desktops and some compositors take the request and ignore it.
  canPlaceCursor_ = false;
}

void CQtDesktop::ShowCursor(bool visible) {
  if (cursorHidden_ != visible) return;
  cursorHidden_ = !visible;
  if (visible) {
    QGuiApplication::restoreOverrideCursor();
  } else {
    QGuiApplication::setOverrideCursor(Qt::BlankCursor);
  }
}

bool CQtDesktop::IsShiftDown() const {
  return QGuiApplication::keyboardModifiers().testFlag(Qt::ShiftModifier);
}

}  // namespace zando
