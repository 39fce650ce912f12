#include <algorithm>
#include <array>

#include "cli/script_commands.h"
#include "document/entity_edits.h"
#include "entities/class_defaults.h"
#include "platform/text.h"

namespace zando {
namespace {

void NewEntity(CScriptContext& context, CScriptArguments& arguments) {
  const std::string& className = arguments.Word();
  const ClassDefaults* defaults = FindClassDefaults(className);
  if (defaults == nullptr) throw CScriptError("unknown class '" + className + "'");
  AddEntity(context.document, MakeEntity(*defaults));
}

void Light(CScriptContext& context, CScriptArguments& /*arguments*/) {
  PlaceLight(context.document);
}

void CopyEntity(CScriptContext& context, CScriptArguments& /*arguments*/) {
  static_cast<void>(context.CurrentEntity());
  CopyCurrentEntity(context.document);
}

void RequireKey(const CEntity& entity, const std::string& key) {
  if (!entity.HasKey(key)) {
    throw CScriptError(entity.GetClassname() + " has no key '" + key +
                       "' (entity add-key adds it)");
  }
}

void RequireNoKey(const CEntity& entity, const std::string& key) {
  if (entity.HasKey(key)) throw CScriptError("there is a key '" + key + "' already");
}

/// An empty value is none; any other is text.
const std::string& CheckedValue(const std::string& value) {
  return value.empty() ? value : CheckedText(value, "a value");
}

void SetCurrentKey(CScriptContext& context, const std::string& key, const std::string& value) {
  SetEntityKey(context.document, context.document.State().CurrentEntity, key, value);
}

void Set(CScriptContext& context, CScriptArguments& arguments) {
  const std::string& key = arguments.Word();
  RequireKey(context.CurrentEntity(), key);
  SetCurrentKey(context, key, CheckedValue(arguments.Word()));
}

void AddKey(CScriptContext& context, CScriptArguments& arguments) {
  const CEntity& entity = context.CurrentEntity();
  const std::string& key = CheckedText(arguments.Word(), "a key");
  RequireNoKey(entity, key);
  SetCurrentKey(context, key, CheckedValue(arguments.Word()));
}

/// The first pair with this key, which there must be.
std::int32_t PairIndex(const CEntity& entity, const std::string& key) {
  RequireKey(entity, key);
  const auto found = std::ranges::find_if(
      entity.Pairs, [&](const EntityPair& pair) { return EqualIgnoringCase(pair.key, key); });
  return static_cast<std::int32_t>(found - entity.Pairs.begin());
}

void RemoveKey(CScriptContext& context, CScriptArguments& arguments) {
  const std::int32_t pair = PairIndex(context.CurrentEntity(), arguments.Word());
  const CCompoundChange whole(context.document);
  RemoveEntityPair(context.document, context.document.State().CurrentEntity, pair);
  ParseAllOrigins(context.document);
}

/// The pair keeps its place and its value.
void RenameKey(CScriptContext& context, CScriptArguments& arguments) {
  const CEntity& entity = context.CurrentEntity();
  const std::int32_t pair = PairIndex(entity, arguments.Word());
  EntityPair renamed = entity.Pairs[static_cast<std::size_t>(pair)];
  const std::string& key = CheckedText(arguments.Word(), "a key");
  if (!EqualIgnoringCase(renamed.key, key)) RequireNoKey(entity, key);
  renamed.key = key;
  const CCompoundChange whole(context.document);
  SetEntityPair(context.document, context.document.State().CurrentEntity, pair, renamed);
  ParseAllOrigins(context.document);
}

void Origin(CScriptContext& context, CScriptArguments& arguments) {
  RequireKey(context.CurrentEntity(), "origin");
  const std::int32_t x = arguments.WholeNumber();
  const std::int32_t y = arguments.WholeNumber();
  const std::int32_t z = arguments.WholeNumber();
  SetCurrentKey(context, "origin", FormatWholeNumbers(x, y, z));
}

void SelectEntity(CScriptContext& context, CScriptArguments& arguments) {
  SetCurrentEntity(context.document, context.CheckedEntity(arguments.WholeNumber()));
}

void RemoveEntity(CScriptContext& context, CScriptArguments& /*arguments*/) {
  static_cast<void>(context.CurrentEntity());
  DeleteEntity(context.document, context.document.State().CurrentEntity);
}

/// The named brushes, or else the selected ones.
void Own(CScriptContext& context, CScriptArguments& arguments) {
  static_cast<void>(context.CurrentEntity());
  CZANDODoc& document = context.document;
  const CCompoundChange whole(document);
  const std::int32_t entity = document.State().CurrentEntity;
  if (arguments.IsEmpty()) {
    if (std::ranges::none_of(document.GetLevel().BrushList, &CZandoBrush::IsSelected)) {
      throw CScriptError("no brush is named or selected");
    }
    AssociateSelectedBrushes(document, entity);
    return;
  }
  std::vector<const CZandoBrush*> brushes;
  while (!arguments.IsEmpty()) {
    for (const CZandoBrush* brush : context.Brushes(arguments.Word())) brushes.push_back(brush);
  }
  for (const CZandoBrush* brush : brushes) AssociateBrush(document, entity, brush->BBid);
}

void OwnGroup(CScriptContext& context, CScriptArguments& /*arguments*/) {
  static_cast<void>(context.CurrentEntity());
  if (context.document.State().CurrentGroup < 0) throw CScriptError("no group is current");
  AssociateBrushGroup(context.document, context.document.State().CurrentEntity);
}

void Disown(CScriptContext& context, CScriptArguments& /*arguments*/) {
  static_cast<void>(context.CurrentEntity());
  DisassociateBrushes(context.document, context.document.State().CurrentEntity);
}

constexpr std::array kEntityCommands{
    ScriptCommand{"entity new", "entity new CLASSNAME", NewEntity},
    ScriptCommand{"entity light", "entity light", Light},
    ScriptCommand{"entity copy", "entity copy", CopyEntity},
    ScriptCommand{"entity set", "entity set KEY VALUE", Set},
    ScriptCommand{"entity add-key", "entity add-key KEY VALUE", AddKey},
    ScriptCommand{"entity remove-key", "entity remove-key KEY", RemoveKey},
    ScriptCommand{"entity rename-key", "entity rename-key KEY NEWKEY", RenameKey},
    ScriptCommand{"entity origin", "entity origin X Y Z", Origin},
    ScriptCommand{"entity select", "entity select INDEX", SelectEntity},
    ScriptCommand{"entity delete", "entity delete", RemoveEntity},
    ScriptCommand{"entity own", "entity own [BRUSH...]", Own},
    ScriptCommand{"entity own-group", "entity own-group", OwnGroup},
    ScriptCommand{"entity disown", "entity disown", Disown},
};

}  // namespace

std::span<const ScriptCommand> EntityCommands() { return kEntityCommands; }

}  // namespace zando
