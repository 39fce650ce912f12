#include <QApplication>
#include <QCommandLineParser>
#include <cstdio>
#include <cstdlib>

#include "app/editor_app.h"
#include "desktop/qt_desktop.h"
#include "desktop/qt_main_window.h"
#include "desktop/qt_text.h"
#include "desktop/recent_files.h"
#include "desktop/splash_wnd.h"

namespace {

/// What the program ends with when there is nothing to draw on; `run` looks for it.
constexpr int kNoDisplay = 1;
constexpr int kCannotStart = 2;

[[noreturn]] void EndWithoutDisplay() {
  std::fputs("zando: no display was found, so the editor window cannot open\n", stderr);
  std::_Exit(kNoDisplay);
}

/// Qt ends the program itself when it cannot reach the display, after a message of several lines.
void OnMessageWhileConnecting(QtMsgType type, const QMessageLogContext& /*context*/,
                              const QString& /*text*/) {
  if (type == QtFatalMsg) EndWithoutDisplay();
}

bool HasDisplay(int argc, char** argv) {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    if (!qEnvironmentVariableIsEmpty(name)) return true;
  }
  for (int i = 1; i < argc; ++i) {
    if (QByteArray(argv[i]) == "-platform" || QByteArray(argv[i]) == "--platform") return true;
  }
  return false;
}

void SetNames() {
  QCoreApplication::setOrganizationName(QStringLiteral("zando"));
  QCoreApplication::setApplicationName(QStringLiteral("zando"));
  QCoreApplication::setApplicationVersion(QStringLiteral(ZANDO_VERSION));
  QGuiApplication::setDesktopFileName(QStringLiteral("zando"));
}

void Describe(QCommandLineParser& parser) {
  parser.setApplicationDescription(QStringLiteral("ZANDO, an interactive level editor"));
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addPositionalArgument(QStringLiteral("file"),
                               QStringLiteral("The level to open; a new one when it is left out."),
                               QStringLiteral("[file]"));
}

/// Help and version need no display, so they come before there is one. Returns when neither was
/// asked for.
void AnswerWithoutDisplay(int argc, char** argv) {
  QStringList arguments;
  bool asked = false;
  for (int i = 0; i < argc; ++i) {
    const QString argument = QString::fromLocal8Bit(argv[i]);
    arguments << argument;
    asked = asked || argument == QLatin1String("--help") || argument == QLatin1String("-h") ||
            argument == QLatin1String("--version") || argument == QLatin1String("-v");
  }
  if (!asked) return;
  QCoreApplication application(argc, argv);
  QCommandLineParser parser;
  Describe(parser);
  parser.process(arguments);
}

int RunEditor(const std::filesystem::path& file) {
  zando::CSettingsRecentFiles recentFiles;
  zando::CQtMainWindow window;
  zando::CSplashWnd::ShowSplash(&window);
  zando::CQtDesktop desktop(window);
  zando::CEditorApp app(window, desktop, recentFiles);
  window.SetApplication(app);
  if (!app.Start(file)) {
    window.CloseAllChildren();
    return kCannotStart;
  }
  window.show();
  const int result = QApplication::exec();
  window.CloseAllChildren();
  return result;
}

}  // namespace

int main(int argc, char** argv) {
  SetNames();
  AnswerWithoutDisplay(argc, argv);
  if (!HasDisplay(argc, argv)) EndWithoutDisplay();

  const QtMessageHandler usual = qInstallMessageHandler(OnMessageWhileConnecting);
  const QApplication application(argc, argv);
  qInstallMessageHandler(usual);
  QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/zando.svg")));

  QCommandLineParser parser;
  Describe(parser);
  parser.process(application);
  const QStringList files = parser.positionalArguments();
  if (files.size() > 1) {
    std::fputs("zando: one level at a time, please; see zando --help\n", stderr);
    return kCannotStart;
  }
  return RunEditor(files.isEmpty() ? std::filesystem::path() : zando::PathFromQt(files.front()));
}
