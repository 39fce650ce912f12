#pragma once

#include <cstdint>

namespace zando {

using CommandId = std::int32_t;

/// How a command shows in menus and toolbars: filled in by the target that answers it.
class CCmdUI {
 public:
  void Enable(bool enabled) { enabled_ = enabled; }
  void SetCheck(bool checked) { checked_ = checked; }

  [[nodiscard]] bool IsEnabled() const { return enabled_; }
  [[nodiscard]] bool IsChecked() const { return checked_; }

 private:
  bool enabled_ = true;
  bool checked_ = false;
};

/// Something that answers commands. A command is offered to the active view, then its document,
/// then the frame, then the application; the first that knows it is its target.
class CCmdTarget {
 public:
  CCmdTarget() = default;
  CCmdTarget(const CCmdTarget&) = delete;
  CCmdTarget& operator=(const CCmdTarget&) = delete;
  virtual ~CCmdTarget() = default;

  /// Carries out the command; false when this target does not know it.
  virtual bool OnCommand(CommandId id) = 0;

  /// Says how the command shows; false when this target does not know it. A target that knows a
  /// command and has nothing to say leaves it enabled and unchecked.
  virtual bool OnUpdateCommandUI(CommandId id, CCmdUI& ui) = 0;
};

}  // namespace zando
