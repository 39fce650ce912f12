#include "views/solid_renderer.h"

#include <algorithm>
#include <cstddef>
#include <new>

namespace zando {

bool CSolidRenderer::SetViewport(std::int32_t width, std::int32_t height,
                                 const ColorTable& colors) {
  if (!surface_.Create(width, height, colors)) return false;
  try {
    spans_.ResetSpans(width, height);
  } catch (const std::bad_alloc&) {
    surface_.Delete();
    return false;
  }
  return true;
}

void CSolidRenderer::Render(const CCamera& camera, const CConstructiveBsp& world, RenderMode mode) {
  if (!surface_.IsValid()) return;
  spans_.ResetSpans(surface_.Width(), surface_.Height());
  drawn_ = 0;
  const auto draw = [&](const CBspNode* node) {
    DrawNode(camera, node);
    return spans_.ScreenFull();
  };
  WalkFrontToBack(world.root, camera.Position, stack_, draw);
  std::ranges::fill(surface_.Pixels(), std::uint8_t{0});
  if (mode == RenderMode::Solid) FillSpans();
}

void CSolidRenderer::DrawNode(const CCamera& camera, const CBspNode* node) {
  for (; node != nullptr; node = node->chain) {
    if (node->nValid == 0) continue;
    ++drawn_;
    const CProjectedPoly projected = camera.ProjectPolygon(node->polygon);
    if (projected.count >= 3) converter_.ScanConvert(projected, node->Face(), spans_);
  }
}

void CSolidRenderer::FillSpans() {
  const auto width = static_cast<std::size_t>(surface_.Width());
  std::uint8_t* pixels = surface_.Pixels().data();
  for (const Span& span : spans_.Spans()) {
    std::uint8_t* row = pixels + static_cast<std::size_t>(span.y) * width;
    std::fill(row + span.x0, row + span.x1, static_cast<std::uint8_t>(span.color));
  }
}

}  // namespace zando
