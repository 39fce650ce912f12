#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/desktop.h"

namespace zando::testing {

/// A desktop whose answers are written beforehand. Each question takes the next answer of its
/// queue; a question without one fails the test and is answered with cancel or no. What was asked
/// and said is kept in Calls, in order: "message TEXT", "save? NAME", "yesno? QUESTION",
/// "open TITLE", "save TITLE", "color 0000FF", "dialog 130", "progress TEXT".
class CScriptedDesktop : public CDesktop {
 public:
  std::deque<SaveAnswer> SaveAnswers;
  std::deque<YesNo> YesNoAnswers;
  std::deque<std::optional<std::filesystem::path>> Files;
  std::deque<std::optional<ColorRef>> Colors;
  /// Plays the person in front of a dialog; returns what it closed with.
  std::deque<std::function<ControlId(CDialog&)>> Dialogs;

  std::vector<std::string> Calls;
  std::vector<FileRequest> FileRequests;
  std::int32_t Percent = 0;              ///< that the last progress came to
  std::optional<std::int32_t> CancelAt;  ///< percent at which the user cancels
  std::string StatusText;
  std::string Failure;  ///< shown until it is cleared

  ScreenPoint Cursor{500, 400};
  bool CursorPlaceable = true;
  int CursorHidden = 0;  ///< hides without a show yet
  bool ShiftDown = false;

  void ShowMessage(std::string_view text) override;
  SaveAnswer AskSaveChanges(std::string_view name) override;
  YesNo AskYesNo(std::string_view question) override;
  void SetStatusText(std::string_view text) override { StatusText = text; }
  void ShowFailure(std::string_view text) override { Failure = text; }
  void ClearFailure() override { Failure.clear(); }
  std::optional<std::filesystem::path> ChooseFile(const FileRequest& request) override;
  std::optional<ColorRef> ChooseColor(ColorRef initial) override;
  std::unique_ptr<CProgress> ShowProgress(std::string_view text) override;
  ControlId DoModal(CDialog& dialog) override;
  ScreenPoint GetCursorPos() const override { return Cursor; }
  void SetCursorPos(ScreenPoint point) override {
    if (CursorPlaceable) Cursor = point;
  }
  bool CanPlaceCursor() const override { return CursorPlaceable; }
  void ShowCursor(bool visible) override { CursorHidden += visible ? -1 : 1; }
  bool IsShiftDown() const override { return ShiftDown; }
};

/// The window of a view of either kind that counts what it is asked for.
class CFakeViewWindow : public CViewWindow, public CScrollWindow {
 public:
  int Invalidations = 0;
  int Redraws = 0;
  bool Captured = false;
  std::vector<std::string> Titles;
  std::optional<ScreenRect> DragRect;  ///< the frame shown now
  ScreenPoint ScrollSizes{-1, -1};
  std::vector<ScreenRect> ScrolledTo;

  void Invalidate() override { ++Invalidations; }
  void RedrawNow() override { ++Redraws; }
  void SetFrameTitle(std::string_view title) override { Titles.emplace_back(title); }
  void DrawDragRect(const ScreenRect& rect) override { DragRect = rect; }
  void EraseDragRect() override { DragRect.reset(); }
  void SetScrollSizes(std::int32_t width, std::int32_t height) override {
    ScrollSizes = {width, height};
  }
  void ScrollTo(const ScreenRect& part) override { ScrolledTo.push_back(part); }
  void SetCapture() override { Captured = true; }
  void ReleaseCapture() override { Captured = false; }
  bool HasCapture() const override { return Captured; }
};

}  // namespace zando::testing
