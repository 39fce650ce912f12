#include <array>

#include "cli/script_commands.h"
#include "document/brush_edits.h"
#include "document/selection_edits.h"
#include "geometry/transform.h"

namespace zando {
namespace {

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

void Name(CScriptContext& context, CScriptArguments& arguments) {
  SetBrushName(context.document, CheckedWord(arguments.Word(), "a brush's name"));
}

Vector Replaced(CScriptArguments::CKeywords& keywords, const std::array<std::string_view, 3>& keys,
                const Vector& before) {
  return {keywords.Number(keys[0], before.x), keywords.Number(keys[1], before.y),
          keywords.Number(keys[2], before.z)};
}

/// An angle that is not given keeps its units to the last bit.
double ReplacedAngle(CScriptArguments::CKeywords& keywords, std::string_view key, double before) {
  return keywords.Has(key) ? DegreesToUnits(keywords.Number(key, 0.0)) : before;
}

/// What is not named stays.
void Attributes(CScriptContext& context, CScriptArguments& arguments) {
  CZANDODoc& document = context.document;
  const std::string& word = arguments.Word();
  const std::int32_t id =
      word == "current" ? document.State().CurrentBrush : context.Brush(word).BBid;
  BrushAttributes attributes = AttributesOf(document, id, kOwnSlot);
  auto keywords = arguments.Keywords();
  attributes.position = Replaced(keywords, {"x", "y", "z"}, attributes.position);
  attributes.rotation = {ReplacedAngle(keywords, "yaw", attributes.rotation.x),
                         ReplacedAngle(keywords, "pitch", attributes.rotation.y),
                         ReplacedAngle(keywords, "roll", attributes.rotation.z)};
  attributes.scale = Replaced(keywords, {"scale_x", "scale_y", "scale_z"}, attributes.scale);
  attributes.shear = Replaced(keywords, {"shear_x", "shear_y", "shear_z"}, attributes.shear);
  if (keywords.Has("name")) attributes.name = CheckedWord(keywords.Text("name"), "a brush's name");
  keywords.Finish();
  SetBrushAttributes(document, id, kOwnSlot, attributes);
}

void Add(CScriptContext& context, CScriptArguments& /*arguments*/) { AddToWorld(context.document); }

void Subtract(CScriptContext& context, CScriptArguments& /*arguments*/) {
  SubtractFromWorld(context.document);
}

void RequirePicked(const CZANDODoc& document) {
  if (!document.BrushPicked()) throw CScriptError("no brush is picked");
}

void Step(CZANDODoc& document, ListStep step) {
  RequirePicked(document);
  StepCurrentBrush(document, step);
}

void Pick(CScriptContext& context, CScriptArguments& arguments) {
  CZANDODoc& document = context.document;
  const std::string& word = arguments.Word();
  if (word == "next") return Step(document, ListStep::Next);
  if (word == "previous") return Step(document, ListStep::Previous);
  SetCurrentBrush(document, word == "none" ? kWorkingBrush : context.Brush(word).BBid);
}

void Delete(CScriptContext& context, CScriptArguments& /*arguments*/) {
  RequirePicked(context.document);
  DeleteCurrentBrush(context.document);
}

void Copy(CScriptContext& context, CScriptArguments& /*arguments*/) {
  RequirePicked(context.document);
  CopyToCurrent(context.document);
}

void MarkEntities(CScriptContext& context, CScriptArguments& arguments, Selection selection) {
  do {
    const std::int32_t index = context.CheckedEntity(arguments.WholeNumber());
    const CEntity& entity = context.document.GetLevel().Entities[static_cast<std::size_t>(index)];
    if (!entity.IsShown()) throw CScriptError("entity " + std::to_string(index) + " is hidden");
    SelectEntity(context.document, index, selection);
  } while (!arguments.IsEmpty());
}

/// Everything of the group that is shown.
void MarkGroup(CScriptContext& context, const std::string& name, Selection selection) {
  const std::int32_t group = context.GroupIndex(name);
  const Level& level = context.document.GetLevel();
  for (const CZandoBrush& brush : level.BrushList) {
    if (brush.BGroup == group) SelectBrush(context.document, brush.BBid, selection);
  }
  for (std::size_t i = 0; i < level.Entities.size(); ++i) {
    if (level.Entities[i].eGroup != group) continue;
    SelectEntity(context.document, static_cast<std::int32_t>(i), selection);
  }
}

void MarkBrushes(CScriptContext& context, const std::string& word, Selection selection) {
  for (const CZandoBrush* brush : context.Brushes(word)) {
    SelectBrush(context.document, brush->BBid, selection);
  }
}

/// Takes what the words name into the selection or out of it.
void Mark(CScriptContext& context, CScriptArguments& arguments, Selection selection) {
  const CCompoundChange whole(context.document);
  const std::string& first = arguments.Word();
  if (first == "entity") {
    MarkEntities(context, arguments, selection);
  } else if (first == "group") {
    MarkGroup(context, arguments.Word(), selection);
  } else {
    MarkBrushes(context, first, selection);
    while (!arguments.IsEmpty()) MarkBrushes(context, arguments.Word(), selection);
  }
}

void Select(CScriptContext& context, CScriptArguments& arguments) {
  if (arguments.Take("all")) return SelectAll(context.document);
  if (arguments.Take("none")) return SelectNone(context.document);
  Mark(context, arguments, Selection::Select);
}

void Deselect(CScriptContext& context, CScriptArguments& arguments) {
  Mark(context, arguments, Selection::Deselect);
}

constexpr std::array kBrushCommands{
    ScriptCommand{"position", "position X Y Z", Position},
    ScriptCommand{"rotate", "rotate YAW PITCH ROLL", Rotate},
    ScriptCommand{"scale", "scale X Y Z", Scale},
    ScriptCommand{"shear", "shear A B C", Shear},
    ScriptCommand{"reset", "reset", Reset},
    ScriptCommand{"name", "name TEXT", Name},
    ScriptCommand{"attributes",
                  "attributes BRUSH|current [x=] [y=] [z=] [yaw=] [pitch=] [roll=] [scale_x=] "
                  "[scale_y=] [scale_z=] [shear_x=] [shear_y=] [shear_z=] [name=]",
                  Attributes},
    ScriptCommand{"add", "add", Add},
    ScriptCommand{"subtract", "subtract", Subtract},
    ScriptCommand{"pick", "pick BRUSH|next|previous|none", Pick},
    ScriptCommand{"delete", "delete", Delete},
    ScriptCommand{"copy-to-current", "copy-to-current", Copy},
    ScriptCommand{"select", "select all|none|entity INDEX...|group NAME|BRUSH...", Select},
    ScriptCommand{"deselect", "deselect entity INDEX...|group NAME|BRUSH...", Deselect},
};

}  // namespace

std::span<const ScriptCommand> BrushCommands() { return kBrushCommands; }

}  // namespace zando
