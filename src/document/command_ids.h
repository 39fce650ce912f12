#pragma once

#include "platform/command.h"

namespace zando {

/// Commands whose ids double as state of a document: the tool in use and the show filter.
inline constexpr CommandId ID_TOOL_CAMERA = 32776;
inline constexpr CommandId ID_TOOL_MOVE_ROTATE_BRUSH = 32784;
inline constexpr CommandId ID_TOOL_SCALE_BRUSH = 32785;
inline constexpr CommandId ID_TOOL_SHEAR_BRUSH = 32814;
inline constexpr CommandId ID_TOOL_MOVE_SELECT_ENTITY = 32823;
inline constexpr CommandId ID_TOOL_SELECT_GROUP = 32835;
inline constexpr CommandId ID_TOOL_SELECT_BRUSH = 32849;

inline constexpr CommandId ID_SHOW_ALL_BRUSHES = 32836;
inline constexpr CommandId ID_SHOW_VISIBLE_GROUPS = 32837;
inline constexpr CommandId ID_SHOW_CURRENT_GROUP = 32838;

/// The other commands of the menus, toolbars and accelerators.
inline constexpr CommandId ID_FILE_NEW = 57600;
inline constexpr CommandId ID_FILE_OPEN = 57601;
inline constexpr CommandId ID_FILE_CLOSE = 57602;
inline constexpr CommandId ID_FILE_SAVE = 57603;
inline constexpr CommandId ID_FILE_SAVE_AS = 57604;
inline constexpr CommandId ID_FILE_MRU_FIRST = 57616;  ///< recent files: four consecutive ids
inline constexpr CommandId ID_EDIT_COPY = 57634;
inline constexpr CommandId ID_EDIT_CUT = 57635;
inline constexpr CommandId ID_EDIT_PASTE = 57637;
inline constexpr CommandId ID_EDIT_UNDO = 57643;
inline constexpr CommandId ID_EDIT_REDO = 57644;
inline constexpr CommandId ID_WINDOW_NEW = 57648;
inline constexpr CommandId ID_WINDOW_ARRANGE = 57649;
inline constexpr CommandId ID_WINDOW_CASCADE = 57650;
inline constexpr CommandId ID_WINDOW_TILE = 57651;
inline constexpr CommandId ID_APP_ABOUT = 57664;
inline constexpr CommandId ID_APP_EXIT = 57665;
inline constexpr CommandId ID_HELP_TOPICS = 57667;
inline constexpr CommandId ID_CONTEXT_HELP = 57669;
inline constexpr CommandId ID_HELP = 57670;
inline constexpr CommandId ID_NEXT_PANE = 57680;
inline constexpr CommandId ID_PREV_PANE = 57681;
inline constexpr CommandId ID_VIEW_TOOLBAR = 59392;
inline constexpr CommandId ID_VIEW_STATUS_BAR = 59393;

inline constexpr CommandId ID_CUBE = 32771;
inline constexpr CommandId ID_SPHEROID = 32772;
inline constexpr CommandId ID_CYLINDER = 32773;
inline constexpr CommandId ID_ADD_TO_WORLD = 32774;
inline constexpr CommandId ID_SUBTRACT_FROM_WORLD = 32775;
inline constexpr CommandId ID_AXIS_X = 32781;
inline constexpr CommandId ID_AXIS_Y = 32782;
inline constexpr CommandId ID_AXIS_Z = 32783;
inline constexpr CommandId ID_RESET_BRUSH = 32786;
inline constexpr CommandId ID_ATTRIBUTES = 32791;
inline constexpr CommandId ID_SHOW_BRUSH = 32792;
inline constexpr CommandId ID_EXPORT_3DM = 32799;
inline constexpr CommandId ID_USE_GRID = 32801;
inline constexpr CommandId ID_GRID_SETTINGS = 32802;
inline constexpr CommandId ID_FOUR_VIEWS = 32812;
inline constexpr CommandId ID_BSP_MANAGER = 32813;
inline constexpr CommandId ID_EXPORT_MAP = 32816;
inline constexpr CommandId ID_PLACE_LIGHT = 32817;
inline constexpr CommandId ID_ENTITY_EDITOR = 32819;
inline constexpr CommandId ID_SHOW_ENTITIES = 32824;
inline constexpr CommandId ID_TEXTURES = 32826;
inline constexpr CommandId ID_ADD_TO_GROUP = 32832;
inline constexpr CommandId ID_CREATE_GROUP = 32833;
inline constexpr CommandId ID_GROUP_EDITOR = 32834;
inline constexpr CommandId ID_DELETE_BRUSH = 32850;
inline constexpr CommandId ID_NEXT_BRUSH = 32851;
inline constexpr CommandId ID_PREVIOUS_BRUSH = 32852;
inline constexpr CommandId ID_COPY_TO_CURRENT = 32853;
inline constexpr CommandId ID_STAIRCASE = 32856;
inline constexpr CommandId ID_ROTATE_90 = 32857;
inline constexpr CommandId ID_TEXTURE_BROWSER = 32859;
inline constexpr CommandId ID_MAP_SETTINGS = 32860;
inline constexpr CommandId ID_QUICK_BSP = 32861;
inline constexpr CommandId ID_COPY_ENTITY = 32862;
inline constexpr CommandId ID_HIDE_NON_LIGHTS = 32865;
inline constexpr CommandId ID_IMPORT_MAP = 32866;
inline constexpr CommandId ID_GROUP_MOVEMENT = 32870;
inline constexpr CommandId ID_REMOVE_FROM_GROUP = 32871;

}  // namespace zando
