#include "desktop/command_actions.h"

#include <QApplication>
#include <QComboBox>
#include <QMenu>
#include <utility>

#include "desktop/command_icon.h"
#include "desktop/menu_keys.h"
#include "desktop/qt_text.h"

namespace zando {
namespace {

/// Longest path in the menu, in average characters.
constexpr int kRecentFileWidth = 60;

QKeySequence KeysOf(std::string_view keys) {
  return QKeySequence::fromString(TextToQt(keys), QKeySequence::PortableText);
}

/// The first key of a command, as menus show it after a tab; empty when it has none.
QString KeyLabel(CommandId id) {
  for (const Accelerator& accelerator : Accelerators()) {
    if (accelerator.id != id) continue;
    return QLatin1Char('\t') + KeysOf(accelerator.keys).toString(QKeySequence::NativeText);
  }
  return {};
}

bool TakesText(const QWidget* widget) {
  if (widget == nullptr) return false;
  if (const auto* combo = qobject_cast<const QComboBox*>(widget)) return combo->isEditable();
  return widget->inherits("QLineEdit") || widget->inherits("QTextEdit") ||
         widget->inherits("QPlainTextEdit") || widget->inherits("QAbstractSpinBox");
}

QIcon IconOf(std::string_view name) {
  const QString file = QLatin1String(":/icons/") + TextToQt(name) + QLatin1String(".svg");
  return QIcon(new CCommandIcon(QIcon(file)));
}

}  // namespace

CCommandActions::CCommandActions(QWidget& window, Runner run)
    : window_(window), run_(std::move(run)) {}

QAction* CCommandActions::NewAction(CommandId id, const QString& text) {
  auto* action = new QAction(text, &window_);
  action->setData(id);
  action->setMenuRole(QAction::NoRole);
  action->setIconVisibleInMenu(false);
  QObject::connect(action, &QAction::triggered, &connections_, [this, id] { run_(id); });
  return action;
}

QAction* CCommandActions::ActionOf(CommandId id, std::string_view text) {
  const CommandRow* row = FindCommand(id);
  const std::string_view shown = text.empty() && row != nullptr ? row->menuText : text;
  const QString label = TextToQt(shown) + KeyLabel(id);
  for (const Entry& entry : entries_) {
    if (entry.id == id && entry.action->text() == label) return entry.action;
  }
  QAction* action = NewAction(id, label);
  if (row != nullptr) {
    action->setStatusTip(TextToQt(row->prompt));
    action->setToolTip(TextToQt(row->tip));
    action->setIconText(TextToQt(row->tip));
    if (!row->icon.empty()) action->setIcon(IconOf(row->icon));
  }
  entries_.push_back({id, action});
  return action;
}

std::vector<QMenu*> CCommandActions::BuildMenus(std::span<const MenuLine> lines,
                                                const std::function<void()>& refresh) {
  std::vector<QMenu*> menus;
  std::vector<QMenu*> open;
  for (const MenuLine& line : lines) {
    const auto depth = static_cast<std::size_t>(line.depth);
    if (open.size() > depth) open.resize(depth);
    if (line.kind != MenuLine::Kind::Submenu) {
      if (!open.empty()) AddLine(*open.back(), line);
      continue;
    }
    auto* menu = new QMenu(TextToQt(line.text), &window_);
    new CSharedLetters(*menu);
    QObject::connect(menu, &QMenu::aboutToShow, &connections_, refresh);
    if (open.empty()) {
      menus.push_back(menu);
    } else {
      open.back()->addMenu(menu);
    }
    open.push_back(menu);
  }
  return menus;
}

void CCommandActions::AddLine(QMenu& menu, const MenuLine& line) {
  switch (line.kind) {
    case MenuLine::Kind::Command:
      menu.addAction(ActionOf(line.id, line.text));
      break;
    case MenuLine::Kind::Separator:
      menu.addSeparator();
      break;
    case MenuLine::Kind::RecentFiles:
      AddRecentFiles(menu);
      break;
    case MenuLine::Kind::OpenWindows:
      windowMenu_ = &menu;
      break;
    case MenuLine::Kind::Submenu:
      break;
  }
}

void CCommandActions::AddRecentFiles(QMenu& menu) {
  if (recentFiles_.empty()) {
    for (int i = 0; i < kRecentFiles; ++i) {
      const CommandId id = ID_FILE_MRU_FIRST + i;
      recentFiles_.push_back({id, NewAction(id, {})});
    }
    SetRecentFiles({});
  }
  for (const Entry& entry : recentFiles_) menu.addAction(entry.action);
}

void CCommandActions::SetRecentFiles(const std::vector<std::filesystem::path>& files) {
  const QFontMetrics metrics = window_.fontMetrics();
  const int width = kRecentFileWidth * metrics.averageCharWidth();
  for (std::size_t i = 0; i < recentFiles_.size(); ++i) {
    QAction& action = *recentFiles_[i].action;
    const bool used = i < files.size();
    // An empty list keeps one greyed line, so that users learn where their files will be.
    action.setVisible(used || (i == 0 && files.empty()));
    action.setEnabled(used);
    if (!used) {
      action.setText(QObject::tr("Recent File"));
      continue;
    }
    const QString path = metrics.elidedText(PathToQt(files[i]), Qt::ElideMiddle, width);
    action.setText(QStringLiteral("&%1 ").arg(i + 1) + EscapeMarks(path));
    action.setStatusTip(QObject::tr("Open this level"));
  }
}

void CCommandActions::FillToolbar(QToolBar& bar, std::span<const CommandId> buttons) {
  for (const CommandId id : buttons) {
    if (id == 0) {
      bar.addSeparator();
    } else {
      bar.addAction(ActionOf(id, {}));
    }
  }
}

void CCommandActions::BindKeys() {
  for (const Accelerator& accelerator : Accelerators()) {
    auto* key = new QShortcut(KeysOf(accelerator.keys), &window_);
    key->setAutoRepeat(false);
    QObject::connect(key, &QShortcut::activated, &connections_, [this, id = accelerator.id] {
      if (QApplication::activeModalWidget() == nullptr) run_(id);
    });
    keys_.push_back(key);
  }
  QObject::connect(qApp, &QApplication::focusChanged, &connections_,
                   [this](QWidget*, QWidget* now) { LetKeysRest(TakesText(now)); });
}

void CCommandActions::LetKeysRest(bool rest) {
  for (QShortcut* key : keys_) key->setEnabled(!rest);
}

void CCommandActions::Refresh(const Query& query) {
  for (const Entry& entry : entries_) {
    const CCmdUI ui = query(entry.id);
    entry.action->setEnabled(ui.IsEnabled());
    // Only what is checked gets a mark; an empty box before every other line would be noise.
    entry.action->setCheckable(ui.IsChecked());
    entry.action->setChecked(ui.IsChecked());
  }
}

}  // namespace zando
