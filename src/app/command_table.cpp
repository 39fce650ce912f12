#include "app/command_table.h"

#include <algorithm>
#include <array>

#include "document/command_ids.h"
#include "views/camera.h"

namespace zando {
namespace {

constexpr CommandId KindCommand(ViewKind kind) { return static_cast<CommandId>(kind); }

constexpr std::string_view kRecentText = "Recent File";
constexpr std::string_view kRecentPrompt = "Open this level";
constexpr std::string_view kRecentTip = "Open Recent";

constexpr std::array kCommands{
    // File
    CommandRow{ID_FILE_NEW, "&New", "Create a new level", "New", "file_new"},
    CommandRow{ID_FILE_OPEN, "&Open...", "Open an existing level", "Open", "file_open"},
    CommandRow{ID_FILE_CLOSE, "&Close", "Close the active level", "Close", ""},
    CommandRow{ID_FILE_SAVE, "&Save", "Save the active level", "Save", "file_save"},
    CommandRow{ID_FILE_SAVE_AS, "Save &As...", "Save the active level with a new name", "Save As",
               ""},
    CommandRow{ID_EXPORT_3DM, "&Export to 3DM...", "Export bsp geometry to a .3DM file",
               "Export to 3DM", ""},
    CommandRow{ID_EXPORT_MAP, "Export to &Quake (MAP) ...",
               "Export currently visible brushes to quake", "Export to MAP", ""},
    CommandRow{ID_IMPORT_MAP, "Import from Quake (MAP) ...",
               "Import brushes and entities from a quake map", "Import from MAP", ""},
    CommandRow{ID_MAP_SETTINGS, "&Map Settings...", "Choose the texture archive and the palette",
               "Map Settings", ""},
    CommandRow{ID_FILE_MRU_FIRST, kRecentText, kRecentPrompt, kRecentTip, ""},
    CommandRow{ID_FILE_MRU_FIRST + 1, kRecentText, kRecentPrompt, kRecentTip, ""},
    CommandRow{ID_FILE_MRU_FIRST + 2, kRecentText, kRecentPrompt, kRecentTip, ""},
    CommandRow{ID_FILE_MRU_FIRST + 3, kRecentText, kRecentPrompt, kRecentTip, ""},
    CommandRow{ID_APP_EXIT, "E&xit", "Quit ZANDO; asks to save changed levels", "Exit", ""},

    // Edit
    CommandRow{ID_EDIT_UNDO, "&Undo", "Undo the last change of the current brush", "Undo",
               "edit_undo"},
    CommandRow{ID_EDIT_REDO, "&Redo", "Redo the change that was undone", "Redo", "edit_redo"},
    CommandRow{ID_EDIT_CUT, "Cu&t", "Cut the selection and put it on the clipboard", "Cut",
               "edit_cut"},
    CommandRow{ID_EDIT_COPY, "&Copy", "Copy the selection and put it on the clipboard", "Copy",
               "edit_copy"},
    CommandRow{ID_EDIT_PASTE, "&Paste", "Insert the contents of the clipboard", "Paste",
               "edit_paste"},

    // View
    CommandRow{ID_TEXTURE_BROWSER, "Texture &Browser", "Show the textures of the archive",
               "Texture Browser", ""},
    CommandRow{ID_FOUR_VIEWS, "&4 Views", "Show the level from the side, the top, the front and 3D",
               "4 Views", ""},
    CommandRow{ID_VIEW_TOOLBAR, "&Toolbar", "Show or hide the toolbars", "Toolbar", ""},
    CommandRow{ID_VIEW_STATUS_BAR, "&Status Bar", "Show or hide the status bar", "Status Bar", ""},
    CommandRow{KindCommand(ViewKind::Wireframe), "3D Wireframe",
               "Show the level in perspective as outlines", "3D Wireframe", ""},
    CommandRow{KindCommand(ViewKind::Solid), "Solid &Render",
               "Show the level in perspective with solid faces", "Solid Render", ""},
    CommandRow{KindCommand(ViewKind::Top), "To&p View", "Show the level from above", "Top View",
               ""},
    CommandRow{KindCommand(ViewKind::Side), "Side &View", "Show the level from the side",
               "Side View", ""},
    CommandRow{KindCommand(ViewKind::Front), "&Front View", "Show the level from the front",
               "Front View", ""},
    CommandRow{KindCommand(ViewKind::Texture), "Te&xture View",
               "Show the level in perspective with its textures", "Texture View", ""},

    // View / Show
    CommandRow{ID_SHOW_CURRENT_GROUP, "&Current Group",
               "Show only the brushes of the current group", "Show Current Group",
               "show_current_group"},
    CommandRow{ID_SHOW_VISIBLE_GROUPS, "&Visible Brush Groups",
               "Show only the brushes of visible groups", "Show Visible Groups",
               "show_visible_groups"},
    CommandRow{ID_SHOW_ALL_BRUSHES, "&All Brushes", "Show all brushes", "Show All Brushes",
               "show_all"},

    // View / Tools
    CommandRow{ID_TOOL_CAMERA, "&Camera", "Move the camera of a view with the mouse", "Camera",
               "tool_camera"},
    CommandRow{ID_SHOW_BRUSH, "Show &Brush", "Show or hide the current brush", "Show Brush",
               "show_brush"},
    CommandRow{ID_TOOL_MOVE_ROTATE_BRUSH, "&Move/Rotate Brush",
               "Move or rotate the current brush with the mouse", "Move/Rotate Brush", "tool_move"},
    CommandRow{ID_TOOL_SCALE_BRUSH, "&Scale Brush", "Scale the current brush with the mouse",
               "Scale Brush", "tool_scale"},
    CommandRow{ID_TOOL_SHEAR_BRUSH, "S&hear Brush", "Shear the current brush with the mouse",
               "Shear Brush", "tool_shear"},
    CommandRow{ID_ROTATE_90, "Rotate &90", "Rotate the current brush by 90 degrees", "Rotate 90",
               "rotate_90"},
    CommandRow{ID_RESET_BRUSH, "&Reset Brush",
               "Take back rotation, scale and shear of the current brush", "Reset Brush",
               "reset_brush"},
    CommandRow{ID_TOOL_MOVE_SELECT_ENTITY, "&Move/Select Entity",
               "Move or select an entity with the mouse", "Move/Select Entity", "move_entity"},
    CommandRow{ID_ATTRIBUTES, "&Attributes", "Edit the attributes of the current brush",
               "Brush Attributes", "attributes"},
    CommandRow{ID_TEXTURES, "Textures", "Textures of the current brush", "Textures", ""},
    CommandRow{ID_GROUP_MOVEMENT, "Group Movement Mode",
               "Let the brush tools act on all brushes of the current group", "Group Movement Mode",
               "group_movement"},
    CommandRow{ID_USE_GRID, "&Use Grid", "Snap positions to the grid", "Use Grid", "use_grid"},
    CommandRow{ID_GRID_SETTINGS, "&Grid Settings...", "Change the grid and the rotation snap",
               "Grid Settings", "grid_settings"},
    CommandRow{ID_BSP_MANAGER, "&Bsp Manager...", "Bring up bsp manager", "Bsp Manager", ""},
    CommandRow{ID_QUICK_BSP, "Quick Bsp", "Do a quick BSP rebuild with no water brushes",
               "Do a quick BSP rebuild with no water brushes", "quick_bsp"},

    // Brush
    CommandRow{ID_TOOL_SELECT_BRUSH, "&Select Brush", "Pick a brush of the level with the mouse",
               "Select Brush", "select_brush"},
    CommandRow{ID_TOOL_SELECT_GROUP, "Select/&Deselect Group",
               "Select or deselect brushes and entities with a box", "Select/Deselect Group",
               "select_group"},
    CommandRow{ID_DELETE_BRUSH, "&Delete", "Delete the selected brush", "Delete Brush", ""},
    CommandRow{ID_NEXT_BRUSH, "&Next in order", "Select the next brush of the level", "Next Brush",
               ""},
    CommandRow{ID_PREVIOUS_BRUSH, "&Previous in order", "Select the previous brush of the level",
               "Previous Brush", ""},
    CommandRow{ID_COPY_TO_CURRENT, "&Copy to Current",
               "Copy the selected brush to the working brush", "Copy to Current", ""},
    CommandRow{ID_CUBE, "&Cube...", "Create a cube primitive", "Cube ", "cube"},
    CommandRow{ID_SPHEROID, "&Spheroid...", "Create a sphere primtive", "Sphere", "spheroid"},
    CommandRow{ID_CYLINDER, "C&ylinder...", "Create a Cylinder primitive", "cylinder", "cylinder"},
    CommandRow{ID_STAIRCASE, "S&taircase...", "Create a staircase primitive", "Staircase",
               "staircase"},
    CommandRow{ID_ADD_TO_WORLD, "&Add to World", "Add the current brush to the world",
               "Add to World", "add_to_world"},
    CommandRow{ID_SUBTRACT_FROM_WORLD, "&Subtract From &World",
               "Subtract the current brush from the world", "Subtract From World",
               "subtract_from_world"},
    CommandRow{ID_ADD_TO_GROUP, "&Add Selected To Group", "Add Selected brush to current group",
               "Add To Current Group", "add_to_group"},
    CommandRow{ID_REMOVE_FROM_GROUP, "&Remove Selected From Group",
               "Remove selected brushes from group", "Remove from group", "remove_from_group"},
    CommandRow{ID_CREATE_GROUP, "&Create New Group", "Create a New group from selected brushes",
               "Create Group", "create_group"},
    CommandRow{ID_GROUP_EDITOR, "&Group Editor...", "Bring up the group attributes dialog",
               "Group Attributes", "group_editor"},

    // Entities
    CommandRow{ID_PLACE_LIGHT, "Place &Light", "Place a light entity into the world", "Place Light",
               "place_light"},
    CommandRow{ID_ENTITY_EDITOR, "&Entity Editor...", "Bring Up Entity editor Dialog",
               "Entity Dialog", "entity_editor"},
    CommandRow{ID_COPY_ENTITY, "&Copy Current", "Copy current entity", "CopyCurrent",
               "copy_entity"},
    CommandRow{ID_SHOW_ENTITIES, "&Show", "Show/Hide the entities", "Hide/Show Entities",
               "show_entities"},
    CommandRow{ID_HIDE_NON_LIGHTS, "&Hide non lights", "Show lights only", "Hide Non Lights", ""},

    // Axis
    CommandRow{ID_AXIS_X, "&X", "Allow changes along the X axis", "X Axis", "axis_x"},
    CommandRow{ID_AXIS_Y, "&Y", "Allow changes along the Y axis", "Y Axis", "axis_y"},
    CommandRow{ID_AXIS_Z, "&Z", "Allow changes along the Z axis", "Z Axis", "axis_z"},

    // Window
    CommandRow{ID_WINDOW_NEW, "&New Camera", "Open another view of the active level", "New Camera",
               ""},
    CommandRow{ID_WINDOW_CASCADE, "&Cascade", "Arrange the windows so that they overlap", "Cascade",
               ""},
    CommandRow{ID_WINDOW_TILE, "&Tile", "Arrange the windows side by side", "Tile", ""},
    CommandRow{ID_WINDOW_ARRANGE, "&Arrange Icons", "Arrange the minimized windows",
               "Arrange Icons", ""},
    CommandRow{ID_NEXT_PANE, "Next Pane", "Go to the next pane of the window", "Next Pane", ""},
    CommandRow{ID_PREV_PANE, "Previous Pane", "Go to the previous pane of the window",
               "Previous Pane", ""},

    // Help
    CommandRow{ID_HELP_TOPICS, "&Help Topics", "List the topics of the help", "Help Topics", ""},
    CommandRow{ID_HELP, "Help", "Show help for what is being done", "Help", ""},
    CommandRow{ID_CONTEXT_HELP, "Context Help", "Show help for a button, menu item or window",
               "Help", "context_help"},
    CommandRow{ID_APP_ABOUT, "&About ZANDO...", "Show the version of the program", "About",
               "about"},
};

}  // namespace

std::span<const CommandRow> CommandTable() { return kCommands; }

const CommandRow* FindCommand(CommandId id) {
  const auto found = std::find_if(kCommands.begin(), kCommands.end(),
                                  [id](const CommandRow& row) { return row.id == id; });
  return found == kCommands.end() ? nullptr : &*found;
}

}  // namespace zando
