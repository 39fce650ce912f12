// Menus and toolbars: where the commands of the table are found.
#include <array>

#include "app/command_table.h"
#include "document/command_ids.h"
#include "views/camera.h"

namespace zando {
namespace {

constexpr MenuLine Submenu(std::int32_t depth, std::string_view text) {
  return {MenuLine::Kind::Submenu, depth, 0, text};
}
constexpr MenuLine Item(std::int32_t depth, CommandId id) {
  return {MenuLine::Kind::Command, depth, id, {}};
}
constexpr MenuLine Item(std::int32_t depth, ViewKind kind) {
  return Item(depth, static_cast<CommandId>(kind));
}
constexpr MenuLine Separator(std::int32_t depth) {
  return {MenuLine::Kind::Separator, depth, 0, {}};
}
constexpr MenuLine RecentFiles(std::int32_t depth) {
  return {MenuLine::Kind::RecentFiles, depth, 0, {}};
}
constexpr MenuLine OpenWindows(std::int32_t depth) {
  return {MenuLine::Kind::OpenWindows, depth, 0, {}};
}

constexpr std::array kEmptyMenu{
    Submenu(0, "&File"),
    Item(1, ID_FILE_NEW),
    Item(1, ID_FILE_OPEN),
    Separator(1),
    RecentFiles(1),
    Separator(1),
    Item(1, ID_APP_EXIT),
    Submenu(0, "&View"),
    Item(1, ID_VIEW_TOOLBAR),
    Item(1, ID_VIEW_STATUS_BAR),
    Submenu(0, "&Help"),
    Item(1, ID_HELP_TOPICS),
    Separator(1),
    Item(1, ID_APP_ABOUT),
};

constexpr std::array kDocumentMenu{
    Submenu(0, "&File"),
    Item(1, ID_FILE_NEW),
    Item(1, ID_FILE_OPEN),
    Item(1, ID_FILE_CLOSE),
    Item(1, ID_FILE_SAVE),
    Item(1, ID_FILE_SAVE_AS),
    Separator(1),
    Item(1, ID_EXPORT_3DM),
    Separator(1),
    Item(1, ID_EXPORT_MAP),
    Item(1, ID_IMPORT_MAP),
    Separator(1),
    Item(1, ID_MAP_SETTINGS),
    Separator(1),
    RecentFiles(1),
    Separator(1),
    Item(1, ID_APP_EXIT),

    Submenu(0, "&Edit"),
    Item(1, ID_EDIT_UNDO),
    Item(1, ID_EDIT_REDO),
    Separator(1),
    Item(1, ID_EDIT_CUT),
    Item(1, ID_EDIT_COPY),
    Item(1, ID_EDIT_PASTE),

    Submenu(0, "&View"),
    Item(1, ID_TEXTURE_BROWSER),
    Item(1, ID_FOUR_VIEWS),
    Separator(1),
    Item(1, ID_VIEW_TOOLBAR),
    Item(1, ID_VIEW_STATUS_BAR),
    Separator(1),
    Item(1, ViewKind::Wireframe),
    Item(1, ViewKind::Solid),
    Item(1, ViewKind::Top),
    Item(1, ViewKind::Side),
    Item(1, ViewKind::Front),
    Item(1, ViewKind::Texture),
    Separator(1),
    Submenu(1, "Sho&w"),
    Item(2, ID_SHOW_CURRENT_GROUP),
    Item(2, ID_SHOW_VISIBLE_GROUPS),
    Item(2, ID_SHOW_ALL_BRUSHES),
    Submenu(1, "&Tools"),
    Item(2, ID_TOOL_CAMERA),
    Submenu(2, "&Brush"),
    Item(3, ID_SHOW_BRUSH),
    Item(3, ID_TOOL_MOVE_ROTATE_BRUSH),
    Item(3, ID_TOOL_SCALE_BRUSH),
    Item(3, ID_TOOL_SHEAR_BRUSH),
    Item(3, ID_ROTATE_90),
    Item(3, ID_RESET_BRUSH),
    Item(2, ID_TOOL_MOVE_SELECT_ENTITY),
    Separator(2),
    Item(2, ID_ATTRIBUTES),
    Separator(2),
    Item(2, ID_TEXTURES),
    Separator(2),
    Item(2, ID_GROUP_MOVEMENT),
    Item(2, ID_USE_GRID),
    Separator(2),
    Item(2, ID_GRID_SETTINGS),
    Separator(2),
    Item(2, ID_BSP_MANAGER),

    Submenu(0, "&Brush"),
    Item(1, ID_TOOL_SELECT_BRUSH),
    Item(1, ID_TOOL_SELECT_GROUP),
    Separator(1),
    Submenu(1, "Se&lected"),
    Item(2, ID_DELETE_BRUSH),
    Item(2, ID_NEXT_BRUSH),
    Item(2, ID_PREVIOUS_BRUSH),
    Item(2, ID_COPY_TO_CURRENT),
    Submenu(1, "&Primitives"),
    Item(2, ID_CUBE),
    Item(2, ID_SPHEROID),
    Item(2, ID_CYLINDER),
    Item(2, ID_STAIRCASE),
    Separator(1),
    Item(1, ID_ADD_TO_WORLD),
    Item(1, ID_SUBTRACT_FROM_WORLD),
    Separator(1),
    Item(1, ID_ADD_TO_GROUP),
    Item(1, ID_REMOVE_FROM_GROUP),
    Item(1, ID_CREATE_GROUP),
    Item(1, ID_GROUP_EDITOR),

    Submenu(0, "&Entities"),
    Item(1, ID_PLACE_LIGHT),
    Item(1, ID_ENTITY_EDITOR),
    Item(1, ID_COPY_ENTITY),
    Item(1, ID_SHOW_ENTITIES),
    Separator(1),
    Item(1, ID_HIDE_NON_LIGHTS),

    Submenu(0, "&Axis"),
    Item(1, ID_AXIS_X),
    Item(1, ID_AXIS_Y),
    Item(1, ID_AXIS_Z),

    Submenu(0, "&Window"),
    Item(1, ID_WINDOW_NEW),
    Item(1, ID_WINDOW_CASCADE),
    Item(1, ID_WINDOW_TILE),
    Item(1, ID_WINDOW_ARRANGE),
    Separator(1),
    OpenWindows(1),

    Submenu(0, "&Help"),
    Item(1, ID_HELP_TOPICS),
    Separator(1),
    Item(1, ID_APP_ABOUT),
};

// clang-format off
constexpr auto kMainToolbar = std::to_array<CommandId>({
    ID_FILE_NEW, ID_FILE_OPEN, ID_FILE_SAVE, 0,
    ID_EDIT_CUT, ID_EDIT_COPY, ID_EDIT_PASTE, 0,
    ID_QUICK_BSP, ID_APP_ABOUT, ID_CONTEXT_HELP, ID_AXIS_X, ID_AXIS_Y, ID_AXIS_Z, 0,
    ID_USE_GRID, ID_GRID_SETTINGS, 0,
    ID_TOOL_MOVE_SELECT_ENTITY, ID_COPY_ENTITY, ID_ENTITY_EDITOR, ID_SHOW_ENTITIES,
    ID_PLACE_LIGHT, 0,
    ID_SHOW_ALL_BRUSHES, ID_SHOW_VISIBLE_GROUPS, ID_SHOW_CURRENT_GROUP,
});

constexpr auto kSecondToolbar = std::to_array<CommandId>({
    ID_TOOL_CAMERA, ID_TOOL_MOVE_ROTATE_BRUSH, ID_TOOL_SCALE_BRUSH, ID_TOOL_SHEAR_BRUSH,
    ID_ROTATE_90, ID_GROUP_MOVEMENT, 0,
    ID_TOOL_SELECT_BRUSH, ID_ATTRIBUTES, ID_RESET_BRUSH, ID_SHOW_BRUSH, 0,
    ID_ADD_TO_WORLD, ID_SUBTRACT_FROM_WORLD, 0,
    ID_CUBE, ID_SPHEROID, ID_CYLINDER, ID_STAIRCASE, 0,
    ID_TOOL_SELECT_GROUP, ID_ADD_TO_GROUP, ID_REMOVE_FROM_GROUP, ID_CREATE_GROUP,
    ID_GROUP_EDITOR,
});
// clang-format on

}  // namespace

std::span<const MenuLine> EmptyMenu() { return kEmptyMenu; }
std::span<const MenuLine> DocumentMenu() { return kDocumentMenu; }
std::span<const CommandId> MainToolbar() { return kMainToolbar; }
std::span<const CommandId> SecondToolbar() { return kSecondToolbar; }

}  // namespace zando
