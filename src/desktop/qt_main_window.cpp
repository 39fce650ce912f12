#include "desktop/qt_main_window.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QStyle>
#include <QUrl>
#include <algorithm>

#include "desktop/about_dialog.h"
#include "desktop/child_frame.h"
#include "desktop/group_box.h"
#include "desktop/menu_keys.h"
#include "desktop/qt_text.h"
#include "desktop/status_progress.h"

namespace zando {
namespace {

constexpr auto kIdlePrompt = "For Help, press F1";
constexpr int kGroupBoxId = 104;
constexpr int kGroupBoxWidth = 130;
constexpr int kGroupBoxLines = 12;

QLabel* NewPane(const QString& text, const QString& widest) {
  auto* pane = new QLabel(text);
  pane->setTextFormat(Qt::PlainText);
  pane->setMinimumWidth(pane->fontMetrics().horizontalAdvance(widest) + 8);
  return pane;
}

std::vector<std::filesystem::path> DroppedFiles(const QMimeData& data) {
  std::vector<std::filesystem::path> files;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) files.push_back(PathFromQt(url.toLocalFile()));
  }
  return files;
}

}  // namespace

CQtMainWindow::CQtMainWindow()
    : actions_(*this, [this](CommandId id) { RunCommand(id); }),
      area_(new QMdiArea(this)),
      windowList_([this](std::size_t index) {
        if (index < frames_.size()) Activate(*frames_[index]->View());
      }) {
  setWindowTitle(QLatin1String(kProgramName));
  setAcceptDrops(true);
  setCentralWidget(area_);
  area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area_->setActivationOrder(QMdiArea::ActivationHistoryOrder);
  area_->viewport()->installEventFilter(this);
  BuildMenus();
  BuildToolbars();
  BuildStatusBar();
  actions_.BindKeys();
  resize(screen()->availableSize() * 3 / 4);

  connect(area_, &QMdiArea::subWindowActivated, &connections_, [this](QMdiSubWindow* window) {
    // No window is active while another program is: commands still go to the last one.
    if (window != nullptr) SetActiveFrame(static_cast<CChildFrame*>(window));
  });
  connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
          &connections_, [this] { RefreshCommands(); });
}

CQtMainWindow::~CQtMainWindow() { CloseAllChildren(); }

void CQtMainWindow::SetApplication(CEditorApp& app) {
  app_ = &app;
  RefreshCommands();
}

void CQtMainWindow::CloseAllChildren() {
  while (!frames_.empty()) frames_.back()->CloseNow();
  app_ = nullptr;
}

/// What helps people to use the program may choose a command without their mouse or keys.
void CQtMainWindow::RunCommand(CommandId id) {
  if (app_ == nullptr || !progress_.isNull()) return;
  app_->Run(id);
  RefreshCommands();
}

// ---- menus, toolbars, status bar

void CQtMainWindow::BuildMenus() {
  const auto refresh = [this] { RefreshCommands(); };
  emptyMenus_ = actions_.BuildMenus(EmptyMenu(), refresh);
  documentMenus_ = actions_.BuildMenus(DocumentMenu(), refresh);
  if (QMenu* menu = actions_.WindowMenu()) windowList_.Attach(*menu);
  ShowMenusForDocuments();
  BindMenuKeys(*this, *menuBar());
}

void CQtMainWindow::ShowMenusForDocuments() {
  const std::vector<QMenu*>& wanted = frames_.empty() ? emptyMenus_ : documentMenus_;
  const QList<QAction*> shown = menuBar()->actions();
  if (!shown.empty() && shown.front() == wanted.front()->menuAction()) return;
  for (QAction* action : shown) menuBar()->removeAction(action);
  for (QMenu* menu : wanted) menuBar()->addMenu(menu);
}

void CQtMainWindow::BuildToolbars() {
  mainToolbar_ = addToolBar(tr("Main Toolbar"));
  secondToolbar_ = new QToolBar(tr("Editing Toolbar"), this);
  addToolBarBreak();
  addToolBar(secondToolbar_);
  mainToolbar_->setObjectName(QStringLiteral("mainToolbar"));
  secondToolbar_->setObjectName(QStringLiteral("secondToolbar"));
  const int side = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
  for (QToolBar* bar : {mainToolbar_, secondToolbar_}) bar->setIconSize({side, side});

  actions_.FillToolbar(*mainToolbar_, MainToolbar());
  BuildGroupBox();
  secondToolbar_->addSeparator();
  actions_.FillToolbar(*secondToolbar_, SecondToolbar());
}

