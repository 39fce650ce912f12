#include <array>

#include "cli/script_commands.h"
#include "geometry/transform.h"

namespace zando {
namespace {

void RefreshGroups(CScriptContext& context) {
  context.document.RefreshColors();
  context.Changed();
}

void RequireSelection(const CZANDODoc& document) {
  if (!document.AnySelected()) throw CScriptError("nothing is selected");
}

/// The selection moves into the new group. Without one the group starts empty, ready for brushes
/// that are added while it is current.
void New(CScriptContext& context, CScriptArguments& arguments) {
  CZANDODoc& document = context.document;
  const std::string& name = CheckedText(arguments.Word(), "a group's name");
  for (const CBGroup& group : document.Groups) {
    if (group.gName == name) throw CScriptError("there is a group '" + name + "' already");
  }
  if (document.AnySelected()) {
    document.CreateNewGroup();
  } else {
    document.Groups.emplace_back();
    document.CurrentGroup = static_cast<std::int32_t>(document.Groups.size()) - 1;
  }
  document.Groups.back().gName = name;
  RefreshGroups(context);
}

void Color(CScriptContext& context, CScriptArguments& arguments) {
  CBGroup& group = context.Group(arguments.Word());
  group.gCol = arguments.Color();
  RefreshGroups(context);
}

void Visible(CScriptContext& context, CScriptArguments& arguments) {
  CBGroup& group = context.Group(arguments.Word());
  group.gVis = arguments.OnOff() ? 1 : 0;
  RefreshGroups(context);
}

void Current(CScriptContext& context, CScriptArguments& arguments) {
  const std::string& name = arguments.Word();
  context.document.CurrentGroup = name == "none" ? -1 : context.GroupIndex(name);
  RefreshGroups(context);
}

void AddSelected(CScriptContext& context, CScriptArguments& /*arguments*/) {
  RequireSelection(context.document);
  context.document.AddSelectedToGroup();
}

void RemoveSelected(CScriptContext& context, CScriptArguments& /*arguments*/) {
  RequireSelection(context.document);
  context.document.RemoveSelectedFromGroup();
}

void Move(CScriptContext& context, CScriptArguments& arguments) {
  const std::int32_t index = context.GroupIndex(arguments.Word());
  const Vector offset = arguments.Numbers();
  for (const auto& brush : context.document.BrushList.Brushes()) {
    if (brush->BGroup == index) brush->MoveTo(brush->Pos[kOwnSlot] + offset);
  }
  context.Changed();
}

/// The pivot is the mean of the brushes' origins, as they lie now.
void ApplyAboutCentre(CScriptContext& context, std::int32_t index, const Transform& operation) {
  CZANDODoc& document = context.document;
  CBGroup& group = document.Groups[static_cast<std::size_t>(index)];
  group.ComputeCentre(document.BrushList.Head(), index);
  for (const auto& brush : document.BrushList.Brushes()) {
    if (brush->BGroup != index) continue;
    brush->BeginGroupOperation(group.Centre);
    brush->EndGroupOperation(operation);
  }
  context.Changed();
}

void Rotate(CScriptContext& context, CScriptArguments& arguments) {
  const std::int32_t index = context.GroupIndex(arguments.Word());
  const Vector degrees = arguments.Numbers();
  Transform rotation = Transform::Identity();
  rotation.Rotate(DegreesToUnits(degrees.x), DegreesToUnits(degrees.y), DegreesToUnits(degrees.z));
  ApplyAboutCentre(context, index, rotation);
}

void Scale(CScriptContext& context, CScriptArguments& arguments) {
  const std::int32_t index = context.GroupIndex(arguments.Word());
  const Vector factors = arguments.PositiveNumbers();
  Transform scale = Transform::Identity();
  scale.Scale(factors.x, factors.y, factors.z);
  ApplyAboutCentre(context, index, scale);
}

constexpr std::array kCommands{
    ScriptCommand{"group new", "group new NAME", New},
    ScriptCommand{"group color", "group color NAME RRGGBB", Color},
    ScriptCommand{"group visible", "group visible NAME on|off", Visible},
    ScriptCommand{"group current", "group current NAME|none", Current},
    ScriptCommand{"group add", "group add", AddSelected},
    ScriptCommand{"group remove", "group remove", RemoveSelected},
    ScriptCommand{"group move", "group move NAME X Y Z", Move},
    ScriptCommand{"group rotate", "group rotate NAME YAW PITCH ROLL", Rotate},
    ScriptCommand{"group scale", "group scale NAME X Y Z", Scale},
};

}  // namespace

std::span<const ScriptCommand> GroupCommands() { return kCommands; }

}  // namespace zando
