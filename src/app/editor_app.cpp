#include "app/editor_app.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "app/frame_commands.h"
#include "platform/text.h"

namespace zando {
namespace {

/// The grid size as a whole number; it doubles without a limit.
std::int32_t WholeGridSize(double size) {
  constexpr double largest = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::clamp(size, 0.0, largest));
}

std::string GridText(const CZANDODoc& document) {
  return "Gridsize: " + std::to_string(WholeGridSize(document.GridSize)) +
         (document.UseGrid != 0 ? " Snap On" : " Snap Off");
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
    : window_(window),
      desktop_(desktop),
      recentStore_(recent),
      frameCommands_(std::make_unique<CFrameCommands>(*this)),
      applicationCommands_(std::make_unique<CApplicationCommands>(*this)) {}

CEditorApp::~CEditorApp() {
  while (!documents_.empty()) CloseViews(*Release(*documents_.back()));
}

bool CEditorApp::Start(const std::filesystem::path& file) {
  LoadRecentFiles();
  OnActiveViewChanged();
  if (!file.empty()) return OpenDocument(file);
  NewDocument();
  return true;
}

std::vector<CCmdTarget*> CEditorApp::Targets() {
  std::vector<CCmdTarget*> targets;
  if (CChildView* view = window_.ActiveView()) {
    targets.push_back(view);
    // A document that is being closed takes no more commands.
    const auto level = levels_.find(&view->Document());
    if (level != levels_.end()) targets.push_back(level->second.commands.get());
  }
  targets.push_back(frameCommands_.get());
  targets.push_back(applicationCommands_.get());
  return targets;
}

void CEditorApp::Run(CommandId id) {
  // A key may bring a command while a mouse button is down.
  if (CChildView* view = window_.ActiveView()) view->EndDrag();
  for (CCmdTarget* target : Targets()) {
    CCmdUI ui;
    if (!target->OnUpdateCommandUI(id, ui)) continue;
    if (ui.IsEnabled()) target->OnCommand(id);
    return;
  }
}

CCmdUI CEditorApp::Query(CommandId id) {
  for (CCmdTarget* target : Targets()) {
    CCmdUI ui;
    if (target->OnUpdateCommandUI(id, ui)) return ui;
  }
  CCmdUI unknown;
  unknown.Enable(false);
  return unknown;
}

CZANDODoc* CEditorApp::ActiveDocument() const {
  const CChildView* view = window_.ActiveView();
  return view == nullptr ? nullptr : &view->Document();
}

CZANDODoc& CEditorApp::Adopt(std::unique_ptr<CZANDODoc> document, const FileStamp& stamp) {
  CZANDODoc& adopted = *document;
  documents_.push_back(std::move(document));
  OpenLevel& level = levels_[&adopted];
  level.commands = std::make_unique<CDocumentCommands>(adopted, settings_, desktop_);
  level.stamp = stamp;
  adopted.Frame = this;
  adopted.RefreshColors();
  LoadTextures(adopted);
  OpenView(adopted);
  OnActiveViewChanged();
  return adopted;
}

void CEditorApp::LoadTextures(CZANDODoc& document) {
  document.Textures.Create(settings_.PalettePath, settings_.WadPath);
  const std::string complaint = ComplaintText(document.Textures, settings_.WadPath);
  if (!complaint.empty()) desktop_.SetStatusText(complaint);
}

void CEditorApp::OpenView(CZANDODoc& document) {
  window_.OpenChild(std::make_unique<CZANDOView>(document, settings_, desktop_));
}

void CEditorApp::OpenTextureBrowser(CZANDODoc& document) {
  window_.OpenChild(std::make_unique<CTextureView>(document, desktop_));
  if (document.Textures.TextureCount() > 0) return;
  const std::string complaint = ComplaintText(document.Textures, settings_.WadPath);
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
  // What is being dragged is a change too.
  view.EndDrag();
  return view.Document().Views().size() > 1 || AskSaveChanges(view.Document());
}

bool CEditorApp::MayExit() {
  if (CChildView* view = window_.ActiveView()) view->EndDrag();
  return std::all_of(documents_.begin(), documents_.end(),
                     [this](const auto& document) { return AskSaveChanges(*document); });
}

void CEditorApp::CloseDocument(CZANDODoc& document) {
  if (!AskSaveChanges(document)) return;
  // The document outlives its last window, whatever that window still asks while it closes.
  const auto kept = Release(document);
  CloseViews(*kept);
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

void CEditorApp::CloseViews(CZANDODoc& document) {
  for (CChildView* view : ViewsOf<CChildView>(document)) window_.CloseChild(*view);
}

void CEditorApp::OnViewClosed(CZANDODoc& document) {
  const auto found = levels_.find(&document);
  if (found == levels_.end() || !document.Views().empty()) return;
  Release(document);
  OnActiveViewChanged();
}

void CEditorApp::OnActiveViewChanged() {
  RefreshGroups();
  RefreshGrid();
}

void CEditorApp::SelectGroup(std::int32_t group) {
  if (CZANDODoc* document = ActiveDocument()) document->SetCurrentGroup(group);
}

void CEditorApp::RefreshGroups() {
  const CZANDODoc* document = ActiveDocument();
  if (document == nullptr) {
    window_.SetGroupItems({}, -1);
    return;
  }
  std::vector<GroupItem> items{{"No Group", -1}};
  for (const CBGroup& group : document->Groups) {
    items.push_back({group.gName, static_cast<std::int32_t>(items.size()) - 1});
  }
  window_.SetGroupItems(items, document->CurrentGroup);
}

void CEditorApp::RefreshGrid() {
  const CZANDODoc* document = ActiveDocument();
  window_.SetGridPane(document == nullptr ? std::string() : GridText(*document));
}

}  // namespace zando