void CQtMainWindow::BuildGroupBox() {
  groupBox_ = new CGroupBox(secondToolbar_);
  groupBox_->setObjectName(QString::number(kGroupBoxId));
  groupBox_->setAccessibleName(tr("Current group"));
  groupBox_->setToolTip(tr("Current group"));
  groupBox_->setStatusTip(tr("Choose the current group"));
  QFont bold = groupBox_->font();
  bold.setBold(true);
  groupBox_->setFont(bold);
  // The width suits the usual font; a larger one needs more.
  const int wanted = groupBox_->fontMetrics().horizontalAdvance(QStringLiteral("No Group")) + 48;
  groupBox_->setFixedWidth(std::max(kGroupBoxWidth, wanted));
  groupBox_->setMaxVisibleItems(kGroupBoxLines);
  groupBox_->setInsertPolicy(QComboBox::NoInsert);
  secondToolbar_->addWidget(groupBox_);
  connect(groupBox_, &QComboBox::activated, &connections_, [this](int index) {
    if (app_ != nullptr) app_->SelectGroup(groupBox_->itemData(index).toInt());
    RefreshCommands();
  });
  connect(groupBox_, &CGroupBox::Left, &connections_, [this] { FocusActiveView(); });
}

void CQtMainWindow::BuildStatusBar() {
  promptPane_ = new QLabel(tr(kIdlePrompt));
  promptPane_->setTextFormat(Qt::PlainText);
  promptPane_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  statusBar()->addWidget(promptPane_, 1);
  // No portable way tells whether these keys are locked, so their panes never light up.
  for (const char* key : {"CAP", "NUM", "SCRL"}) {
    QLabel* pane = NewPane(tr(key), tr(key));
    pane->setEnabled(false);
    statusBar()->addPermanentWidget(pane);
  }
  gridPane_ = NewPane({}, QStringLiteral("GridSize:     Snap Off  "));
  gridPane_->setObjectName(QStringLiteral("gridPane"));
  statusBar()->addPermanentWidget(gridPane_);
}

void CQtMainWindow::RefreshCommands() {
  if (app_ == nullptr) return;
  actions_.Refresh([this](CommandId id) { return app_->Query(id); });
  UpdateTitle();
  RefreshWindowList();
}

QString CQtMainWindow::NameOf(const CZANDODoc& document) const {
  const QString name = PathToQt(document.GetPathName().filename());
  return name.isEmpty() && app_ != nullptr ? TextToQt(app_->NameOf(document)) : name;
}

void CQtMainWindow::RefreshWindowList() {
  std::vector<CWindowList::Line> lines;
  for (const CChildFrame* frame : frames_) {
    lines.push_back({NameOf(frame->View()->Document()) + QLatin1Char(' ') + frame->windowTitle(),
                     frame == activeFrame_});
  }
  windowList_.Show(lines);
}

void CQtMainWindow::UpdateTitle() {
  QString title = QLatin1String(kProgramName);
  bool modified = false;
  if (const CChildView* view = ActiveView()) {
    const CZANDODoc& document = view->Document();
    title += QLatin1String(" - ") + NameOf(document) + QLatin1String("[*]");
    modified = document.IsModified();
  }
  if (title != shownTitle_) {
    shownTitle_ = title;
    setWindowTitle(title);
  }
  if (modified != isWindowModified()) setWindowModified(modified);
}

void CQtMainWindow::SetStatusText(const QString& text) {
  message_ = text;
  promptPane_->setText(IdleText());
}

void CQtMainWindow::ShowFailure(const QString& text) {
  failure_ = text;
  SetStatusText({});
}

void CQtMainWindow::ClearFailure() {
  if (failure_.isEmpty()) return;
  failure_.clear();
  promptPane_->setText(IdleText());
}

