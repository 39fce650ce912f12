#pragma once

#include <string_view>
#include <utility>

#include "platform/desktop.h"

namespace zando {

/// The border between the windows and the core. What a window hands on, a command, a key, a motion
/// of the mouse, a button of a dialog, a picture to draw, runs through it, and nothing that is
/// thrown gets past: it is told in the status bar under the name of what failed, and the editor
/// lives on. A level that was being changed is whole, and counts as modified.
class CGuard {
 public:
  explicit CGuard(CDesktop& desktop) : desktop_(desktop) {}

  /// Runs the operation; false when it failed. The name is a menu text, or any text without marks,
  /// and outlives the call; without one what fails is told under the name of the attempt around.
  template <typename Operation>
  bool Attempt(std::string_view name, Operation&& operation) noexcept {
    const std::string_view around = name_;
    if (!name.empty()) name_ = name;
    bool succeeded = true;
    try {
      std::forward<Operation>(operation)();
    } catch (...) {
      TellWhatIsCaught();
      succeeded = false;
    }
    name_ = around;
    return succeeded;
  }

 private:
  void TellWhatIsCaught() noexcept;

  CDesktop& desktop_;
  std::string_view name_ = "The last action";
};

}  // namespace zando
