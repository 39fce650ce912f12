#include "cli/script.h"

#include <algorithm>
#include <span>

#include "cli/script_commands.h"
#include "cli/script_words.h"

namespace zando {
namespace {

const ScriptCommand* FindCommand(std::string_view name) {
  for (const auto commands : AllCommands()) {
    const auto found = std::find_if(commands.begin(), commands.end(),
                                    [name](const ScriptCommand& c) { return c.name == name; });
    if (found != commands.end()) return &*found;
  }
  return nullptr;
}

/// A command's name is one word, or two: "group new".
void RunLine(std::string_view line, CScriptContext& context) {
  const std::vector<std::string> words = SplitWords(line);
  if (words.empty()) return;
  std::size_t used = 1;
  const ScriptCommand* command = FindCommand(words[0]);
  if (command == nullptr && words.size() > 1) {
    used = 2;
    command = FindCommand(words[0] + ' ' + words[1]);
  }
  if (command == nullptr) throw CScriptError("unknown command '" + words[0] + "'");

  const std::span<const std::string> rest(words);
  CScriptArguments arguments(rest.subspan(used), command->usage);
  command->run(context, arguments);
  arguments.Finish();
}

}  // namespace

ScriptResult RunScript(CZANDODoc& document, std::string_view text, std::string_view name) {
  CScriptContext context(document);
  for (std::size_t lineNumber = 1; !text.empty(); ++lineNumber) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    try {
      RunLine(line.ends_with('\r') ? line.substr(0, line.size() - 1) : line, context);
    } catch (const CScriptError& error) {
      return {{}, {}, std::string(name) + ':' + std::to_string(lineNumber) + ": " + error.what()};
    }
  }
  context.world.CatchUp();
  return {std::move(context.files), std::move(context.notes), {}};
}

}  // namespace zando
