#include <algorithm>
#include <array>

#include "cli/script_commands.h"
#include "entities/class_defaults.h"
#include "platform/text.h"

namespace zando {
namespace {

void New(CScriptContext& context, CScriptArguments& arguments) {
  const std::string& className = arguments.Word();
  const ClassDefaults* defaults = FindClassDefaults(className);
  if (defaults == nullptr) throw CScriptError("unknown class '" + className + "'");
  context.document.AddEntity(MakeEntity(*defaults));
}

void Light(CScriptContext& context, CScriptArguments& /*arguments*/) {
  context.document.PlaceLight();
}

void Copy(CScriptContext& context, CScriptArguments& /*arguments*/) {
  static_cast<void>(context.CurrentEntity());
  context.document.CopyCurrentEntity();
}

bool HasKey(const CEntity& entity, std::string_view key) {
  return std::any_of(entity.Pairs.begin(), entity.Pairs.end(),
                     [key](const EntityPair& pair) { return EqualIgnoringCase(pair.key, key); });
}

void RequireKey(const CEntity& entity, const std::string& key) {
  if (!HasKey(entity, key)) {
    throw CScriptError(entity.GetClassname() + " has no key '" + key +
                       "' (entity add-key adds it)");
  }
}

/// An empty value is none; any other is text.
const std::string& CheckedValue(const std::string& value) {
  return value.empty() ? value : CheckedText(value, "a value");
}

void Set(CScriptContext& context, CScriptArguments& arguments) {
  CEntity& entity = context.CurrentEntity();
  const std::string& key = arguments.Word();
  RequireKey(entity, key);
  entity.SetValue(key, CheckedValue(arguments.Word()));
  entity.ParseOrigin();
  context.Changed();
}

void AddKey(CScriptContext& context, CScriptArguments& arguments) {
  CEntity& entity = context.CurrentEntity();
  const std::string& key = CheckedText(arguments.Word(), "a key");
  if (HasKey(entity, key)) throw CScriptError("there is a key '" + key + "' already");
  entity.AddPair(key, CheckedValue(arguments.Word()));
  entity.ParseOrigin();
  context.Changed();
}

void Origin(CScriptContext& context, CScriptArguments& arguments) {
  CEntity& entity = context.CurrentEntity();
  RequireKey(entity, "origin");
  const std::int32_t x = arguments.WholeNumber();
  const std::int32_t y = arguments.WholeNumber();
  const std::int32_t z = arguments.WholeNumber();
  entity.SetValue("origin", FormatWholeNumbers(x, y, z));
  entity.ParseOrigin();
  context.Changed();
}

void Select(CScriptContext& context, CScriptArguments& arguments) {
  context.document.CurrentEntity = context.CheckedEntity(arguments.WholeNumber());
}

void Delete(CScriptContext& context, CScriptArguments& /*arguments*/) {
  static_cast<void>(context.CurrentEntity());
  context.document.DeleteEntity(context.document.CurrentEntity);
}

void GiveTo(const CEntity& entity, std::int32_t index, CZandoBrush& brush) {
  brush.BFlags &= ~BF_SELECTED;
  brush.BFlags |= BF_ENTITY;
  brush.BEnt = index;
  brush.BGroup = entity.eGroup;
}

/// The named brushes, or else the selected ones.
std::vector<CZandoBrush*> BrushesToOwn(CScriptContext& context, CScriptArguments& arguments) {
  std::vector<CZandoBrush*> brushes;
  while (!arguments.IsEmpty()) {
    for (CZandoBrush* brush : context.Brushes(arguments.Word())) brushes.push_back(brush);
  }
  if (!brushes.empty()) return brushes;
  for (const auto& brush : context.document.BrushList.Brushes()) {
    if (brush->IsSelected()) brushes.push_back(brush.get());
  }
  if (brushes.empty()) throw CScriptError("no brush is named or selected");
  return brushes;
}

void Own(CScriptContext& context, CScriptArguments& arguments) {
  const CEntity& entity = context.CurrentEntity();
  for (CZandoBrush* brush : BrushesToOwn(context, arguments)) {
    GiveTo(entity, context.document.CurrentEntity, *brush);
  }
  context.document.RefreshColors();
  context.Changed();
}

void Disown(CScriptContext& context, CScriptArguments& /*arguments*/) {
  static_cast<void>(context.CurrentEntity());
  for (const auto& brush : context.document.BrushList.Brushes()) {
    if (brush->BEnt == context.document.CurrentEntity) brush->BFlags &= ~BF_ENTITY;
  }
  context.document.RefreshColors();
  context.Changed();
}

constexpr std::array kCommands{
    ScriptCommand{"entity new", "entity new CLASSNAME", New},
    ScriptCommand{"entity light", "entity light", Light},
    ScriptCommand{"entity copy", "entity copy", Copy},
    ScriptCommand{"entity set", "entity set KEY VALUE", Set},
    ScriptCommand{"entity add-key", "entity add-key KEY VALUE", AddKey},
    ScriptCommand{"entity origin", "entity origin X Y Z", Origin},
    ScriptCommand{"entity select", "entity select INDEX", Select},
    ScriptCommand{"entity delete", "entity delete", Delete},
    ScriptCommand{"entity own", "entity own [BRUSH...]", Own},
    ScriptCommand{"entity disown", "entity disown", Disown},
};

}  // namespace

std::span<const ScriptCommand> EntityCommands() { return kCommands; }

}  // namespace zando