std::unique_ptr<CProgress> CQtMainWindow::ShowProgress(const QString& text) {
  auto progress = std::make_unique<CStatusProgress>(*statusBar(), text);
  progress_ = progress.get();
  return progress;
}

QString CQtMainWindow::IdleText() const {
  if (!message_.isEmpty()) return message_;
  return failure_.isEmpty() ? tr(kIdlePrompt) : failure_;
}

void CQtMainWindow::ShowPrompt(const QString& prompt) {
  // What a menu leaves behind when it closes must not wipe out what its command had to say.
  if (!prompt.isEmpty()) message_.clear();
  promptPane_->setText(prompt.isEmpty() ? IdleText() : prompt);
}

bool CQtMainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == area_->viewport() && event->type() == QEvent::Resize) {
    tiled_.Follow(TilingArea());
  }
  return QMainWindow::eventFilter(watched, event);
}

bool CQtMainWindow::event(QEvent* event) {
  if (event->type() == QEvent::StatusTip) {
    ShowPrompt(static_cast<QStatusTipEvent*>(event)->tip());
    return true;
  }
  return QMainWindow::event(event);
}

void CQtMainWindow::SetGroupItems(const std::vector<GroupItem>& items, std::int32_t selected) {
  groupBox_->clear();
  for (const GroupItem& item : items) groupBox_->addItem(TextToQt(item.name), item.group);
  groupBox_->setCurrentIndex(groupBox_->findData(selected));
}

void CQtMainWindow::SetGridPane(std::string_view text) { gridPane_->setText(TextToQt(text)); }

void CQtMainWindow::SetRecentFiles(const std::vector<std::filesystem::path>& files) {
  actions_.SetRecentFiles(files);
}

void CQtMainWindow::SetToolbarsVisible(bool visible) {
  mainToolbar_->setVisible(visible);
  secondToolbar_->setVisible(visible);
}

bool CQtMainWindow::AreToolbarsVisible() const {
  return !mainToolbar_->isHidden() || !secondToolbar_->isHidden();
}

void CQtMainWindow::SetStatusBarVisible(bool visible) { statusBar()->setVisible(visible); }

bool CQtMainWindow::IsStatusBarVisible() const {
  const auto* bar = findChild<QStatusBar*>();
  return bar != nullptr && !bar->isHidden();
}

void CQtMainWindow::ShowAbout() { ShowAboutDialog(this); }

// ---- child frames

void CQtMainWindow::OpenChild(std::unique_ptr<CZANDOView> view) {
  OpenFrame(new CChildFrame(*this, std::move(view)));
}

void CQtMainWindow::OpenChild(std::unique_ptr<CTextureView> view) {
  OpenFrame(new CChildFrame(*this, std::move(view)));
}

void CQtMainWindow::OpenFrame(CChildFrame* frame) {
  frames_.push_back(frame);
  // With its size before the area looks for a place where all of it is seen.
  frame->resize(size() * 3 / 5);
  area_->addSubWindow(frame);
  connect(
      frame, &QMdiSubWindow::windowStateChanged, &connections_,
      [this] { tiled_.Follow(TilingArea()); }, Qt::QueuedConnection);
  ShowMenusForDocuments();
  frame->View()->OnInitialUpdate();
  frame->show();
  area_->setActiveSubWindow(frame);
  SetActiveFrame(frame);
}

void CQtMainWindow::CloseChild(CChildView& view) {
  if (CChildFrame* frame = FrameOf(view)) frame->CloseNow();
}

CChildView* CQtMainWindow::ActiveView() const {
  return activeFrame_ == nullptr ? nullptr : activeFrame_->View();
}

void CQtMainWindow::Activate(CChildView& view) {
  CChildFrame* frame = FrameOf(view);
  if (frame == nullptr) return;
  if (frame->isMinimized()) frame->showNormal();
  area_->setActiveSubWindow(frame);
  SetActiveFrame(frame);
}

void CQtMainWindow::RunGuarded(const std::function<void()>& operation) {
  if (app_ == nullptr) return operation();
  app_->Guard().Attempt({}, operation);
}

