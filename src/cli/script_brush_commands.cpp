#include <algorithm>
#include <array>

#include "cli/script_commands.h"
#include "geometry/transform.h"

namespace zando {
namespace {

/// The parameters of a line start from the defaults, whatever an earlier line set.
void Box(CScriptContext& context, CScriptArguments& arguments) {
  auto keywords = arguments.Keywords();
  BoxParameters box;
  box.BottomXSize = keywords.PositiveNumber("x", box.BottomXSize);
  box.YSize = keywords.PositiveNumber("y", box.YSize);
  box.BottomZSize = keywords.PositiveNumber("z", box.BottomZSize);
  box.TopXSize = keywords.PositiveNumber("top_x", box.BottomXSize);
  box.TopZSize = keywords.PositiveNumber("top_z", box.BottomZSize);
  const bool hollow = keywords.Choice("style", {"solid", "hollow"}) == 1;
  box.Style = hollow ? BoxParameters::kHollow : BoxParameters::kSolid;
  box.WallThickness = keywords.PositiveNumber("wall", box.WallThickness);
  keywords.Finish();

  const double smallest =
      std::min({box.BottomXSize, box.YSize, box.BottomZSize, box.TopXSize, box.TopZSize});
  if (hollow && box.WallThickness * 2.0 >= smallest) {
    throw CScriptError("the walls leave no room in the box");
  }
  Generate(box, context.CurrentBrush());
  context.CurrentBrush().ComputeFacePoints();
  context.Changed();
}

void Position(CScriptContext& context, CScriptArguments& arguments) {
  context.CurrentBrush().MoveTo(arguments.Numbers());
  context.Changed();
}

void Rotate(CScriptContext& context, CScriptArguments& arguments) {
  const Vector degrees = arguments.Numbers();
  CZandoBrush& brush = context.CurrentBrush();
  brush.Rot[kOwnSlot] = {DegreesToUnits(degrees.x), DegreesToUnits(degrees.y),
                         DegreesToUnits(degrees.z)};
  brush.WorkRot[kOwnSlot] = brush.Rot[kOwnSlot];
  context.Changed();
}

void Scale(CScriptContext& context, CScriptArguments& arguments) {
  context.CurrentBrush().Scl[kOwnSlot] = arguments.PositiveNumbers();
  context.Changed();
}

void Shear(CScriptContext& context, CScriptArguments& arguments) {
  context.CurrentBrush().Shr[kOwnSlot] = arguments.Numbers();
  context.Changed();
}

void Reset(CScriptContext& context, CScriptArguments& /*arguments*/) {
  context.CurrentBrush().ResetSlot(kOwnSlot);
  context.Changed();
}

/// A brush's name stands in a .map as the texture of its faces, where a blank would end it.
void Name(CScriptContext& context, CScriptArguments& arguments) {
  const std::string& name = CheckedText(arguments.Word(), "a brush's name");
  if (name.find_first_of(" \t") != std::string::npos) {
    throw CScriptError("a brush's name cannot hold a blank");
  }
  context.CurrentBrush().Name = name;
  context.Changed();
}

void Add(CScriptContext& context, CScriptArguments& /*arguments*/) {
  context.document.AddToWorld();
}

void Subtract(CScriptContext& context, CScriptArguments& /*arguments*/) {
  context.document.SubtractFromWorld();
}

void Pick(CScriptContext& context, CScriptArguments& arguments) {
  const std::string& word = arguments.Word();
  CZANDODoc& document = context.document;
  document.SetCurrentBrush(word == "none" ? document.WorkingBrush : context.Brush(word));
}

void RequirePicked(const CZANDODoc& document) {
  if (document.BrushPicked == 0) throw CScriptError("no brush is picked");
}

void Delete(CScriptContext& context, CScriptArguments& /*arguments*/) {
  RequirePicked(context.document);
  context.document.DeleteCurrentBrush();
}

void CopyToCurrent(CScriptContext& context, CScriptArguments& /*arguments*/) {
  RequirePicked(context.document);
  context.document.CopyToCurrent();
}

void SelectAll(CZANDODoc& document) {
  for (const auto& brush : document.BrushList.Brushes()) {
    if (brush->IsShown()) brush->BFlags |= BF_SELECTED;
  }
  for (CEntity& entity : document.Entities) {
    if (entity.IsShown()) entity.eFlags |= EF_SELECTED;
  }
}

void SelectNone(CZANDODoc& document) {
  for (const auto& brush : document.BrushList.Brushes()) brush->BFlags &= ~BF_SELECTED;
  for (CEntity& entity : document.Entities) entity.eFlags &= ~EF_SELECTED;
}

void SelectEntities(CScriptContext& context, CScriptArguments& arguments) {
  do {
    const std::int32_t index = context.CheckedEntity(arguments.WholeNumber());
    CEntity& entity = context.document.Entities[static_cast<std::size_t>(index)];
    if (!entity.IsShown()) throw CScriptError("entity " + std::to_string(index) + " is hidden");
    entity.eFlags |= EF_SELECTED;
  } while (!arguments.IsEmpty());
}

void Select(CScriptContext& context, CScriptArguments& arguments) {
  const std::string& first = arguments.Word();
  if (first == "all") {
    SelectAll(context.document);
  } else if (first == "none") {
    SelectNone(context.document);
  } else if (first == "entity") {
    SelectEntities(context, arguments);
  } else {
    for (CZandoBrush* brush : context.Brushes(first)) brush->BFlags |= BF_SELECTED;
    while (!arguments.IsEmpty()) {
      for (CZandoBrush* brush : context.Brushes(arguments.Word())) brush->BFlags |= BF_SELECTED;
    }
  }
  context.document.UpdateAllViews(nullptr);
}

constexpr std::array kCommands{
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
    ScriptCommand{"copy-to-current", "copy-to-current", CopyToCurrent},
    ScriptCommand{"select", "select all|none|entity INDEX...|BRUSH...", Select},
};

}  // namespace

std::span<const ScriptCommand> BrushCommands() { return kCommands; }

}  // namespace zando
