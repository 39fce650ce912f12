#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace zando::testing {

/// What menus, toolbars and keys are to be, written out once more and without the program's own
/// names, so that a slip in its tables is seen. The lines of a menu, with a bar behind each: '>'
/// for each menu that it is in, its number, its text.
inline constexpr std::string_view kGivenEmptyMenu =
    "&File|>57600 &New|>57601 &Open...|>-|>recent files|>-|>57665 E&xit|"
    "&View|>59392 &Toolbar|>59393 &Status Bar|"
    "&Help|>57667 &Help Topics|>-|>57664 &About ZANDO...|";

inline constexpr std::string_view kGivenDocumentMenu =
    "&File|>57600 &New|>57601 &Open...|>57602 &Close|>57603 &Save|>57604 Save &As...|>-|"
    ">32799 &Export to 3DM...|>-|>32816 Export to &Quake (MAP) ...|"
    ">32866 Import from Quake (MAP) ...|>-|>32860 &Map Settings...|>-|>recent files|>-|"
    ">57665 E&xit|"
    "&Edit|>57643 &Undo|>57644 &Redo|>-|>57635 Cu&t|>57634 &Copy|>57637 &Paste|"
    "&View|>32859 Texture &Browser|>32812 &4 Views|>-|>59392 &Toolbar|>59393 &Status Bar|>-|"
    ">32806 3D Wireframe|>32807 Solid &Render|>32808 To&p View|>32809 Side &View|"
    ">32810 &Front View|>32811 Te&xture View|>-|>Sho&w|>>32838 &Current Group|"
    ">>32837 &Visible Brush Groups|>>32836 &All Brushes|>&Tools|>>32776 &Camera|>>&Brush|"
    ">>>32792 Show &Brush|>>>32784 &Move/Rotate Brush|>>>32785 &Scale Brush|"
    ">>>32814 S&hear Brush|>>>32857 Rotate &90|>>>32786 &Reset Brush|>>32823 &Move/Select Entity|"
    ">>-|>>32791 &Attributes|>>-|>>32826 Textures|>>-|>>32870 Group Movement Mode|"
    ">>32801 &Use Grid|>>-|>>32802 &Grid Settings...|>>-|>>32813 &Bsp Manager...|"
    "&Brush|>32849 &Select Brush|>32835 Select/&Deselect Group|>-|>Se&lected|>>32850 &Delete|"
    ">>32851 &Next in order|>>32852 &Previous in order|>>32853 &Copy to Current|>&Primitives|"
    ">>32771 &Cube...|>>32772 &Spheroid...|>>32773 C&ylinder...|>>32856 S&taircase...|>-|"
    ">32774 &Add to World|>32775 &Subtract From &World|>-|>32832 &Add Selected To Group|"
    ">32871 &Remove Selected From Group|>32833 &Create New Group|>32834 &Group Editor...|"
    "&Entities|>32817 Place &Light|>32819 &Entity Editor...|>32862 &Copy Current|>32824 &Show|>-|"
    ">32865 &Hide non lights|"
    "&Axis|>32781 &X|>32782 &Y|>32783 &Z|"
    "&Window|>57648 &New Camera|>57650 &Cascade|>57651 &Tile|>57649 &Arrange Icons|>-|"
    ">open windows|"
    "&Help|>57667 &Help Topics|>-|>57664 &About ZANDO...|";

/// Buttons from left to right; 0 is a gap.
inline constexpr auto kGivenMainToolbar = std::to_array<std::int32_t>(
    {57600, 57601, 57603, 0, 57635, 57634, 57637, 0,     32861, 57664, 57669, 32781, 32782, 32783,
     0,     32801, 32802, 0, 32823, 32862, 32819, 32824, 32817, 0,     32836, 32837, 32838});
inline constexpr auto kGivenSecondToolbar = std::to_array<std::int32_t>(
    {32776, 32784, 32785, 32814, 32857, 32870, 0, 32849, 32791, 32786, 32792, 0,    32774,
     32775, 0,     32771, 32772, 32773, 32856, 0, 32835, 32832, 32871, 32833, 32834});

/// Keys and the numbers of their commands; the first of a command stands in its menu line.
inline constexpr std::string_view kGivenKeys =
    "Ctrl+N 57600|Ctrl+O 57601|Ctrl+S 57603|Ctrl+Z 57643|Alt+Backspace 57643|Alt+Z 57644|"
    "Ctrl+X 57635|Shift+Delete 57635|Ctrl+C 57634|Ctrl+Insert 57634|Ctrl+V 57637|"
    "Shift+Insert 57637|X 32781|Y 32782|Z 32783|G 32870|F1 57670|Shift+F1 57669|F6 57680|"
    "Shift+F6 57681|";

/// The prompts and tips that are laid down.
struct GivenTip {
  std::int32_t id;
  std::string_view prompt;
  std::string_view tip;
};
inline constexpr auto kGivenTips = std::to_array<GivenTip>({
    {32817, "Place a light entity into the world", "Place Light"},
    {32862, "Copy current entity", "CopyCurrent"},
    {32819, "Bring Up Entity editor Dialog", "Entity Dialog"},
    {32824, "Show/Hide the entities", "Hide/Show Entities"},
    {32833, "Create a New group from selected brushes", "Create Group"},
    {32832, "Add Selected brush to current group", "Add To Current Group"},
    {32871, "Remove selected brushes from group", "Remove from group"},
    {32834, "Bring up the group attributes dialog", "Group Attributes"},
    {32771, "Create a cube primitive", "Cube "},
    {32772, "Create a sphere primtive", "Sphere"},
    {32773, "Create a Cylinder primitive", "cylinder"},
    {32861, "Do a quick BSP rebuild with no water brushes",
     "Do a quick BSP rebuild with no water brushes"},
});

}  // namespace zando::testing