void CQtMainWindow::SetActiveFrame(CChildFrame* frame) {
  if (frame == activeFrame_ || (frame != nullptr && frame->View() == nullptr)) return;
  CChildFrame* before = activeFrame_;
  activeFrame_ = frame;
  RunGuarded([&] {
    if (before != nullptr) before->View()->OnActivate(CChildView::Activation::Deactivated);
    if (frame != nullptr) frame->View()->OnActivate(CChildView::Activation::Activated);
  });
  if (app_ != nullptr) app_->OnActiveViewChanged();
  RefreshCommands();
}

void CQtMainWindow::FocusActiveView() {
  if (activeFrame_ != nullptr) activeFrame_->setFocus();
}

bool CQtMainWindow::MayClose(CChildView& view) { return app_ == nullptr || app_->MayClose(view); }

void CQtMainWindow::Forget(CChildFrame& frame) {
  std::erase(frames_, &frame);
  tiled_.Forget(&frame);
  if (activeFrame_ == &frame) activeFrame_ = nullptr;
}

void CQtMainWindow::OnViewGone(CZANDODoc& document) {
  if (app_ != nullptr) app_->OnViewClosed(document);
  if (activeFrame_ == nullptr && !frames_.empty()) {
    area_->setActiveSubWindow(frames_.back());
    SetActiveFrame(frames_.back());
  } else if (frames_.empty() && app_ != nullptr) {
    app_->OnActiveViewChanged();
  }
  ShowMenusForDocuments();
  RefreshCommands();
}

CChildFrame* CQtMainWindow::FrameOf(const CChildView& view) const {
  const auto found = std::find_if(frames_.begin(), frames_.end(),
                                  [&view](const CChildFrame* f) { return f->View() == &view; });
  return found == frames_.end() ? nullptr : *found;
}

void CQtMainWindow::Minimize(CChildView& view) {
  if (CChildFrame* frame = FrameOf(view)) frame->showMinimized();
}

bool CQtMainWindow::IsMinimized(const CChildView& view) const {
  const CChildFrame* frame = FrameOf(view);
  return frame != nullptr && frame->isMinimized();
}

int CQtMainWindow::HeightOfIcons() const {
  int height = 0;
  for (const CChildFrame* frame : frames_) {
    if (frame->isMinimized()) height = std::max(height, frame->height());
  }
  return height;
}

QRect CQtMainWindow::TilingArea() const {
  // Minimized windows stay visible along the lower edge.
  return area_->viewport()->rect().adjusted(0, 0, 0, -HeightOfIcons());
}

void CQtMainWindow::TileFrames(const std::vector<CChildFrame*>& frames, TileOrder order) {
  std::vector<QMdiSubWindow*> windows;
  std::copy_if(frames.begin(), frames.end(), std::back_inserter(windows),
               [](const CChildFrame* frame) { return !frame->isMinimized(); });
  tiled_.Tile(windows, TilingArea(), order);
}

void CQtMainWindow::TileHorizontally(const std::vector<CChildView*>& views) {
  std::vector<CChildFrame*> frames;
  std::copy_if(frames_.begin(), frames_.end(), std::back_inserter(frames),
               [&views](const CChildFrame* frame) {
                 return std::find(views.begin(), views.end(), frame->View()) != views.end();
               });
  TileFrames(frames, TileOrder::Stacked);
}

void CQtMainWindow::Tile() { TileFrames(frames_, TileOrder::SideBySide); }

void CQtMainWindow::Cascade() {
  tiled_.Clear();
  area_->cascadeSubWindows();
}

void CQtMainWindow::ArrangeIcons() {
  int x = 0;
  for (CChildFrame* frame : frames_) {
    if (!frame->isMinimized()) continue;
    frame->move(x, area_->viewport()->height() - frame->height());
    x += frame->width();
  }
}

// ---- closing and dropping

void CQtMainWindow::closeEvent(QCloseEvent* event) {
  if (app_ != nullptr && !app_->MayExit()) {
    event->ignore();
    return;
  }
  CloseAllChildren();
  event->accept();
}

void CQtMainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!DroppedFiles(*event->mimeData()).empty()) event->acceptProposedAction();
}

void CQtMainWindow::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  if (app_ == nullptr) return;
  for (const std::filesystem::path& file : DroppedFiles(*event->mimeData())) {
    app_->OpenDocument(file);
  }
}

}  // namespace zando
