#include "app/command_table.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <tuple>

#include "app/editor_app.h"
#include "app/level_commands.h"
#include "dialogs/create_box_dlg.h"
#include "dialogs/create_cylinder_dlg.h"
#include "dialogs/create_spheroid_dlg.h"
#include "dialogs/create_staircase_dlg.h"
#include "document/brush_edits.h"
#include "document/command_ids.h"
#include "document/entity_edits.h"
#include "document/group_edits.h"
#include "document/view_edits.h"
#include "views/zando_view.h"

namespace zando {
namespace {

// ---- of a view

constexpr CommandId KindCommand(ViewKind kind) { return static_cast<CommandId>(kind); }

template <ViewKind Wanted>
constexpr OfView Kind() {
  return {[](CZANDOView& view) { view.SetKind(Wanted); }, nullptr,
          [](const CZANDOView& view) { return view.Kind() == Wanted; }};
}

template <std::uint32_t Flag>
constexpr OfView Axis() {
  return {[](CZANDOView& view) { view.ToggleAxis(Flag); }, nullptr,
          [](const CZANDOView& view) { return (view.AxisFlags() & Flag) != 0; }};
}

void Rotate90(CZANDOView& view) { view.Rotate90(); }

// ---- of a level

/// An operation that asks nobody.
template <void (*Operation)(CZANDODoc&)>
void Edit(ActiveLevel& level) {
  Operation(level.document);
}

template <typename Dialog>
void CreatePrimitive(ActiveLevel& level) {
  Dialog dialog(std::get<typename Dialog::Parameters>(level.document.State().LastUsed));
  if (const auto agreed = dialog.Run(level.desktop)) {
    GeneratePrimitive(level.document, *agreed);
  } else {
    KeepParameters(level.document, dialog.LastUsed());
  }
}

template <std::int32_t Wanted>
constexpr OfLevel Tool() {
  return {[](ActiveLevel& level) { SetTool(level.document, Wanted); }, nullptr,
          [](const ActiveLevel& level) { return level.document.State().ToolMode == Wanted; }};
}

template <std::int32_t Wanted>
constexpr OfLevel Filter() {
  return {[](ActiveLevel& level) { SetShowFilter(level.document, Wanted); }, nullptr,
          [](const ActiveLevel& level) { return level.document.State().ShowFilter == Wanted; }};
}

template <ListStep Step>
void StepBrush(ActiveLevel& level) {
  StepCurrentBrush(level.document, Step);
}

/// A brush keeps no history: there is never a step to take.
void Undo(ActiveLevel& level) { level.document.UpdateAllViews(nullptr); }
bool CanUndo(const ActiveLevel& /*level*/) { return CZandoBrush::CanUndo(); }
bool CanRedo(const ActiveLevel& /*level*/) { return CZandoBrush::CanRedo(); }

bool IsPicked(const ActiveLevel& level) { return level.document.BrushPicked(); }
bool HasSelection(const ActiveLevel& level) { return level.document.AnySelected(); }
bool HasCurrentEntity(const ActiveLevel& level) {
  return level.document.State().CurrentEntity >= 0;
}
bool UsesGrid(const ActiveLevel& level) { return level.document.State().UseGrid != 0; }
bool ShowsEntities(const ActiveLevel& level) { return level.document.State().ShowEntities != 0; }
bool ShowsBrush(const ActiveLevel& level) { return level.document.State().ShowBrush != 0; }
bool MovesGroups(const ActiveLevel& level) { return level.document.State().GroupMovementMode != 0; }

// ---- of the frame

bool HasLevel(const MainFrame& frame) { return frame.app.ActiveDocument() != nullptr; }

/// Opens something for the active level.
template <auto Operation>
void Open(MainFrame& frame) {
  (frame.app.*Operation)(*frame.app.ActiveDocument());
}

template <void (CMainWindow::*Operation)()>
void Arrange(MainFrame& frame) {
  (frame.window.*Operation)();
}

bool ShowsToolbars(const MainFrame& frame) { return frame.window.AreToolbarsVisible(); }
void ToggleToolbars(MainFrame& frame) { frame.window.SetToolbarsVisible(!ShowsToolbars(frame)); }
bool ShowsStatusBar(const MainFrame& frame) { return frame.window.IsStatusBarVisible(); }
void ToggleStatusBar(MainFrame& frame) { frame.window.SetStatusBarVisible(!ShowsStatusBar(frame)); }

// ---- of the application

bool HasLevel(const CEditorApp& app) { return app.ActiveDocument() != nullptr; }

template <void (CEditorApp::*Operation)()>
void Do(CEditorApp& app) {
  (app.*Operation)();
}

template <auto Operation>
void WithLevel(CEditorApp& app) {
  (app.*Operation)(*app.ActiveDocument());
}

constexpr std::string_view kRecentText = "Recent File";
constexpr std::string_view kRecentPrompt = "Open this level";
constexpr std::string_view kRecentTip = "Open Recent";

template <std::size_t Index>
constexpr OfApplication RecentFile() {
  return {[](CEditorApp& app) { app.OpenRecentFile(Index); },
          [](const CEditorApp& app) { return Index < app.RecentFiles().size(); }};
}

// ---- all of them, in the order of the menus

constexpr std::monostate kNobody;

constexpr CommandRow Row(CommandId id, std::string_view menuText, std::string_view prompt,
                         std::string_view tip, CommandRow::Rule rule, std::string_view icon = {},
                         std::string_view key = {}, std::string_view otherKey = {}) {
  return {id, menuText, prompt, tip, icon, {key, otherKey}, rule};
}

constexpr std::array kCommands{
    // File
    Row(ID_FILE_NEW, "&New", "Create a new level", "New",
        OfApplication{Do<&CEditorApp::NewDocument>}, "file_new", "Ctrl+N"),
    Row(ID_FILE_OPEN, "&Open...", "Open an existing level", "Open",
        OfApplication{Do<&CEditorApp::AskAndOpen>}, "file_open", "Ctrl+O"),
    Row(ID_FILE_CLOSE, "&Close", "Close the active level", "Close",
        OfApplication{WithLevel<&CEditorApp::CloseDocument>, HasLevel}),
    Row(ID_FILE_SAVE, "&Save", "Save the active level", "Save",
        OfApplication{WithLevel<&CEditorApp::Save>, HasLevel}, "file_save", "Ctrl+S"),
    Row(ID_FILE_SAVE_AS, "Save &As...", "Save the active level with a new name", "Save As",
        OfApplication{WithLevel<&CEditorApp::SaveAs>, HasLevel}),
    Row(ID_EXPORT_3DM, "&Export to 3DM...", "Export bsp geometry to a .3DM file", "Export to 3DM",
        OfLevel{ExportTo3Dm}),
    Row(ID_EXPORT_MAP, "Export to &Quake (MAP) ...", "Export currently visible brushes to quake",
        "Export to MAP", OfLevel{ExportToMap}),
    Row(ID_IMPORT_MAP, "Import from Quake (MAP) ...",
        "Import brushes and entities from a quake map", "Import from MAP",
        OfLevel{ImportFromMap}),
    Row(ID_MAP_SETTINGS, "&Map Settings...", "Choose the texture archive and the palette",
        "Map Settings", OfLevel{EditSettings}),
    Row(ID_FILE_MRU_FIRST, kRecentText, kRecentPrompt, kRecentTip, RecentFile<0>()),
    Row(ID_FILE_MRU_FIRST + 1, kRecentText, kRecentPrompt, kRecentTip, RecentFile<1>()),
    Row(ID_FILE_MRU_FIRST + 2, kRecentText, kRecentPrompt, kRecentTip, RecentFile<2>()),
    Row(ID_FILE_MRU_FIRST + 3, kRecentText, kRecentPrompt, kRecentTip, RecentFile<3>()),
    Row(ID_APP_EXIT, "E&xit", "Quit ZANDO; asks to save changed levels", "Exit",
        OfApplication{Do<&CEditorApp::Exit>}),

    // Edit
    Row(ID_EDIT_UNDO, "&Undo", "Undo the last change of the current brush", "Undo",
        OfLevel{Undo, CanUndo}, "edit_undo", "Ctrl+Z", "Alt+Backspace"),
    Row(ID_EDIT_REDO, "&Redo", "Redo the change that was undone", "Redo", OfLevel{Undo, CanRedo},
        "edit_redo", "Alt+Z"),
    Row(ID_EDIT_CUT, "Cu&t", "Cut the selection and put it on the clipboard", "Cut", kNobody,
        "edit_cut", "Ctrl+X", "Shift+Delete"),
    Row(ID_EDIT_COPY, "&Copy", "Copy the selection and put it on the clipboard", "Copy", kNobody,
        "edit_copy", "Ctrl+C", "Ctrl+Insert"),
    Row(ID_EDIT_PASTE, "&Paste", "Insert the contents of the clipboard", "Paste", kNobody,
        "edit_paste", "Ctrl+V", "Shift+Insert"),

    // View
    Row(ID_TEXTURE_BROWSER, "Texture &Browser", "Show the textures of the archive",
        "Texture Browser", OfFrame{Open<&CEditorApp::OpenTextureBrowser>, HasLevel}),
    Row(ID_FOUR_VIEWS, "&4 Views", "Show the level from the side, the top, the front and 3D",
        "4 Views", OfFrame{Open<&CEditorApp::OpenFourViews>, HasLevel}),
    Row(ID_VIEW_TOOLBAR, "&Toolbar", "Show or hide the toolbars", "Toolbar",
        OfFrame{ToggleToolbars, nullptr, ShowsToolbars}),
    Row(ID_VIEW_STATUS_BAR, "&Status Bar", "Show or hide the status bar", "Status Bar",
        OfFrame{ToggleStatusBar, nullptr, ShowsStatusBar}),
    Row(KindCommand(ViewKind::Wireframe), "3D Wireframe",
        "Show the level in perspective as outlines", "3D Wireframe", Kind<ViewKind::Wireframe>()),
    Row(KindCommand(ViewKind::Solid), "Solid &Render",
        "Show the level in perspective with solid faces", "Solid Render", Kind<ViewKind::Solid>()),
    Row(KindCommand(ViewKind::Top), "To&p View", "Show the level from above", "Top View",
        Kind<ViewKind::Top>()),
    Row(KindCommand(ViewKind::Side), "Side &View", "Show the level from the side", "Side View",
        Kind<ViewKind::Side>()),
    Row(KindCommand(ViewKind::Front), "&Front View", "Show the level from the front", "Front View",
        Kind<ViewKind::Front>()),
    Row(KindCommand(ViewKind::Texture), "Te&xture View",
        "Show the level in perspective with its textures", "Texture View",
        Kind<ViewKind::Texture>()),

    // View / Show
    Row(ID_SHOW_CURRENT_GROUP, "&Current Group", "Show only the brushes of the current group",
        "Show Current Group", Filter<ID_SHOW_CURRENT_GROUP>(), "show_current_group"),
    Row(ID_SHOW_VISIBLE_GROUPS, "&Visible Brush Groups", "Show only the brushes of visible groups",
        "Show Visible Groups", Filter<ID_SHOW_VISIBLE_GROUPS>(), "show_visible_groups"),
    Row(ID_SHOW_ALL_BRUSHES, "&All Brushes", "Show all brushes", "Show All Brushes",
        Filter<ID_SHOW_ALL_BRUSHES>(), "show_all"),

    // View / Tools
    Row(ID_TOOL_CAMERA, "&Camera", "Move the camera of a view with the mouse", "Camera",
        Tool<ID_TOOL_CAMERA>(), "tool_camera"),
    Row(ID_SHOW_BRUSH, "Show &Brush", "Show or hide the current brush", "Show Brush",
        OfLevel{Edit<ToggleShowBrush>, nullptr, ShowsBrush}, "show_brush"),
    Row(ID_TOOL_MOVE_ROTATE_BRUSH, "&Move/Rotate Brush",
        "Move or rotate the current brush with the mouse", "Move/Rotate Brush",
        Tool<ID_TOOL_MOVE_ROTATE_BRUSH>(), "tool_move"),
    Row(ID_TOOL_SCALE_BRUSH, "&Scale Brush", "Scale the current brush with the mouse",
        "Scale Brush", Tool<ID_TOOL_SCALE_BRUSH>(), "tool_scale"),
    Row(ID_TOOL_SHEAR_BRUSH, "S&hear Brush", "Shear the current brush with the mouse",
        "Shear Brush", Tool<ID_TOOL_SHEAR_BRUSH>(), "tool_shear"),
    Row(ID_ROTATE_90, "Rotate &90", "Rotate the current brush by 90 degrees", "Rotate 90",
        OfView{Rotate90}, "rotate_90"),
    Row(ID_RESET_BRUSH, "&Reset Brush", "Take back rotation, scale and shear of the current brush",
        "Reset Brush", OfLevel{Edit<ResetBrush>}, "reset_brush"),
    Row(ID_TOOL_MOVE_SELECT_ENTITY, "&Move/Select Entity",
        "Move or select an entity with the mouse", "Move/Select Entity",
        Tool<ID_TOOL_MOVE_SELECT_ENTITY>(), "move_entity"),
    Row(ID_ATTRIBUTES, "&Attributes", "Edit the attributes of the current brush",
        "Brush Attributes", OfLevel{EditAttributes}, "attributes"),
    Row(ID_TEXTURES, "Textures", "Textures of the current brush", "Textures", kNobody),
    Row(ID_GROUP_MOVEMENT, "Group Movement Mode",
        "Let the brush tools act on all brushes of the current group", "Group Movement Mode",
        OfLevel{Edit<ToggleGroupMovement>, nullptr, MovesGroups}, "group_movement", "G"),
    Row(ID_USE_GRID, "&Use Grid", "Snap positions to the grid", "Use Grid",
        OfLevel{Edit<ToggleUseGrid>, nullptr, UsesGrid}, "use_grid"),
    Row(ID_GRID_SETTINGS, "&Grid Settings...", "Change the grid and the rotation snap",
        "Grid Settings", OfLevel{EditGrid}, "grid_settings"),
    Row(ID_BSP_MANAGER, "&Bsp Manager...", "Bring up bsp manager", "Bsp Manager",
        OfLevel{ManageBsp}),
    Row(ID_QUICK_BSP, "Quick Bsp", "Do a quick BSP rebuild with no water brushes",
        "Do a quick BSP rebuild with no water brushes", OfLevel{RebuildQuickly}, "quick_bsp"),

    // Brush
    Row(ID_TOOL_SELECT_BRUSH, "&Select Brush", "Pick a brush of the level with the mouse",
        "Select Brush", Tool<ID_TOOL_SELECT_BRUSH>(), "select_brush"),
    Row(ID_TOOL_SELECT_GROUP, "Select/&Deselect Group",
        "Select or deselect brushes and entities with a box", "Select/Deselect Group",
        Tool<ID_TOOL_SELECT_GROUP>(), "select_group"),
    Row(ID_DELETE_BRUSH, "&Delete", "Delete the selected brush", "Delete Brush",
        OfLevel{Edit<DeleteCurrentBrush>, IsPicked}),
    Row(ID_NEXT_BRUSH, "&Next in order", "Select the next brush of the level", "Next Brush",
        OfLevel{StepBrush<ListStep::Next>, IsPicked}),
    Row(ID_PREVIOUS_BRUSH, "&Previous in order", "Select the previous brush of the level",
        "Previous Brush", OfLevel{StepBrush<ListStep::Previous>, IsPicked}),
    Row(ID_COPY_TO_CURRENT, "&Copy to Current", "Copy the selected brush to the working brush",
        "Copy to Current", OfLevel{Edit<CopyToCurrent>, IsPicked}),
    Row(ID_CUBE, "&Cube...", "Create a cube primitive", "Cube ",
        OfLevel{CreatePrimitive<CCreateBoxDlg>}, "cube"),
    Row(ID_SPHEROID, "&Spheroid...", "Create a sphere primtive", "Sphere",
        OfLevel{CreatePrimitive<CCreateSpheroidDlg>}, "spheroid"),
    Row(ID_CYLINDER, "C&ylinder...", "Create a Cylinder primitive", "cylinder",
        OfLevel{CreatePrimitive<CCreateCylinderDlg>}, "cylinder"),
    Row(ID_STAIRCASE, "S&taircase...", "Create a staircase primitive", "Staircase",
        OfLevel{CreatePrimitive<CCreateStaircaseDlg>}, "staircase"),
    Row(ID_ADD_TO_WORLD, "&Add to World", "Add the current brush to the world", "Add to World",
        OfLevel{Edit<AddToWorld>}, "add_to_world"),
    Row(ID_SUBTRACT_FROM_WORLD, "&Subtract From &World",
        "Subtract the current brush from the world", "Subtract From World",
        OfLevel{Edit<SubtractFromWorld>}, "subtract_from_world"),
    Row(ID_ADD_TO_GROUP, "&Add Selected To Group", "Add Selected brush to current group",
        "Add To Current Group", OfLevel{Edit<AddSelectedToGroup>, HasSelection}, "add_to_group"),
    Row(ID_REMOVE_FROM_GROUP, "&Remove Selected From Group", "Remove selected brushes from group",
        "Remove from group", OfLevel{Edit<RemoveSelectedFromGroup>, HasSelection},
        "remove_from_group"),
    Row(ID_CREATE_GROUP, "&Create New Group", "Create a New group from selected brushes",
        "Create Group", OfLevel{CreateGroup, HasSelection}, "create_group"),
    Row(ID_GROUP_EDITOR, "&Group Editor...", "Bring up the group attributes dialog",
        "Group Attributes", OfLevel{EditGroups}, "group_editor"),

    // Entities
    Row(ID_PLACE_LIGHT, "Place &Light", "Place a light entity into the world", "Place Light",
        OfLevel{Edit<PlaceLight>}, "place_light"),
    Row(ID_ENTITY_EDITOR, "&Entity Editor...", "Bring Up Entity editor Dialog", "Entity Dialog",
        OfLevel{EditEntities}, "entity_editor"),
    Row(ID_COPY_ENTITY, "&Copy Current", "Copy current entity", "CopyCurrent",
        OfLevel{Edit<CopyCurrentEntity>, HasCurrentEntity}, "copy_entity"),
    Row(ID_SHOW_ENTITIES, "&Show", "Show/Hide the entities", "Hide/Show Entities",
        OfLevel{Edit<ToggleShowEntities>, nullptr, ShowsEntities}, "show_entities"),
    Row(ID_HIDE_NON_LIGHTS, "&Hide non lights", "Show lights only", "Hide Non Lights", kNobody),

    // Axis
    Row(ID_AXIS_X, "&X", "Allow changes along the X axis", "X Axis", Axis<kAxisX>(), "axis_x", "X"),
    Row(ID_AXIS_Y, "&Y", "Allow changes along the Y axis", "Y Axis", Axis<kAxisY>(), "axis_y", "Y"),
    Row(ID_AXIS_Z, "&Z", "Allow changes along the Z axis", "Z Axis", Axis<kAxisZ>(), "axis_z", "Z"),

    // Window
    Row(ID_WINDOW_NEW, "&New Camera", "Open another view of the active level", "New Camera",
        OfFrame{Open<&CEditorApp::OpenView>, HasLevel}),
    Row(ID_WINDOW_CASCADE, "&Cascade", "Arrange the windows so that they overlap", "Cascade",
        OfFrame{Arrange<&CMainWindow::Cascade>, HasLevel}),
    Row(ID_WINDOW_TILE, "&Tile", "Arrange the windows side by side", "Tile",
        OfFrame{Arrange<&CMainWindow::Tile>, HasLevel}),
    Row(ID_WINDOW_ARRANGE, "&Arrange Icons", "Arrange the minimized windows", "Arrange Icons",
        OfFrame{Arrange<&CMainWindow::ArrangeIcons>, HasLevel}),
    Row(ID_NEXT_PANE, "Next Pane", "Go to the next pane of the window", "Next Pane", kNobody, "",
        "F6"),
    Row(ID_PREV_PANE, "Previous Pane", "Go to the previous pane of the window", "Previous Pane",
        kNobody, "", "Shift+F6"),

    // Help
    Row(ID_HELP_TOPICS, "&Help Topics", "List the topics of the help", "Help Topics", kNobody),
    Row(ID_HELP, "Help", "Show help for what is being done", "Help", kNobody, "", "F1"),
    Row(ID_CONTEXT_HELP, "Context Help", "Show help for a button, menu item or window", "Help",
        kNobody, "context_help", "Shift+F1"),
    Row(ID_APP_ABOUT, "&About ZANDO...", "Show the version of the program", "About",
        OfApplication{Do<&CEditorApp::ShowAbout>}, "about"),
};

constexpr std::size_t kKeyCount = [] {
  std::size_t count = 0;
  for (const CommandRow& row : kCommands) {
    for (const std::string_view keys : row.keys) count += keys.empty() ? 0 : 1;
  }
  return count;
}();

constexpr std::array<Accelerator, kKeyCount> kAccelerators = [] {
  std::array<Accelerator, kKeyCount> accelerators{};
  std::size_t next = 0;
  for (const CommandRow& row : kCommands) {
    for (const std::string_view keys : row.keys) {
      if (!keys.empty()) accelerators[next++] = {keys, row.id};
    }
  }
  return accelerators;
}();

}  // namespace

std::span<const CommandRow> CommandTable() { return kCommands; }
std::span<const Accelerator> Accelerators() { return kAccelerators; }

const CommandRow* FindCommand(CommandId id) {
  const auto found = std::find_if(kCommands.begin(), kCommands.end(),
                                  [id](const CommandRow& row) { return row.id == id; });
  return found == kCommands.end() ? nullptr : &*found;
}

}  // namespace zando
