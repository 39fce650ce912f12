#pragma once

#include <array>
#include <string_view>

#include "platform/command.h"

namespace zando::testing {

/// What menus, toolbars and keys hold, as it was given: texts, numbers and order, written out apart
/// from the table that the editor is built from.

/// A line of a menu, with its first key after a tab; separators and recent files are left out.
struct GivenLine {
  int depth;
  std::string_view text;
  CommandId id;  ///< 0 of a submenu
};

struct GivenKey {
  std::string_view keys;
  CommandId id;
};

struct GivenPrompt {
  CommandId id;
  std::string_view prompt;
  std::string_view tip;  ///< empty where none was given
};

// clang-format off
inline constexpr auto kGivenEmptyMenu = std::to_array<GivenLine>({
    {0, "&File", 0}, {1, "&New\tCtrl+N", 57600}, {1, "&Open...\tCtrl+O", 57601},
    {1, "E&xit", 57665},
    {0, "&View", 0}, {1, "&Toolbar", 59392}, {1, "&Status Bar", 59393},
    {0, "&Help", 0}, {1, "&Help Topics", 57667}, {1, "&About ZANDO...", 57664},
});

inline constexpr auto kGivenDocumentMenu = std::to_array<GivenLine>({
    {0, "&File", 0}, {1, "&New\tCtrl+N", 57600}, {1, "&Open...\tCtrl+O", 57601},
    {1, "&Close", 57602}, {1, "&Save\tCtrl+S", 57603}, {1, "Save &As...", 57604},
    {1, "&Export to 3DM...", 32799}, {1, "Export to &Quake (MAP) ...", 32816},
    {1, "Import from Quake (MAP) ...", 32866}, {1, "&Map Settings...", 32860}, {1, "E&xit", 57665},
    {0, "&Edit", 0}, {1, "&Undo\tCtrl+Z", 57643}, {1, "&Redo\tAlt+Z", 57644},
    {1, "Cu&t\tCtrl+X", 57635}, {1, "&Copy\tCtrl+C", 57634}, {1, "&Paste\tCtrl+V", 57637},
    {0, "&View", 0}, {1, "Texture &Browser", 32859}, {1, "&4 Views", 32812}, {1, "&Toolbar", 59392},
    {1, "&Status Bar", 59393}, {1, "3D Wireframe", 32806}, {1, "Solid &Render", 32807},
    {1, "To&p View", 32808}, {1, "Side &View", 32809}, {1, "&Front View", 32810},
    {1, "Te&xture View", 32811}, {1, "Sho&w", 0}, {2, "&Current Group", 32838},
    {2, "&Visible Brush Groups", 32837}, {2, "&All Brushes", 32836}, {1, "&Tools", 0},
    {2, "&Camera", 32776}, {2, "&Brush", 0}, {3, "Show &Brush", 32792},
    {3, "&Move/Rotate Brush", 32784}, {3, "&Scale Brush", 32785}, {3, "S&hear Brush", 32814},
    {3, "Rotate &90", 32857}, {3, "&Reset Brush", 32786}, {2, "&Move/Select Entity", 32823},
    {2, "&Attributes", 32791}, {2, "Textures", 32826}, {2, "Group Movement Mode\tG", 32870},
    {2, "&Use Grid", 32801}, {2, "&Grid Settings...", 32802}, {2, "&Bsp Manager...", 32813},
    {0, "&Brush", 0}, {1, "&Select Brush", 32849}, {1, "Select/&Deselect Group", 32835},
    {1, "Se&lected", 0}, {2, "&Delete", 32850}, {2, "&Next in order", 32851},
    {2, "&Previous in order", 32852}, {2, "&Copy to Current", 32853}, {1, "&Primitives", 0},
    {2, "&Cube...", 32771}, {2, "&Spheroid...", 32772}, {2, "C&ylinder...", 32773},
    {2, "S&taircase...", 32856}, {1, "&Add to World", 32774}, {1, "&Subtract From &World", 32775},
    {1, "&Add Selected To Group", 32832}, {1, "&Remove Selected From Group", 32871},
    {1, "&Create New Group", 32833}, {1, "&Group Editor...", 32834},
    {0, "&Entities", 0}, {1, "Place &Light", 32817}, {1, "&Entity Editor...", 32819},
    {1, "&Copy Current", 32862}, {1, "&Show", 32824}, {1, "&Hide non lights", 32865},
    {0, "&Axis", 0}, {1, "&X\tX", 32781}, {1, "&Y\tY", 32782}, {1, "&Z\tZ", 32783},
    {0, "&Window", 0}, {1, "&New Camera", 57648}, {1, "&Cascade", 57650}, {1, "&Tile", 57651},
    {1, "&Arrange Icons", 57649},
    {0, "&Help", 0}, {1, "&Help Topics", 57667}, {1, "&About ZANDO...", 57664},
});

/// 0 is a separator.
inline constexpr auto kGivenMainToolbar = std::to_array<CommandId>({
        57600, 57601, 57603, 0, 57635, 57634, 57637, 0, 32861, 57664, 57669, 32781, 32782,
    32783, 0, 32801, 32802, 0, 32823, 32862, 32819, 32824, 32817, 0, 32836, 32837, 32838,
});
inline constexpr auto kGivenSecondToolbar = std::to_array<CommandId>({
        32776, 32784, 32785, 32814, 32857, 32870, 0, 32849, 32791, 32786, 32792, 0, 32774,
    32775, 0, 32771, 32772, 32773, 32856, 0, 32835, 32832, 32871, 32833, 32834,
});

inline constexpr auto kGivenKeys = std::to_array<GivenKey>({
    {"Ctrl+N", 57600}, {"Ctrl+O", 57601}, {"Ctrl+S", 57603}, {"Ctrl+Z", 57643},
    {"Alt+Backspace", 57643}, {"Alt+Z", 57644}, {"Ctrl+X", 57635}, {"Shift+Delete", 57635},
    {"Ctrl+C", 57634}, {"Ctrl+Insert", 57634}, {"Ctrl+V", 57637}, {"Shift+Insert", 57637},
    {"G", 32870}, {"X", 32781}, {"Y", 32782}, {"Z", 32783}, {"F6", 57680}, {"Shift+F6", 57681},
    {"F1", 57670}, {"Shift+F1", 57669},
});

inline constexpr auto kGivenPrompts = std::to_array<GivenPrompt>({
    {32771, "Create a cube primitive", "Cube "},
    {32772, "Create a sphere primtive", "Sphere"},
    {32773, "Create a Cylinder primitive", "cylinder"},
    {32832, "Add Selected brush to current group", "Add To Current Group"},
    {32871, "Remove selected brushes from group", "Remove from group"},
    {32833, "Create a New group from selected brushes", "Create Group"},
    {32834, "Bring up the group attributes dialog", "Group Attributes"},
    {32817, "Place a light entity into the world", "Place Light"},
    {32819, "Bring Up Entity editor Dialog", "Entity Dialog"},
    {32862, "Copy current entity", "CopyCurrent"},
    {32824, "Show/Hide the entities", "Hide/Show Entities"},
    {32813, "Bring up bsp manager", ""},
    {32816, "Export currently visible brushes to quake", ""},
    {32799, "Export bsp geometry to a .3DM file", ""},
    {32861, "Do a quick BSP rebuild with no water brushes",
     "Do a quick BSP rebuild with no water brushes"},
});
// clang-format on

}  // namespace zando::testing
