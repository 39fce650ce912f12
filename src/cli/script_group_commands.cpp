#include <algorithm>
#include <array>

#include "cli/script_commands.h"
#include "document/group_edits.h"
#include "geometry/transform.h"

namespace zando {
namespace {

const CBGroup& GroupAt(const CScriptContext& context, std::int32_t index) {
  return context.document.GetLevel().Groups[static_cast<std::size_t>(index)];
}

void RequireSelection(const CZANDODoc& document) {
  if (!document.AnySelected()) throw CScriptError("nothing is selected");
}

/// A name that no group has yet.
const std::string& NewName(const CScriptContext& context, const std::string& name) {
  const CGroupList& groups = context.document.GetLevel().Groups;
  if (std::ranges::find(groups, CheckedText(name, "a group's name"), &CBGroup::gName) !=
      groups.end()) {
    throw CScriptError("there is a group '" + name + "' already");
  }
  return name;
}

/// The selection moves into the new group. Without one the group starts empty, ready for brushes
/// that are added while it is current.
void NewGroup(CScriptContext& context, CScriptArguments& arguments) {
  CZANDODoc& document = context.document;
  const std::string& name = NewName(context, arguments.Word());
  const CCompoundChange whole(document);
  if (document.AnySelected()) {
    CreateNewGroup(document);
  } else {
    CreateEmptyGroup(document);
  }
  GroupLook look = LookOf(document.GetLevel().Groups.back());
  look.name = name;
  SetGroupLook(document, document.State().CurrentGroup, look);
}

void Rename(CScriptContext& context, CScriptArguments& arguments) {
  const std::int32_t group = context.GroupIndex(arguments.Word());
  GroupLook look = LookOf(GroupAt(context, group));
  look.name = NewName(context, arguments.Word());
  SetGroupLook(context.document, group, look);
}

void Color(CScriptContext& context, CScriptArguments& arguments) {
  const std::int32_t group = context.GroupIndex(arguments.Word());
  GroupLook look = LookOf(GroupAt(context, group));
  look.color = arguments.Color();
  SetGroupLook(context.document, group, look);
}

void Visible(CScriptContext& context, CScriptArguments& arguments) {
  const std::int32_t group = context.GroupIndex(arguments.Word());
  GroupLook look = LookOf(GroupAt(context, group));
  look.visible = arguments.OnOff();
  SetGroupLook(context.document, group, look);
}

void Current(CScriptContext& context, CScriptArguments& arguments) {
  const std::string& name = arguments.Word();
  SetCurrentGroup(context.document, name == "none" ? -1 : context.GroupIndex(name));
}

void AddSelected(CScriptContext& context, CScriptArguments& /*arguments*/) {
  RequireSelection(context.document);
  AddSelectedToGroup(context.document);
}

void RemoveSelected(CScriptContext& context, CScriptArguments& /*arguments*/) {
  RequireSelection(context.document);
  RemoveSelectedFromGroup(context.document);
}

void Move(CScriptContext& context, CScriptArguments& arguments) {
  const std::int32_t group = context.GroupIndex(arguments.Word());
  MoveGroup(context.document, group, arguments.Numbers());
}

void TurnGroup(CScriptContext& context, CScriptArguments& arguments) {
  const std::int32_t group = context.GroupIndex(arguments.Word());
  const Vector degrees = arguments.Numbers();
  Transform rotation = Transform::Identity();
  rotation.Rotate(DegreesToUnits(degrees.x), DegreesToUnits(degrees.y), DegreesToUnits(degrees.z));
  TransformGroup(context.document, group, rotation);
}

void ResizeGroup(CScriptContext& context, CScriptArguments& arguments) {
  const std::int32_t group = context.GroupIndex(arguments.Word());
  const Vector factors = arguments.PositiveNumbers();
  Transform scale = Transform::Identity();
  scale.Scale(factors.x, factors.y, factors.z);
  TransformGroup(context.document, group, scale);
}

void ShearGroup(CScriptContext& context, CScriptArguments& arguments) {
  const std::int32_t group = context.GroupIndex(arguments.Word());
  const Vector factors = arguments.Numbers();
  Transform shear = Transform::Identity();
  shear.Shear(factors.x, factors.y, factors.z);
  TransformGroup(context.document, group, shear);
}

constexpr std::array kGroupCommands{
    ScriptCommand{"group new", "group new NAME", NewGroup},
    ScriptCommand{"group rename", "group rename NAME NEWNAME", Rename},
    ScriptCommand{"group color", "group color NAME RRGGBB", Color},
    ScriptCommand{"group visible", "group visible NAME on|off", Visible},
    ScriptCommand{"group current", "group current NAME|none", Current},
    ScriptCommand{"group add", "group add", AddSelected},
    ScriptCommand{"group remove", "group remove", RemoveSelected},
    ScriptCommand{"group move", "group move NAME X Y Z", Move},
    ScriptCommand{"group rotate", "group rotate NAME YAW PITCH ROLL", TurnGroup},
    ScriptCommand{"group scale", "group scale NAME X Y Z", ResizeGroup},
    ScriptCommand{"group shear", "group shear NAME A B C", ShearGroup},
};

}  // namespace

std::span<const ScriptCommand> GroupCommands() { return kGroupCommands; }

}  // namespace zando
