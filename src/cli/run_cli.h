#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace zando {

/// Exit statuses of zando-cli.
inline constexpr int kCliDone = 0;
inline constexpr int kCliFailed = 1;      ///< one line on `err` says which file and why
inline constexpr int kCliWrongUsage = 2;  ///< one line on `err` says what is wrong

/// zando-cli without a process: runs the subcommand that the arguments (without the program's name)
/// ask for, and returns the exit status.
[[nodiscard]] int RunCli(std::vector<std::string> arguments, std::ostream& out, std::ostream& err);

}  // namespace zando
