#include "app/document_commands.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>

#include "app/app_text.h"
#include "app/command_table.h"
#include "csg/csg_world.h"
#include "document/command_ids.h"
#include "entities/group_attributes_dlg.h"
#include "formats/map_writer.h"

namespace zando {
namespace {

/// What a command works on.
struct Workplace {
  CZANDODoc& document;
  const CEditorSettings& settings;
  CDesktop& desktop;

  void Redraw() const { document.UpdateAllViews(nullptr); }
};

void CreateCube(const Workplace& at) {
  at.document.SetModifiedFlag();
  at.document.BoxDialog.Run(*at.document.CurrentBrush, at.desktop);
  at.document.CurrentBrush->ComputeFacePoints();
  at.Redraw();
}

void QuickBsp(const Workplace& at) {
  at.document.SetModifiedFlag();
  RebuildQuick(at.document.World, nullptr, WaterBrushes::Skip);
  at.Redraw();
}

void EditGroups(const Workplace& at) {
  CZANDODoc& document = at.document;
  CGroupAttributesDlg dialog;
  document.CurrentGroup =
      dialog.Run(document.Groups, document.CurrentGroup, document.BrushList.Head(), at.desktop);
  document.RefreshColors();
  at.Redraw();
  document.SetModifiedFlag();
}

void CreateGroup(const Workplace& at) {
  at.document.CreateNewGroup();
  EditGroups(at);
}

std::string DescribeExport(const MapExportReport& report, const std::string& name) {
  std::string text = "Wrote " + std::to_string(report.brushes) + " brushes to " + name;
  const std::int32_t leftOut = report.strayCells + report.thinCells;
  if (leftOut > 0) text += ", left out " + std::to_string(leftOut) + " stray or empty cells";
  return text;
}

void ExportToMap(const Workplace& at) {
  at.Redraw();
  const FileRequest request{
      .kind = FileRequest::Kind::Save,
      .title = "Export to Quake (MAP)",
      .extension = "MAP",
      .filter = "Map Files (*.map)|*.map|All Files (*.*)|*.*||",
      .proposal = std::filesystem::path(at.document.GetPathName()).replace_extension()};
  const auto path = at.desktop.ChooseFile(request);
  if (!path) return;
  MapExportReport report;
  const auto written = ExportMap(at.document, *path, at.settings.WadPath.string(), &report);
  at.desktop.SetStatusText(written ? DescribeExport(report, FileNameText(*path))
                                   : "Cannot write " + PathText(*path) + ": " +
                                         ToLatin1(written.Error()));
}

template <std::int32_t Tool>
void SetTool(const Workplace& at) {
  at.document.ToolMode = Tool;
}
template <std::int32_t Tool>
bool IsTool(const CZANDODoc& document) {
  return document.ToolMode == Tool;
}

template <std::int32_t Filter>
void SetFilter(const Workplace& at) {
  at.document.SetShowFilter(Filter);
}
template <std::int32_t Filter>
bool IsFilter(const CZANDODoc& document) {
  return document.ShowFilter == Filter;
}

/// A step of the document that needs nobody else.
template <void (CZANDODoc::*Operation)()>
void Call(const Workplace& at) {
  (at.document.*Operation)();
}

template <CZANDODoc::ListStep Step>
void StepBrush(const Workplace& at) {
  at.document.StepCurrentBrush(Step);
}

void Undo(const Workplace& at) {
  at.document.CurrentBrush->Undo();
  at.Redraw();
}
void Redo(const Workplace& at) {
  at.document.CurrentBrush->Redo();
  at.Redraw();
}

void ToggleGroupMovement(const Workplace& at) {
  at.document.GroupMovementMode = at.document.GroupMovementMode == 0 ? 1 : 0;
}

bool CanUndo(const CZANDODoc& /*document*/) { return CZandoBrush::CanUndo(); }
bool CanRedo(const CZANDODoc& /*document*/) { return CZandoBrush::CanRedo(); }
bool IsPicked(const CZANDODoc& document) { return document.BrushPicked != 0; }
bool HasSelection(const CZANDODoc& document) { return document.AnySelected(); }
bool HasCurrentEntity(const CZANDODoc& document) { return document.CurrentEntity >= 0; }
bool UsesGrid(const CZANDODoc& document) { return document.UseGrid != 0; }
bool ShowsEntities(const CZANDODoc& document) { return document.ShowEntities != 0; }
bool ShowsBrush(const CZANDODoc& document) { return document.ShowBrush != 0; }
bool MovesGroups(const CZANDODoc& document) { return document.GroupMovementMode != 0; }

using Rule = bool (*)(const CZANDODoc&);

struct DocumentCommand {
  CommandId id;
  void (*run)(const Workplace&);
  Rule enabled = nullptr;  ///< null: always
  Rule checked = nullptr;  ///< null: never
};

constexpr std::array kCommands{
    DocumentCommand{ID_ADD_TO_WORLD, Call<&CZANDODoc::AddToWorld>},
    DocumentCommand{ID_SUBTRACT_FROM_WORLD, Call<&CZANDODoc::SubtractFromWorld>},
    DocumentCommand{ID_CUBE, CreateCube},
    DocumentCommand{ID_EXPORT_MAP, ExportToMap},
    DocumentCommand{ID_USE_GRID, Call<&CZANDODoc::ToggleUseGrid>, nullptr, UsesGrid},
    DocumentCommand{ID_EDIT_UNDO, Undo, CanUndo},
    DocumentCommand{ID_EDIT_REDO, Redo, CanRedo},
    DocumentCommand{ID_QUICK_BSP, QuickBsp},
    DocumentCommand{ID_PLACE_LIGHT, Call<&CZANDODoc::PlaceLight>},
    DocumentCommand{ID_COPY_ENTITY, Call<&CZANDODoc::CopyCurrentEntity>, HasCurrentEntity},
    DocumentCommand{ID_SHOW_ENTITIES, Call<&CZANDODoc::ToggleShowEntities>, nullptr, ShowsEntities},
    DocumentCommand{ID_SHOW_ALL_BRUSHES, SetFilter<ID_SHOW_ALL_BRUSHES>, nullptr,
                    IsFilter<ID_SHOW_ALL_BRUSHES>},
    DocumentCommand{ID_SHOW_VISIBLE_GROUPS, SetFilter<ID_SHOW_VISIBLE_GROUPS>, nullptr,
                    IsFilter<ID_SHOW_VISIBLE_GROUPS>},
    DocumentCommand{ID_SHOW_CURRENT_GROUP, SetFilter<ID_SHOW_CURRENT_GROUP>, nullptr,
                    IsFilter<ID_SHOW_CURRENT_GROUP>},
    DocumentCommand{ID_ADD_TO_GROUP, Call<&CZANDODoc::AddSelectedToGroup>, HasSelection},
    DocumentCommand{ID_REMOVE_FROM_GROUP, Call<&CZANDODoc::RemoveSelectedFromGroup>, HasSelection},
    DocumentCommand{ID_CREATE_GROUP, CreateGroup, HasSelection},
    DocumentCommand{ID_GROUP_EDITOR, EditGroups},
    DocumentCommand{ID_GROUP_MOVEMENT, ToggleGroupMovement, nullptr, MovesGroups},
    DocumentCommand{ID_TOOL_CAMERA, SetTool<ID_TOOL_CAMERA>, nullptr, IsTool<ID_TOOL_CAMERA>},
    DocumentCommand{ID_TOOL_MOVE_ROTATE_BRUSH, SetTool<ID_TOOL_MOVE_ROTATE_BRUSH>, nullptr,
                    IsTool<ID_TOOL_MOVE_ROTATE_BRUSH>},
    DocumentCommand{ID_TOOL_SCALE_BRUSH, SetTool<ID_TOOL_SCALE_BRUSH>, nullptr,
                    IsTool<ID_TOOL_SCALE_BRUSH>},
    DocumentCommand{ID_TOOL_SHEAR_BRUSH, SetTool<ID_TOOL_SHEAR_BRUSH>, nullptr,
                    IsTool<ID_TOOL_SHEAR_BRUSH>},
    DocumentCommand{ID_TOOL_MOVE_SELECT_ENTITY, SetTool<ID_TOOL_MOVE_SELECT_ENTITY>, nullptr,
                    IsTool<ID_TOOL_MOVE_SELECT_ENTITY>},
    DocumentCommand{ID_TOOL_SELECT_GROUP, SetTool<ID_TOOL_SELECT_GROUP>, nullptr,
                    IsTool<ID_TOOL_SELECT_GROUP>},
    DocumentCommand{ID_TOOL_SELECT_BRUSH, SetTool<ID_TOOL_SELECT_BRUSH>, nullptr,
                    IsTool<ID_TOOL_SELECT_BRUSH>},
    DocumentCommand{ID_RESET_BRUSH, Call<&CZANDODoc::ResetBrush>},
    DocumentCommand{ID_SHOW_BRUSH, Call<&CZANDODoc::ToggleShowBrush>, nullptr, ShowsBrush},
    DocumentCommand{ID_DELETE_BRUSH, Call<&CZANDODoc::DeleteCurrentBrush>, IsPicked},
    DocumentCommand{ID_NEXT_BRUSH, StepBrush<CZANDODoc::ListStep::Next>, IsPicked},
    DocumentCommand{ID_PREVIOUS_BRUSH, StepBrush<CZANDODoc::ListStep::Previous>, IsPicked},
    DocumentCommand{ID_COPY_TO_CURRENT, Call<&CZANDODoc::CopyToCurrent>, IsPicked},
};

const DocumentCommand* Find(CommandId id) {
  const auto found =
      std::find_if(kCommands.begin(), kCommands.end(),
                   [id](const DocumentCommand& command) { return command.id == id; });
  return found == kCommands.end() ? nullptr : &*found;
}

}  // namespace

bool CDocumentCommands::OnCommand(CommandId id) {
  const DocumentCommand* command = Find(id);
  if (command == nullptr) return false;
  command->run({document_, settings_, desktop_});
  return true;
}

bool CDocumentCommands::OnUpdateCommandUI(CommandId id, CCmdUI& ui) {
  const DocumentCommand* command = Find(id);
  if (command == nullptr) return false;
  if (command->enabled != nullptr) ui.Enable(command->enabled(document_));
  if (command->checked != nullptr) ui.SetCheck(command->checked(document_));
  return true;
}

}  // namespace zando
