#include "app/editor_app.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "app/command_target.h"
#include "app/level_commands.h"
#include "document/group_edits.h"
#include "platform/text.h"

namespace zando {
namespace {

/// The grid size as a whole number; it doubles without a limit.
std::int32_t WholeGridSize(double size) {
  constexpr double largest = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::clamp(size, 0.0, largest));
}

std::string GridText(const CZANDODoc& document) {
  return "Gridsize: " + std::to_string(WholeGridSize(document.State().GridSize)) +
         (document.State().UseGrid != 0 ? " Snap On" : " Snap Off");
}

/// What was wrong with an archive of textures in one line, or nothing.
std::string ComplaintText(const CWad2& textures, const std::filesystem::path& archive) {
  const std::vector<std::string>& complaints = textures.Complaints();
  if (complaints.empty()) return {};
  return FileNameText(archive) + ": " + complaints.front() +
         (complaints.size() > 1 ? "; and more" : "");
}

/// The views of a document that are of this class, in order; a copy, because windows come and go
/// meanwhile.
template <typename View>
std::vector<View*> ViewsOf(const CZANDODoc& document) {
  std::vector<View*> views;
  for (CView* view : document.Views()) {
    if (auto* wanted = dynamic_cast<View*>(view)) views.push_back(wanted);
  }
  return views;
}

}  // namespace

CEditorApp::CEditorApp(CMainWindow& window, CDesktop& desktop, CRecentFileStore& recent)
    : window_(window), desktop_(desktop), recentStore_(recent) {}

CEditorApp::~CEditorApp() {
  while (!documents_.empty()) {
    const auto kept = Release(*documents_.back());
    for (CChildView* view : ViewsOf<CChildView>(*kept)) window_.CloseChild(*view);
  }
}

bool CEditorApp::Start(const std::filesystem::path& file) {
  OnActiveViewChanged();
  if (!guard_.Attempt("Start", [this] { LoadRecentFiles(); })) return false;
  return file.empty() ? guard_.Attempt("New", [this] { NewDocument(); }) : OpenDocument(file);
}

template <typename Ask>
bool CEditorApp::Offer(Ask&& ask) {
  CChildView* active = window_.ActiveView();
  if (auto* view = dynamic_cast<CZANDOView*>(active)) {
    CTableTarget<CZANDOView> target(*view);
    if (ask(target)) return true;
  }
  // A document that is being closed takes no more commands.
  if (active != nullptr && levels_.contains(&active->Document())) {
    ActiveLevel level{active->Document(), settings_, desktop_};
    CTableTarget<ActiveLevel> target(level);
    if (ask(target)) return true;
  }
  MainFrame frame{*this, window_};
  CTableTarget<MainFrame> frameTarget(frame);
  CTableTarget<CEditorApp> own(*this);
  return ask(frameTarget) || ask(own);
}

void CEditorApp::Run(CommandId id) {
  const CommandRow* row = FindCommand(id);
  if (row == nullptr) return;
  guard_.Attempt(row->menuText, [&] {
    desktop_.ClearFailure();
    // A key may bring a command while a mouse button is down.
    if (CChildView* view = window_.ActiveView()) view->EndDrag();
    Offer([id](CCmdTarget& target) {
      CCmdUI ui;
      if (!target.OnUpdateCommandUI(id, ui)) return false;
      if (ui.IsEnabled()) target.OnCommand(id);
      return true;
    });
  });
}

CCmdUI CEditorApp::Query(CommandId id) {
  CCmdUI ui;
  if (!Offer([&](CCmdTarget& target) { return target.OnUpdateCommandUI(id, ui); })) {
    ui.Enable(false);
  }
  return ui;
}

CZANDODoc* CEditorApp::ActiveDocument() const {
  const CChildView* view = window_.ActiveView();
  return view == nullptr ? nullptr : &view->Document();
}

void CEditorApp::Adopt(std::unique_ptr<CZANDODoc> document, OpenLevel level) {
  CZANDODoc& adopted = *document;
  documents_.push_back(std::move(document));
  try {
    levels_.emplace(&adopted, std::move(level));
    adopted.SetFrame(this);
    LoadTextures(adopted);
    OpenView(adopted);
  } catch (...) {
    // A level that got no window would be open unseen.
    if (adopted.Views().empty()) Release(adopted);
    throw;
  }
  OnActiveViewChanged();
}

void CEditorApp::LoadTextures(CZANDODoc& document) {
  document.LoadTextures(settings_.PalettePath, settings_.WadPath);
  const std::string complaint = ComplaintText(document.Textures(), settings_.WadPath);
  if (!complaint.empty()) desktop_.SetStatusText(complaint);
}

