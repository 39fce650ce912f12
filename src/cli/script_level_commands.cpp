#include <array>

#include "cli/export_commands.h"
#include "cli/level_info.h"
#include "cli/script_commands.h"
#include "document/document_file.h"
#include "document/view_edits.h"
#include "document/world_edits.h"
#include "formats/map_writer.h"

namespace zando {
namespace {

void Show(CScriptContext& context, CScriptArguments& arguments) {
  constexpr std::array filters{ID_SHOW_ALL_BRUSHES, ID_SHOW_VISIBLE_GROUPS, ID_SHOW_CURRENT_GROUP};
  SetShowFilter(context.document,
                filters[arguments.Choice({"all", "visible-groups", "current-group"})]);
}

void ShowEntities(CScriptContext& context, CScriptArguments& arguments) {
  const bool shown = context.document.State().ShowEntities != 0;
  if (arguments.OnOff() != shown) ToggleShowEntities(context.document);
}

void Rebuild(CScriptContext& context, CScriptArguments& arguments) {
  const bool quick = arguments.Choice({"quick", "optimal"}) == 0;
  WaterBrushes water = WaterBrushes::Skip;
  if (!arguments.IsEmpty()) {
    arguments.Choice({"water"});
    water = WaterBrushes::Build;
  }
  RebuildWorld(context.document, quick ? RebuildKind::Quick : RebuildKind::Optimal, water, nullptr);
  context.notes.push_back("rebuild: " + DescribeWorld(context.document.GetLevel().World));
}

const std::string& PathWord(CScriptArguments& arguments) {
  const std::string& path = arguments.Word();
  if (path.empty()) throw CScriptError("the path is empty");
  return path;
}

void Save(CScriptContext& context, CScriptArguments& arguments) {
  const std::string& path = PathWord(arguments);
  context.world.CatchUp();
  context.files.push_back({path, WriteDocument(context.document)});
}

void Export(CScriptContext& context, CScriptArguments& arguments) {
  const std::string& path = PathWord(arguments);
  std::string wad = kDefaultWad;
  if (!arguments.IsEmpty()) {
    arguments.Choice({"wad"});
    wad = CheckedText(arguments.Word(), "the path of a wad");
  }
  MapExportReport report;
  context.files.push_back({path, WriteMap(context.document.GetLevel(), wad, &report)});
  context.notes.push_back(path + ": " + DescribeExport(report));
}

constexpr std::array kLevelCommands{
    ScriptCommand{"show", "show all|visible-groups|current-group", Show},
    ScriptCommand{"show-entities", "show-entities on|off", ShowEntities},
    ScriptCommand{"rebuild", "rebuild quick|optimal [water]", Rebuild},
    ScriptCommand{"save", "save PATH", Save},
    ScriptCommand{"export", "export PATH [wad PATH]", Export},
};

}  // namespace

std::span<const ScriptCommand> LevelCommands() { return kLevelCommands; }

}  // namespace zando
