#include "views/texture_view.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <string>

#include "document/brush_edits.h"
#include "platform/text.h"

namespace zando {
namespace {

/// Between neighbours, and between a row and the next.
constexpr std::int32_t kGap = 16;
constexpr ColorRef kFrameColor = Rgb(255, 0, 0);

/// Textures can be wider and higher than any picture; what lies so far out is not reached.
std::int32_t Place(std::int64_t value) {
  return static_cast<std::int32_t>(
      std::min<std::int64_t>(value, std::numeric_limits<std::int32_t>::max()));
}

bool Overlap(const ScreenRect& a, const ScreenRect& b) {
  return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

bool IsInside(const ScreenRect& rect, ScreenPoint point) {
  return rect.left < point.x && point.x < rect.right && rect.top < point.y && point.y < rect.bottom;
}

/// A frame of one pixel within the rectangle.
void FrameRect(CDC& dc, const ScreenRect& rect, ColorRef color) {
  const std::int32_t width = rect.right - rect.left;
  const std::int32_t height = rect.bottom - rect.top;
  dc.FillSolidRect(rect.left, rect.top, width, 1, color);
  dc.FillSolidRect(rect.left, rect.bottom - 1, width, 1, color);
  dc.FillSolidRect(rect.left, rect.top, 1, height, color);
  dc.FillSolidRect(rect.right - 1, rect.top, 1, height, color);
}

}  // namespace

ScreenRect CTextureView::PlaceOf(std::int32_t index) const {
  return places_.at(static_cast<std::size_t>(index));
}

std::optional<std::int32_t> CTextureView::TextureAt(ScreenPoint point) const {
  const auto found = std::find_if(places_.begin(), places_.end(), [point](const ScreenRect& place) {
    return IsInside(place, point);
  });
  if (found == places_.end()) return std::nullopt;
  return static_cast<std::int32_t>(found - places_.begin());
}

void CTextureView::OnInitialUpdate() {
  if (window_ != nullptr) window_->SetFrameTitle(kFrameTitle);
  const auto used = std::find_if(Textures().begin(), Textures().end(), [&](const Texture& texture) {
    return EqualIgnoringCase(texture.name, document_.CurrentBrush().Name);
  });
  if (used != Textures().end()) {
    selected_ = static_cast<std::int32_t>(used - Textures().begin());
  }
}

bool CTextureView::IsSelectionSeen() const {
  return !seen_ || (!places_.empty() && Overlap(PlaceOf(selected_), *seen_));
}

void CTextureView::OnSize(std::int32_t clientWidth) {
  const bool isSelectionSeen = IsSelectionSeen();
  std::int64_t x = 0;
  std::int64_t y = 0;
  std::int64_t rowHeight = 0;
  std::int64_t totalWidth = 0;
  const auto endRow = [&] {
    totalWidth = std::max(totalWidth, x);
    y += rowHeight + kGap;
    x = 0;
    rowHeight = 0;
  };
  places_.clear();
  for (const Texture& texture : Textures()) {
    places_.push_back({Place(x), Place(y), Place(x + texture.width), Place(y + texture.height)});
    x += std::int64_t{texture.width} + kGap;
    rowHeight = std::max<std::int64_t>(rowHeight, texture.height);
    if (x > clientWidth) endRow();
  }
  if (x > 0) endRow();
  size_ = {Place(totalWidth), Place(y)};
  if (window_ == nullptr) return;
  window_->SetScrollSizes(size_.x, size_.y);
  if (isSelectionSeen && !places_.empty()) window_->ScrollTo(PlaceOf(selected_));
  window_->Invalidate();
}

void CTextureView::OnDraw(CDC& dc, const ScreenRect& visible) {
  seen_ = visible;
  if (places_.empty()) return;
  dc.SetViewportOrg({-visible.left, -visible.top});
  for (std::size_t i = 0; i < places_.size(); ++i) {
    const ScreenRect& place = places_[i];
    if (!Overlap(place, visible)) continue;
    Textures()[i].surface.Present(dc, {place.left, place.top});
  }
  const ScreenRect selected = PlaceOf(selected_);
  if (Overlap(selected, visible)) FrameRect(dc, selected, kFrameColor);
}

void CTextureView::OnLeftButtonUp(ScreenPoint point) {
  const auto index = TextureAt(point);
  if (!index) return;
  // A texture that the edge of the window cuts comes into sight whole.
  if (window_ != nullptr) window_->ScrollTo(PlaceOf(*index));
  Select(*index);
  UseSelected();
}

void CTextureView::Select(std::int32_t index) {
  selected_ = index;
  if (window_ != nullptr) window_->RedrawNow();
}

void CTextureView::UseSelected() {
  if (Textures().empty()) return;
  const Texture& texture = Textures()[static_cast<std::size_t>(selected_)];
  desktop_.SetStatusText("Texture of the current brush: " + texture.name);
  SetBrushName(document_, texture.name);
}

void CTextureView::MoveSelection(Step step) {
  if (places_.empty()) return;
  const std::int32_t index = NeighbourOf(selected_, step);
  if (window_ != nullptr) window_->ScrollTo(PlaceOf(index));
  Select(index);
}

std::int32_t CTextureView::NeighbourOf(std::int32_t index, Step step) const {
  const auto last = static_cast<std::int32_t>(places_.size()) - 1;
  const ScreenRect place = PlaceOf(index);
  const auto inRow = [row = place.top](const ScreenRect& other) { return other.top == row; };
  switch (step) {
    case Step::Left:
      return std::max(index - 1, 0);
    case Step::Right:
      return std::min(index + 1, last);
    case Step::First:
      return 0;
    case Step::Last:
      return last;
    case Step::Up: {
      const auto first = std::find_if(places_.begin(), places_.end(), inRow);
      return first == places_.begin() ? index : NearestInRow(std::prev(first)->top, place.left);
    }
    case Step::Down:
      break;
  }
  const auto next = std::find_if_not(places_.begin() + index, places_.end(), inRow);
  return next == places_.end() ? index : NearestInRow(next->top, place.left);
}

std::int32_t CTextureView::NearestInRow(std::int32_t row, std::int32_t x) const {
  const auto distance = [row, x](const ScreenRect& place) {
    return place.top != row ? std::numeric_limits<std::int32_t>::max() : std::abs(place.left - x);
  };
  const auto nearest = std::min_element(
      places_.begin(), places_.end(),
      [&](const ScreenRect& a, const ScreenRect& b) { return distance(a) < distance(b); });
  return static_cast<std::int32_t>(nearest - places_.begin());
}

}  // namespace zando
