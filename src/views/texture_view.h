#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/desktop.h"
#include "platform/draw_context.h"
#include "views/child_view.h"

namespace zando {

/// The texture browser: every texture of a level's archive at its full size, in rows from left to
/// right, with a frame around the selected one. Places are pixels from the top left corner of all
/// rows, wherever the window has scrolled to. The window calls the On... operations and is called
/// back through CScrollWindow.
class CTextureView : public CChildView {
 public:
  static constexpr std::string_view kFrameTitle = "-Textures-";

  CTextureView(CZANDODoc& document, CDesktop& desktop) : CChildView(document), desktop_(desktop) {}

  /// The window must outlive the view, or be taken back with null.
  void SetWindow(CScrollWindow* window) { window_ = window; }

  /// Index of the selected texture, even if there are none: that of the current brush when the view
  /// opens, 0 when the archive has no texture of this name.
  [[nodiscard]] std::int32_t Selected() const { return selected_; }

  /// Width and height of all rows; zero without textures.
  [[nodiscard]] ScreenPoint TotalSize() const { return size_; }

  /// Where the texture with this index lies; it must exist.
  [[nodiscard]] ScreenRect PlaceOf(std::int32_t index) const;

  /// The texture that the point lies in, its edges excluded.
  [[nodiscard]] std::optional<std::int32_t> TextureAt(ScreenPoint point) const;

  /// Nothing of the level but its archive is shown here, and that stays the same.
  void OnUpdate(const CView* /*sender*/, int /*hint*/) override {}
  void OnInitialUpdate() override;
  void OnActivate(Activation /*activation*/) override {}

  /// Arranges the rows anew for a window that is so wide. The selection stays, also in sight.
  void OnSize(std::int32_t clientWidth);

  /// Draws what lies in this part of the rows, whose top left corner comes to the point 0, 0. The
  /// background is black already.
  void OnDraw(CDC& dc, const ScreenRect& visible);

  /// Selects the texture at the point, if there is one, scrolls until it is seen whole and gives
  /// its name to the current brush.
  void OnLeftButtonUp(ScreenPoint point);

  enum class Step { Left, Right, Up, Down, First, Last };
  /// Selects a neighbour, without giving its name to a brush, and scrolls to it. At the end of the
  /// rows the selection stays.
  void MoveSelection(Step step);

  /// Gives the name of the selected texture, if there is one, to the current brush.
  void UseSelected();

 private:
  void Select(std::int32_t index);
  [[nodiscard]] bool IsSelectionSeen() const;
  [[nodiscard]] const std::vector<Texture>& Textures() const {
    return document_.Textures().Textures();
  }
  [[nodiscard]] std::int32_t NeighbourOf(std::int32_t index, Step step) const;
  [[nodiscard]] std::int32_t NearestInRow(std::int32_t row, std::int32_t x) const;

  CDesktop& desktop_;
  CScrollWindow* window_ = nullptr;
  std::vector<ScreenRect> places_;  ///< of the textures, in their order
  ScreenPoint size_;                ///< width and height of all rows
  std::int32_t selected_ = 0;
  std::optional<ScreenRect> seen_;  ///< what was drawn last
};

}  // namespace zando
