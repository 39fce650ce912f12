#pragma once

#include <optional>

#include "desktop/pointer.h"
#include "platform/desktop.h"

namespace zando {

class CQtMainWindow;

/// The common services of the desktop, on Qt.
class CQtDesktop : public CDesktop {
 public:
  explicit CQtDesktop(CQtMainWindow& window) : window_(window) {}
  CQtDesktop(const CQtDesktop&) = delete;
  CQtDesktop& operator=(const CQtDesktop&) = delete;
  ~CQtDesktop() override;

  void ShowMessage(std::string_view text) override;
  [[nodiscard]] SaveAnswer AskSaveChanges(std::string_view name) override;
  [[nodiscard]] YesNo AskYesNo(std::string_view question) override;
  void SetStatusText(std::string_view text) override;
  void ShowFailure(std::string_view text) override;
  void ClearFailure() override;
  [[nodiscard]] std::unique_ptr<CProgress> ShowProgress(std::string_view text) override;
  [[nodiscard]] std::optional<std::filesystem::path> ChooseFile(
      const FileRequest& request) override;
  [[nodiscard]] std::optional<ColorRef> ChooseColor(ColorRef initial) override;
  ControlId DoModal(CDialog& dialog) override;
  [[nodiscard]] ScreenPoint GetCursorPos() const override;
  void SetCursorPos(ScreenPoint point) override;
  [[nodiscard]] bool CanPlaceCursor() const override { return canPlaceCursor_; }
  void ShowCursor(bool visible) override;
  [[nodiscard]] bool IsShiftDown() const override;

 private:
  CQtMainWindow& window_;
  CPointer pointer_;
  bool canPlaceCursor_ = PlatformPlacesCursor();
  bool cursorHidden_ = false;

  [[nodiscard]] static bool PlatformPlacesCursor();
};

}  // namespace zando
