#pragma once

#include <array>
#include <span>
#include <string_view>

#include "cli/script_arguments.h"
#include "cli/script_context.h"

namespace zando {

/// One command of the script language. A new one needs a line in its table and a place in
/// docs/script.md.
struct ScriptCommand {
  std::string_view name;   ///< one word, or two
  std::string_view usage;  ///< shown when words are missing or too many
  void (*run)(CScriptContext& context, CScriptArguments& arguments);
};

[[nodiscard]] std::span<const ScriptCommand> PrimitiveCommands();
[[nodiscard]] std::span<const ScriptCommand> BrushCommands();
[[nodiscard]] std::span<const ScriptCommand> GroupCommands();
[[nodiscard]] std::span<const ScriptCommand> EntityCommands();
[[nodiscard]] std::span<const ScriptCommand> SurfaceCommands();
[[nodiscard]] std::span<const ScriptCommand> LevelCommands();

/// The whole language.
[[nodiscard]] inline std::array<std::span<const ScriptCommand>, 6> AllCommands() {
  return {PrimitiveCommands(), BrushCommands(),   GroupCommands(),
          EntityCommands(),    SurfaceCommands(), LevelCommands()};
}

}  // namespace zando
