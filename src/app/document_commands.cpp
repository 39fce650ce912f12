#include "app/document_commands.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>

#include "app/command_table.h"
#include "dialogs/create_box_dlg.h"
#include "dialogs/group_attributes_dlg.h"
#include "document/brush_edits.h"
#include "document/command_ids.h"
#include "document/entity_edits.h"
#include "document/group_edits.h"
#include "document/view_edits.h"
#include "document/world_edits.h"
#include "formats/map_writer.h"
#include "platform/text.h"

namespace zando {
namespace {

/// What a command works on.
struct Workplace {
  CZANDODoc& document;
  const CEditorSettings& settings;
  CDesktop& desktop;
};

void CreateCube(const Workplace& at) {
  CZANDODoc& document = at.document;
  const auto box = CCreateBoxDlg(document.State().LastBox).Run(at.desktop);
  if (box) GenerateBox(document, *box);
}

void QuickBsp(const Workplace& at) {
  RebuildWorld(at.document, RebuildKind::Quick, WaterBrushes::Skip, nullptr);
}

void EditGroups(const Workplace& at) { CGroupAttributesDlg(at.document, at.desktop).Run(); }

void CreateGroup(const Workplace& at) {
  CreateNewGroup(at.document);
  EditGroups(at);
}

void ExportToMap(const Workplace& at) {
  at.document.UpdateAllViews(nullptr);
  const FileRequest request{
      .kind = FileRequest::Kind::Save,
      .title = "Export to Quake (MAP)",
      .extension = "MAP",
      .filter = "Map Files (*.map)|*.map|All Files (*.*)|*.*||",
      .proposal = std::filesystem::path(at.document.GetPathName()).replace_extension()};
  const auto path = at.desktop.ChooseFile(request);
  if (!path) return;
  MapExportReport report;
  const std::string error =
      ExportMap(at.document.GetLevel(), *path, at.settings.WadPath.string(), &report);
  at.desktop.SetStatusText(error.empty()
                               ? FileNameText(*path) + ": " + DescribeExport(report)
                               : "Cannot write " + PathText(*path) + ": " + ToLatin1(error));
}

template <std::int32_t Tool>
void SetTool(const Workplace& at) {
  SetTool(at.document, Tool);
}
template <std::int32_t Tool>
bool IsTool(const CZANDODoc& document) {
  return document.State().ToolMode == Tool;
}

template <std::int32_t Filter>
void SetFilter(const Workplace& at) {
  SetShowFilter(at.document, Filter);
}
template <std::int32_t Filter>
bool IsFilter(const CZANDODoc& document) {
  return document.State().ShowFilter == Filter;
}

/// A step of the document that needs nobody else.
template <void (*Operation)(CZANDODoc&)>
void Call(const Workplace& at) {
  Operation(at.document);
}

template <ListStep Step>
void StepBrush(const Workplace& at) {
  StepCurrentBrush(at.document, Step);
}

/// A brush keeps no history: there is never a step to take.
void Undo(const Workplace& at) { at.document.UpdateAllViews(nullptr); }

bool CanUndo(const CZANDODoc& /*document*/) { return CZandoBrush::CanUndo(); }
bool CanRedo(const CZANDODoc& /*document*/) { return CZandoBrush::CanRedo(); }
bool IsPicked(const CZANDODoc& document) { return document.BrushPicked(); }
bool HasSelection(const CZANDODoc& document) { return document.AnySelected(); }
bool HasCurrentEntity(const CZANDODoc& document) { return document.State().CurrentEntity >= 0; }
bool UsesGrid(const CZANDODoc& document) { return document.State().UseGrid != 0; }
bool ShowsEntities(const CZANDODoc& document) { return document.State().ShowEntities != 0; }
bool ShowsBrush(const CZANDODoc& document) { return document.State().ShowBrush != 0; }
bool MovesGroups(const CZANDODoc& document) { return document.State().GroupMovementMode != 0; }

using Rule = bool (*)(const CZANDODoc&);

struct DocumentCommand {
  CommandId id;
  void (*run)(const Workplace&);
  Rule enabled = nullptr;  ///< null: always
  Rule checked = nullptr;  ///< null: never
};

constexpr std::array kCommands{
    DocumentCommand{ID_ADD_TO_WORLD, Call<AddToWorld>},
    DocumentCommand{ID_SUBTRACT_FROM_WORLD, Call<SubtractFromWorld>},
    DocumentCommand{ID_CUBE, CreateCube},
    DocumentCommand{ID_EXPORT_MAP, ExportToMap},
    DocumentCommand{ID_USE_GRID, Call<ToggleUseGrid>, nullptr, UsesGrid},
    DocumentCommand{ID_EDIT_UNDO, Undo, CanUndo},
    DocumentCommand{ID_EDIT_REDO, Undo, CanRedo},
    DocumentCommand{ID_QUICK_BSP, QuickBsp},
    DocumentCommand{ID_PLACE_LIGHT, Call<PlaceLight>},
    DocumentCommand{ID_COPY_ENTITY, Call<CopyCurrentEntity>, HasCurrentEntity},
    DocumentCommand{ID_SHOW_ENTITIES, Call<ToggleShowEntities>, nullptr, ShowsEntities},
    DocumentCommand{ID_SHOW_ALL_BRUSHES, SetFilter<ID_SHOW_ALL_BRUSHES>, nullptr,
                    IsFilter<ID_SHOW_ALL_BRUSHES>},
    DocumentCommand{ID_SHOW_VISIBLE_GROUPS, SetFilter<ID_SHOW_VISIBLE_GROUPS>, nullptr,
                    IsFilter<ID_SHOW_VISIBLE_GROUPS>},
    DocumentCommand{ID_SHOW_CURRENT_GROUP, SetFilter<ID_SHOW_CURRENT_GROUP>, nullptr,
                    IsFilter<ID_SHOW_CURRENT_GROUP>},
    DocumentCommand{ID_ADD_TO_GROUP, Call<AddSelectedToGroup>, HasSelection},
    DocumentCommand{ID_REMOVE_FROM_GROUP, Call<RemoveSelectedFromGroup>, HasSelection},
    DocumentCommand{ID_CREATE_GROUP, CreateGroup, HasSelection},
    DocumentCommand{ID_GROUP_EDITOR, EditGroups},
    DocumentCommand{ID_GROUP_MOVEMENT, Call<ToggleGroupMovement>, nullptr, MovesGroups},
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
    DocumentCommand{ID_RESET_BRUSH, Call<ResetBrush>},
    DocumentCommand{ID_SHOW_BRUSH, Call<ToggleShowBrush>, nullptr, ShowsBrush},
    DocumentCommand{ID_DELETE_BRUSH, Call<DeleteCurrentBrush>, IsPicked},
    DocumentCommand{ID_NEXT_BRUSH, StepBrush<ListStep::Next>, IsPicked},
    DocumentCommand{ID_PREVIOUS_BRUSH, StepBrush<ListStep::Previous>, IsPicked},
    DocumentCommand{ID_COPY_TO_CURRENT, Call<CopyToCurrent>, IsPicked},
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
