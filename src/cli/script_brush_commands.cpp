#include <array>

#include "cli/script_commands.h"
#include "document/brush_edits.h"
#include "document/selection_edits.h"
#include "geometry/transform.h"

namespace zando {
namespace {

/// The parameters of a line start from the defaults, whatever an earlier line set.
void Box(CScriptContext& context, CScriptArguments& arguments) {
  auto keywords = arguments.Keywords();
  BoxParameters box;
  box.BottomXSize = keywords.Number("x", box.BottomXSize);
  box.YSize = keywords.Number("y", box.YSize);
  box.BottomZSize = keywords.Number("z", box.BottomZSize);
  box.TopXSize = keywords.Number("top_x", box.BottomXSize);
  box.TopZSize = keywords.Number("top_z", box.BottomZSize);
  const bool hollow = keywords.Choice("style", {"solid", "hollow"}) == 1;
  box.Style = hollow ? BoxParameters::kHollow : BoxParameters::kSolid;
  box.WallThickness = keywords.Number("wall", box.WallThickness);
  keywords.Finish();
  GeneratePrimitive(context.document, box);
}

void Position(CScriptContext& context, CScriptArguments& arguments) {
  PlaceBrush(context.document, arguments.Numbers());
}

void Rotate(CScriptContext& context, CScriptArguments& arguments) {
  const Vector degrees = arguments.Numbers();
  SetBrushRotation(context.document, {DegreesToUnits(degrees.x), DegreesToUnits(degrees.y),
                                      DegreesToUnits(degrees.z)});
}

void Scale(CScriptContext& context, CScriptArguments& arguments) {
  SetBrushScale(context.document, arguments.Numbers());
}

void Shear(CScriptContext& context, CScriptArguments& arguments) {
  SetBrushShear(context.document, arguments.Numbers());
}

void Reset(CScriptContext& context, CScriptArguments& /*arguments*/) {
  ResetBrush(context.document);
}

/// A brush's name stands in a .map as the texture of its faces, where a blank would end it.
void Name(CScriptContext& context, CScriptArguments& arguments) {
  const std::string& name = CheckedText(arguments.Word(), "a brush's name");
  if (name.find_first_of(" \t") != std::string::npos) {
    throw CScriptError("a brush's name cannot hold a blank");
  }
  SetBrushName(context.document, name);
}

void Add(CScriptContext& context, CScriptArguments& /*arguments*/) { AddToWorld(context.document); }

void Subtract(CScriptContext& context, CScriptArguments& /*arguments*/) {
  SubtractFromWorld(context.document);
}

void Pick(CScriptContext& context, CScriptArguments& arguments) {
  const std::string& word = arguments.Word();
  SetCurrentBrush(context.document, word == "none" ? kWorkingBrush : context.Brush(word).BBid);
}

void RequirePicked(const CZANDODoc& document) {
  if (!document.BrushPicked()) throw CScriptError("no brush is picked");
}

void Delete(CScriptContext& context, CScriptArguments& /*arguments*/) {
  RequirePicked(context.document);
  DeleteCurrentBrush(context.document);
}

void Copy(CScriptContext& context, CScriptArguments& /*arguments*/) {
  RequirePicked(context.document);
  CopyToCurrent(context.document);
}

void SelectEntities(CScriptContext& context, CScriptArguments& arguments) {
  do {
    const std::int32_t index = context.CheckedEntity(arguments.WholeNumber());
    const CEntity& entity = context.document.GetLevel().Entities[static_cast<std::size_t>(index)];
    if (!entity.IsShown()) throw CScriptError("entity " + std::to_string(index) + " is hidden");
    SelectEntity(context.document, index, Selection::Select);
  } while (!arguments.IsEmpty());
}

void SelectBrushes(CScriptContext& context, const std::string& word) {
  for (const CZandoBrush* brush : context.Brushes(word)) {
    SelectBrush(context.document, brush->BBid, Selection::Select);
  }
}

void Select(CScriptContext& context, CScriptArguments& arguments) {
  const CCompoundChange whole(context.document);
  const std::string& first = arguments.Word();
  if (first == "all") {
    SelectAll(context.document);
  } else if (first == "none") {
    SelectNone(context.document);
  } else if (first == "entity") {
    SelectEntities(context, arguments);
  } else {
    SelectBrushes(context, first);
    while (!arguments.IsEmpty()) SelectBrushes(context, arguments.Word());
  }
}

constexpr std::array kBrushCommands{
    ScriptCommand{"box", "box [x=] [y=] [z=] [top_x=] [top_z=] [style=solid|hollow] [wall=]", Box},
    ScriptCommand{"position", "position X Y Z", Position},
    ScriptCommand{"rotate", "rotate YAW PITCH ROLL", Rotate},
    ScriptCommand{"scale", "scale X Y Z", Scale},
    ScriptCommand{"shear", "shear A B C", Shear},
    ScriptCommand{"reset", "reset", Reset},
    ScriptCommand{"name", "name TEXT", Name},
    ScriptCommand{"add", "add", Add},
    ScriptCommand{"subtract", "subtract", Subtract},
    ScriptCommand{"pick", "pick INDEX|last|NAME|none", Pick},
    ScriptCommand{"delete", "delete", Delete},
    ScriptCommand{"copy-to-current", "copy-to-current", Copy},
    ScriptCommand{"select", "select all|none|entity INDEX...|BRUSH...", Select},
};

}  // namespace

std::span<const ScriptCommand> BrushCommands() { return kBrushCommands; }

}  // namespace zando
