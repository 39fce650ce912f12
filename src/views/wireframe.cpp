#include "views/wireframe.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace zando {
namespace {

constexpr ColorRef kFineGrid = Rgb(140, 140, 140);
constexpr ColorRef kCoarseGrid = Rgb(190, 190, 190);
constexpr ColorRef kWorldAxes = Rgb(250, 250, 250);
constexpr ColorRef kCurrentOutline = Rgb(0, 0, 255);
constexpr ColorRef kCurrentHandles = Rgb(255, 0, 0);
constexpr ColorRef kSelected = Rgb(0, 255, 255);

constexpr std::int32_t kSelectedWidth = 2;
constexpr std::int32_t kEntityWidth = 2;
constexpr std::int32_t kHandleSize = 4;

/// Spacings, in pixels, up to which a grid is not drawn.
constexpr double kLeastFineSpacing = 20.0;
constexpr double kLeastCoarseSpacing = 30.0;

/// How far the world axes reach from the centre, in pixels.
constexpr double kAxisReach = 32000.0;

/// Half the size of an entity's cross, in map units along each axis.
constexpr double kEntityMarker = 8.0;

/// Grid lines are counted in 64 bits, and no farther than doubles count whole numbers.
std::int64_t Truncate(double value) {
  constexpr double kLimit = 9.0e15;
  if (std::isnan(value)) return 0;
  return static_cast<std::int64_t>(std::clamp(value, -kLimit, kLimit));
}

void DrawLine(CDC& dc, ScreenPoint from, ScreenPoint to) {
  dc.MoveTo(from);
  dc.LineTo(to);
}

/// What the grid of one paint is made of; places are relative to the centre of the camera, where
/// those of brushes are.
struct Grid {
  CDC& dc;
  double zoom;
  double size;         ///< map units
  double across;       ///< the camera along the view's horizontal axis
  double up;           ///< and along its vertical axis
  ScreenPoint centre;  ///< also how far the window reaches from there
};

/// Indices of the grid lines that fall into the window along one axis.
struct LineRange {
  std::int64_t first;
  std::int64_t last;
};

LineRange VisibleLines(const Grid& grid, double camera, std::int32_t half) {
  const double reach = half / grid.zoom;
  return {Truncate((camera - reach) / grid.size), Truncate((camera + reach) / grid.size)};
}

void DrawLines(const Grid& grid, ColorRef color, std::int64_t step) {
  const Pen before = grid.dc.SelectPen({color, 1});
  const auto first = [step](const LineRange& lines) { return lines.first - lines.first % step; };
  const LineRange vertical = VisibleLines(grid, grid.across, grid.centre.x);
  for (std::int64_t i = first(vertical); i <= vertical.last; i += step) {
    const double place = static_cast<double>(i) * grid.size - grid.across;
    const std::int32_t x = TruncateToPixel(place * grid.zoom);
    DrawLine(grid.dc, {x, -grid.centre.y}, {x, grid.centre.y});
  }
  const LineRange horizontal = VisibleLines(grid, grid.up, grid.centre.y);
  for (std::int64_t i = first(horizontal); i <= horizontal.last; i += step) {
    const double place = grid.up - static_cast<double>(i) * grid.size;
    const std::int32_t y = TruncateToPixel(place * grid.zoom);
    DrawLine(grid.dc, {-grid.centre.x, y}, {grid.centre.x, y});
  }
  grid.dc.SelectPen(before);
}

void DrawAxes(const Grid& grid) {
  const std::int32_t reach = TruncateToPixel(grid.zoom > 1.0 ? kAxisReach / grid.zoom : kAxisReach);
  const std::int32_t x = TruncateToPixel(-grid.zoom * grid.across);
  const std::int32_t y = TruncateToPixel(grid.zoom * grid.up);
  const Pen before = grid.dc.SelectPen({kWorldAxes, 1});
  DrawLine(grid.dc, {x, -reach}, {x, reach});
  DrawLine(grid.dc, {-reach, y}, {reach, y});
  grid.dc.SelectPen(before);
}

void DrawHandle(CDC& dc, ScreenPoint point, ColorRef color) {
  dc.FillSolidRect(point.x - kHandleSize / 2, point.y - kHandleSize / 2, kHandleSize, kHandleSize,
                   color);
}

void DrawPolygonInPerspective(const ViewDrawing& drawing, const CZandoPoly& polygon,
                              ColorRef handles) {
  const CProjectedPoly projected = drawing.camera.ProjectPolygon(polygon);
  if (projected.count < 3) return;
  std::array<ScreenPoint, CProjectedPoly::kCapacity> points;
  std::transform(projected.Points().begin(), projected.Points().end(), points.begin(),
                 [](const CProjectedPoly::Point& point) {
                   return ScreenPoint{TruncateToPixel(point.x), TruncateToPixel(point.y)};
                 });
  const auto count = static_cast<std::size_t>(projected.count);
  drawing.dc.MoveTo(points[0]);
  for (std::size_t i = 1; i < count; ++i) drawing.dc.LineTo(points[i]);
  drawing.dc.LineTo(points[0]);
  for (std::size_t i = 0; i < count; ++i) DrawHandle(drawing.dc, points[i], handles);
}

void DrawPolygonFlat(const ViewDrawing& drawing, const CZandoPoly& polygon, ColorRef handles) {
  std::array<ScreenPoint, MAX_POLY_VERTS> points;
  const auto count = static_cast<std::size_t>(polygon.count);
  std::transform(polygon.Vertices().begin(), polygon.Vertices().end(), points.begin(),
                 [&](const Vector& vertex) { return drawing.camera.WorldToScreen(vertex); });
  const std::span<const ScreenPoint> used(points.data(), count);
  drawing.dc.Polyline(used);
  for (const ScreenPoint& point : used) DrawHandle(drawing.dc, point, handles);
}

void DrawBrush(const ViewDrawing& drawing, const CZandoBrush& brush, ColorRef outline,
               ColorRef handles) {
  if (!brush.IsShown()) return;
  const bool selected = brush.IsSelected();
  const Pen pen = selected ? Pen{kSelected, kSelectedWidth} : Pen{outline, 1};
  const Pen before = drawing.dc.SelectPen(pen);
  for (const CZandoPoly& polygon : brush.WorldPolys()) {
    if (IsOrthographic(drawing.camera.Kind())) {
      DrawPolygonFlat(drawing, polygon, selected ? kSelected : handles);
    } else {
      DrawPolygonInPerspective(drawing, polygon, selected ? kSelected : handles);
    }
  }
  drawing.dc.SelectPen(before);
}

void DrawEntity(const ViewDrawing& drawing, const CEntity& entity, ColorRef color) {
  if (entity.eStyle != 0 || !entity.IsShown()) return;
  const ScreenPoint centre = drawing.camera.WorldToScreen(entity.WorkOrigin);
  if (!drawing.dc.PtVisible(centre)) return;
  const Vector corner = entity.WorkOrigin + Vector{kEntityMarker, kEntityMarker, kEntityMarker};
  const std::int32_t d = drawing.camera.WorldToScreen(corner).x - centre.x;
  const Pen before = drawing.dc.SelectPen({entity.IsSelected() ? kSelected : color, kEntityWidth});
  DrawLine(drawing.dc, {centre.x - d, centre.y - d}, {centre.x + d, centre.y + d});
  DrawLine(drawing.dc, {centre.x - d, centre.y + d}, {centre.x + d, centre.y - d});
  drawing.dc.SelectPen(before);
}

}  // namespace

