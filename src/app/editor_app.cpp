#include "app/editor_app.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "app/frame_commands.h"

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

/// The editing views of a document, in order; a copy, because windows come and go meanwhile.
std::vector<CZANDOView*> EditingViews(const CZANDODoc& document) {
  std::vector<CZANDOView*> views;
  for (CView* view : document.Views()) {
    if (auto* editing = dynamic_cast<CZANDOView*>(view)) views.push_back(editing);
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
  if (CZANDOView* view = window_.ActiveView()) {
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
  if (CZANDOView* view = window_.ActiveView()) view->EndDrag();
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
  CZANDOView* view = window_.ActiveView();
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
  OpenView(adopted);
  OnActiveViewChanged();
  return adopted;
}

void CEditorApp::OpenView(CZANDODoc& document) {
  window_.OpenChild(std::make_unique<CZANDOView>(document, settings_, desktop_));
}

void CEditorApp::OpenFourViews(CZANDODoc& document) {
  constexpr std::array kinds{ViewKind::Side, ViewKind::Top, ViewKind::Front, ViewKind::Solid};
  for (CZANDOView* view : EditingViews(document)) window_.Minimize(*view);
  for (std::size_t i = 0; i < kinds.size(); ++i) OpenView(document);
  auto kind = kinds.begin();
  for (CZANDOView* view : EditingViews(document)) {
    if (kind == kinds.end()) break;
    if (!window_.IsMinimized(*view)) view->SetKind(*kind++);
  }
  window_.TileHorizontally();
}

void CEditorApp::Activate(CZANDODoc& document) {
  if (ActiveDocument() == &document) return;
  const auto views = EditingViews(document);
  if (!views.empty()) window_.Activate(*views.front());
}

bool CEditorApp::MayClose(CZANDOView& view) {
  return view.Document().Views().size() > 1 || AskSaveChanges(view.Document());
}

bool CEditorApp::MayExit() {
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
  for (CZANDOView* view : EditingViews(document)) window_.CloseChild(*view);
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
