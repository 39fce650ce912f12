#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/dialog.h"
#include "platform/draw_context.h"
#include "platform/progress.h"

namespace zando {

/// What a file chooser is asked for.
struct FileRequest {
  enum class Kind { Open, Save };
  Kind kind = Kind::Open;
  std::string title;
  std::string extension;           ///< added to a name without one; without the dot
  std::string filter;              ///< "Text (*.a)|*.a|Text (*.*)|*.*||", or empty for all files
  std::filesystem::path proposal;  ///< initial name or folder, may be empty
};

/// What the user wants done with unsaved changes.
enum class SaveAnswer { Save, Discard, Cancel };

enum class YesNo { Yes, No };

/// The person at the desk and the desktop's common services. Every call that asks something runs
/// until it is answered.
class CDesktop {
 public:
  CDesktop() = default;
  CDesktop(const CDesktop&) = delete;
  CDesktop& operator=(const CDesktop&) = delete;
  virtual ~CDesktop() = default;

  /// Says something that must be seen.
  virtual void ShowMessage(std::string_view text) = 0;
  [[nodiscard]] virtual SaveAnswer AskSaveChanges(std::string_view name) = 0;
  [[nodiscard]] virtual YesNo AskYesNo(std::string_view question) = 0;

  /// A line in the status bar, until the next prompt takes its place.
  virtual void SetStatusText(std::string_view text) = 0;

  /// A line in the status bar that tells what went wrong. Prompts may cover it, and it comes back
  /// when they go, until ClearFailure: the next command has begun.
  virtual void ShowFailure(std::string_view text) = 0;
  virtual void ClearFailure() = 0;

  /// A progress bar in the status bar, beside this text, until it is destroyed. Its steps let the
  /// windows paint; of what the user does meanwhile only Escape counts, which cancels.
  [[nodiscard]] virtual std::unique_ptr<CProgress> ShowProgress(std::string_view text) = 0;

  /// The chosen file, or none when the user cancelled. A save chooser asks before it overwrites.
  [[nodiscard]] virtual std::optional<std::filesystem::path> ChooseFile(
      const FileRequest& request) = 0;

  /// The chosen colour, or none when the user cancelled.
  [[nodiscard]] virtual std::optional<ColorRef> ChooseColor(ColorRef initial) = 0;

  /// Runs the dialog's form until it closes; the number it closed with.
  virtual ControlId DoModal(CDialog& dialog) = 0;

  /// The pointer, in pixels of the screen. Where the desktop does not let a program place it,
  /// SetCursorPos does nothing and CanPlaceCursor is false.
  [[nodiscard]] virtual ScreenPoint GetCursorPos() const = 0;
  virtual void SetCursorPos(ScreenPoint point) = 0;
  [[nodiscard]] virtual bool CanPlaceCursor() const = 0;
  virtual void ShowCursor(bool visible) = 0;

  [[nodiscard]] virtual bool IsShiftDown() const = 0;
};

/// The window of one view as the view sees it, whatever kind of view that is. Sizes and places are
/// pixels of the device, however the display is scaled.
class CChildWindow {
 public:
  CChildWindow() = default;
  CChildWindow(const CChildWindow&) = delete;
  CChildWindow& operator=(const CChildWindow&) = delete;
  virtual ~CChildWindow() = default;

  /// Paints soon, or before the call returns.
  virtual void Invalidate() = 0;
  virtual void RedrawNow() = 0;

  virtual void SetFrameTitle(std::string_view title) = 0;
};

/// The window of a view whose picture is as large as the window.
class CViewWindow : public CChildWindow {
 public:
  /// Shows an inverted frame, 2 pixels thick, over the picture, in place of the one before.
  virtual void DrawDragRect(const ScreenRect& rect) = 0;
  virtual void EraseDragRect() = 0;

  virtual void SetCapture() = 0;
  virtual void ReleaseCapture() = 0;
  [[nodiscard]] virtual bool HasCapture() const = 0;
};

/// The window of a view that shows a part of a larger picture and scrolls over the rest.
class CScrollWindow : public CChildWindow {
 public:
  /// The size of the whole picture, in pixels.
  virtual void SetScrollSizes(std::int32_t width, std::int32_t height) = 0;

  /// Scrolls no further than it takes to show this part of the picture.
  virtual void ScrollTo(const ScreenRect& part) = 0;
};

/// Buttons held during a mouse message.
struct MouseFlags {
  bool left = false;
  bool right = false;
};

}  // namespace zando