void DrawGrid(const ViewDrawing& drawing, const CZANDODoc& document) {
  if (!IsOrthographic(drawing.camera.Kind())) return;
  const CCamera& camera = drawing.camera;
  const ViewAxes& axes = AxesOf(camera.Kind());
  const EditingState& state = document.State();
  const Grid grid{drawing.dc,
                  camera.Zoom(),
                  state.GridSize,
                  camera.Position.*axes.across,
                  camera.Position.*axes.up,
                  camera.Centre()};
  const ScreenPoint before = drawing.dc.SetViewportOrg(grid.centre);
  const double spacing = grid.zoom * grid.size;
  if (state.ShowFineGrid != 0 && spacing > kLeastFineSpacing) DrawLines(grid, kFineGrid, 1);
  if (state.ShowCoarseGrid != 0 && spacing * 10.0 > kLeastCoarseSpacing) {
    DrawLines(grid, kCoarseGrid, 10);
  }
  DrawAxes(grid);
  drawing.dc.SetViewportOrg(before);
}

void DrawBrushes(const ViewDrawing& drawing, const CZANDODoc& document) {
  for (const CZandoBrush& brush : document.GetLevel().BrushList) {
    if (brush.BBid == document.State().CurrentBrush) continue;
    DrawBrush(drawing, brush, brush.Color, brush.Color);
  }
}

void DrawEntities(const ViewDrawing& drawing, const CZANDODoc& document) {
  const CEntList& entities = document.GetLevel().Entities;
  for (std::size_t i = 0; i < entities.size(); ++i) {
    const CEntity& entity = entities[i];
    const bool current = static_cast<std::int32_t>(i) == document.State().CurrentEntity;
    DrawEntity(drawing, entity, current ? kCurrentHandles : entity.Color);
  }
}

void DrawCurrentBrush(const ViewDrawing& drawing, const CZANDODoc& document) {
  const CZandoBrush& brush = document.CurrentBrush();
  DrawBrush(drawing, brush, kCurrentOutline, kCurrentHandles);
  DrawHandle(drawing.dc, drawing.camera.WorldToScreen(brush.WorldOrigin()), kCurrentHandles);
}

}  // namespace zando