void CEditorApp::OpenView(CZANDODoc& document) {
  window_.OpenChild(std::make_unique<CZANDOView>(document, settings_, desktop_));
}

void CEditorApp::OpenTextureBrowser(CZANDODoc& document) {
  window_.OpenChild(std::make_unique<CTextureView>(document, desktop_));
  if (document.Textures().TextureCount() > 0) return;
  const std::string complaint = ComplaintText(document.Textures(), settings_.WadPath);
  desktop_.SetStatusText(!complaint.empty() ? complaint
                                            : "No textures: " + PathText(settings_.WadPath) +
                                                  " was not found or holds none");
}

void CEditorApp::OpenFourViews(CZANDODoc& document) {
  constexpr std::array kinds{ViewKind::Side, ViewKind::Top, ViewKind::Front, ViewKind::Solid};
  for (CChildView* view : ViewsOf<CChildView>(document)) window_.Minimize(*view);
  for (std::size_t i = 0; i < kinds.size(); ++i) OpenView(document);
  auto kind = kinds.begin();
  for (CZANDOView* view : ViewsOf<CZANDOView>(document)) {
    if (kind == kinds.end()) break;
    if (!window_.IsMinimized(*view)) view->SetKind(*kind++);
  }
  window_.TileHorizontally(ViewsOf<CChildView>(document));
}

void CEditorApp::Activate(CZANDODoc& document) {
  if (ActiveDocument() == &document) return;
  const auto editing = ViewsOf<CZANDOView>(document);
  if (!editing.empty()) return window_.Activate(*editing.front());
  const auto views = ViewsOf<CChildView>(document);
  if (!views.empty()) window_.Activate(*views.front());
}

bool CEditorApp::MayClose(CChildView& view) {
  bool may = false;
  guard_.Attempt("Close", [&] {
    // What is being dragged is a change too.
    view.EndDrag();
    may = view.Document().Views().size() > 1 || AskSaveChanges(view.Document());
  });
  return may;
}

bool CEditorApp::MayExit() {
  bool may = false;
  guard_.Attempt("Exit", [&] {
    if (CChildView* view = window_.ActiveView()) view->EndDrag();
    may = std::all_of(documents_.begin(), documents_.end(),
                      [this](const auto& document) { return AskSaveChanges(*document); });
  });
  return may;
}

void CEditorApp::CloseDocument(CZANDODoc& document) {
  if (!AskSaveChanges(document)) return;
  const auto views = ViewsOf<CChildView>(document);
  // The document outlives its last window, whatever that window still asks while it closes.
  const auto kept = Release(document);
  for (CChildView* view : views) window_.CloseChild(*view);
  OnActiveViewChanged();
}

std::unique_ptr<CZANDODoc> CEditorApp::Release(const CZANDODoc& document) {
  const auto found = std::find_if(documents_.begin(), documents_.end(),
                                  [&](const auto& open) { return open.get() == &document; });
  if (found == documents_.end()) return nullptr;
  auto released = std::move(*found);
  documents_.erase(found);
  levels_.erase(released.get());
  return released;
}

void CEditorApp::OnViewClosed(CZANDODoc& document) {
  const auto found = levels_.find(&document);
  if (found == levels_.end() || !document.Views().empty()) return;
  Release(document);
  OnActiveViewChanged();
}

void CEditorApp::OnActiveViewChanged() {
  guard_.Attempt("Showing the groups", [this] {
    RefreshGroups();
    RefreshGrid();
  });
}

void CEditorApp::SelectGroup(std::int32_t group) {
  guard_.Attempt("Choosing a group", [&] {
    desktop_.ClearFailure();
    if (CZANDODoc* document = ActiveDocument()) SetCurrentGroup(*document, group);
  });
}

void CEditorApp::RefreshGroups() {
  const CZANDODoc* document = ActiveDocument();
  if (document == nullptr) {
    window_.SetGroupItems({}, -1);
    return;
  }
  std::vector<GroupItem> items{{"No Group", -1}};
  for (const CBGroup& group : document->GetLevel().Groups) {
    items.push_back({group.gName, static_cast<std::int32_t>(items.size()) - 1});
  }
  window_.SetGroupItems(items, document->State().CurrentGroup);
}

void CEditorApp::RefreshGrid() {
  const CZANDODoc* document = ActiveDocument();
  window_.SetGridPane(document == nullptr ? std::string() : GridText(*document));
}

}  // namespace zando
