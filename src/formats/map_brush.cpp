#include "formats/map_brush.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

#include "geometry/bounds.h"
#include "geometry/plane.h"
#include "geometry/polygon.h"

namespace zando {
namespace {

/// No coordinate of a level is larger.
constexpr double kFarthest = std::numeric_limits<std::int32_t>::max();

/// A base polygon reaches at least this far from its middle, whichever way its plane leans.
constexpr double kSureReach = 5700.0;

/// How far base polygons reach at most while the place of a brush is looked for, in steps of the
/// ordinary reach: first for brushes of any likely size, then for any at all.
constexpr double kSearchScales[] = {64.0, 4194304.0};

/// Normals that differ less are those of one plane, where the points agree.
constexpr double kSameNormal = 1e-6;

/// How far a vertex lies at most from the whole numbers that it was written with.
constexpr double kSamePoint = 0.9;

/// Where base polygons lie, and how many times the ordinary reach they have.
struct Frame {
  Vector middle{0.0, 0.0, 0.0};
  double scale = 1.0;
};

/// A plane of the brush and what is left of its base polygon.
struct Face {
  std::size_t source;  ///< index of the plane in the file's brush
  Plane plane;
  CZandoPoly polygon;
  PlaneFault fault = PlaneFault::Outside;
  bool kept = false;
};

enum class Trimmed { Kept, Dropped, Refused };

bool IsInRange(const MapPlane& plane) {
  return std::ranges::all_of(plane.points, [](const Vector& point) {
    return std::fabs(point.x) <= kFarthest && std::fabs(point.y) <= kFarthest &&
           std::fabs(point.z) <= kFarthest;
  });
}

bool IsPlane(const Plane& plane) {
  return IsFinite(plane.normal) && std::isfinite(plane.d) &&
         std::fabs(Length(plane.normal) - 1.0) < kSameNormal;
}

Plane PlaneOf(const MapPlane& line) {
  CZandoPoly polygon;
  for (const Vector& point : line.points) polygon.Append(point);
  return ComputePlane(polygon);
}

CZandoPoly BasePolygon(const Plane& plane, const Frame& frame) {
  CZandoPoly polygon =
      BasePolygonForPlane({plane.normal, SignedDistance(plane, frame.middle) / frame.scale});
  for (Vector& vertex : polygon.Vertices()) vertex = frame.middle + vertex * frame.scale;
  return polygon;
}

/// Makes the vertex that a plane line names first, if it names one, the first of the polygon, so
/// that the line is written again as it was read.
void StartAt(const Vector& point, CZandoPoly& polygon) {
  const auto vertices = polygon.Vertices();
  const auto distance = [&](const Vector& vertex) { return Length(vertex - point); };
  const auto nearest = std::ranges::min_element(vertices, {}, distance);
  if (distance(*nearest) < kSamePoint) {
    std::rotate(vertices.begin(), nearest, vertices.end());
  }
}

/// Builds the faces of one brush.
class CFaceBuilder {
 public:
  explicit CFaceBuilder(const MapBrush& source) : source_(source) {}

  MapBrushResult Build(CZandoBrush& brush);

 private:
  BrushFault TakePlanes();
  BrushFault MakeFaces();
  [[nodiscard]] Frame FindFrame();
  bool TrimAll(const Frame& frame);
  bool TrimWhole(const Frame& frame);
  Trimmed TrimFace(std::size_t index, const Frame& frame);
  [[nodiscard]] bool IsDuplicate(std::size_t index, std::size_t other) const;
  [[nodiscard]] bool IsWhole(const Frame& frame) const;
  [[nodiscard]] static bool IsWhole(const Face& face, const Frame& frame);
  [[nodiscard]] bool AnyOutside() const;
  [[nodiscard]] Bounds KeptBounds() const;
  [[nodiscard]] Vector MiddleOfPoints() const;
  void FillBrush(CZandoBrush& brush);
  void CoverFaces(CZandoBrush& brush) const;
  [[nodiscard]] std::string_view MostFrequentTexture() const;

  const MapBrush& source_;
  std::vector<Face> faces_;
  MapBrushResult result_;
};

MapBrushResult CFaceBuilder::Build(CZandoBrush& brush) {
  result_.fault = TakePlanes();
  if (result_.fault == BrushFault::None) result_.fault = MakeFaces();
  if (result_.fault != BrushFault::None) return std::move(result_);
  FillBrush(brush);
  const bool isSolid = !brush.Polys().empty() && brush.HasVolume();
  const bool lacksPlane =
      !result_.faceless.empty() && result_.faceless.front().fault == PlaneFault::NoPlane;
  if (lacksPlane && (!isSolid || result_.open)) {
    result_.fault = BrushFault::NoPlane;
  } else if (!isSolid) {
    result_.fault = BrushFault::NoVolume;
  }
  return std::move(result_);
}

BrushFault CFaceBuilder::TakePlanes() {
  if (source_.planeCount > kMostPlanes) return BrushFault::TooManyPlanes;
  if (!std::ranges::all_of(source_.planes, IsInRange)) return BrushFault::OutOfRange;
  faces_.reserve(source_.planes.size());
  for (std::size_t i = 0; i < source_.planes.size(); ++i) {
    const Plane plane = PlaneOf(source_.planes[i]);
    if (IsPlane(plane)) {
      faces_.push_back({.source = i, .plane = plane, .polygon = {}});
    } else {
      result_.faceless.push_back({i, PlaneFault::NoPlane});
    }
  }
  return BrushFault::None;
}

BrushFault CFaceBuilder::MakeFaces() {
  const Frame ordinary;
  if (!TrimAll(ordinary)) return BrushFault::TooManyVertices;
  if (!AnyOutside() && IsWhole(ordinary)) return BrushFault::None;
  const Frame frame = FindFrame();
  return TrimAll(frame) ? BrushFault::None : BrushFault::TooManyVertices;
}

/// Where the base polygons of a brush must lie that those about the origin may not hold. An open
/// brush keeps those.
Frame CFaceBuilder::FindFrame() {
  for (const double scale : kSearchScales) {
    const Frame wide{MiddleOfPoints(), scale};
    if (!TrimWhole(wide)) continue;
    const Bounds bounds = KeptBounds();
    if (bounds.IsEmpty()) return {};
    const auto& [low, high] = bounds;
    const double reach = std::max({std::fabs(low.x), std::fabs(low.y), std::fabs(low.z),
                                   std::fabs(high.x), std::fabs(high.y), std::fabs(high.z)});
    if (reach * std::sqrt(3.0) <= kSureReach) return {};
    const double half = Length(high - low) / 2.0;
    return {(low + high) * 0.5, std::max(1.0, half / kSureReach)};
  }
  result_.open = true;
  return {};
}

/// False when a face would need too many vertices.
bool CFaceBuilder::TrimAll(const Frame& frame) {
  for (std::size_t i = 0; i < faces_.size(); ++i) {
    const Trimmed trimmed = TrimFace(i, frame);
    if (trimmed == Trimmed::Refused) return false;
    faces_[i].kept = trimmed == Trimmed::Kept;
  }
  return true;
}

/// TrimAll up to the first face that is not whole, or cannot be made: then false.
bool CFaceBuilder::TrimWhole(const Frame& frame) {
  for (std::size_t i = 0; i < faces_.size(); ++i) {
    const Trimmed trimmed = TrimFace(i, frame);
    faces_[i].kept = trimmed == Trimmed::Kept;
    if (trimmed == Trimmed::Refused || !IsWhole(faces_[i], frame)) return false;
  }
  return true;
}

Trimmed CFaceBuilder::TrimFace(std::size_t index, const Frame& frame) {
  Face& face = faces_[index];
  face.polygon = BasePolygon(face.plane, frame);
  CZandoPoly back;
  for (std::size_t other = 0; other < faces_.size(); ++other) {
    if (other == index) continue;
    const Plane& plane = faces_[other].plane;
    switch (ClassifyPolygon(plane, face.polygon)) {
      case PolygonClass::Back:
        break;
      case PolygonClass::Spanning:
        if (SplitPolygon(plane, face.polygon, back) == SplitResult::Refused) {
          return Trimmed::Refused;
        }
        face.polygon = back;
        break;
      case PolygonClass::CoplanarSame:
        if (!IsDuplicate(index, other)) break;
        face.fault = PlaneFault::Duplicate;
        return Trimmed::Dropped;
      case PolygonClass::Front:
      case PolygonClass::CoplanarOpposite:
        face.fault = PlaneFault::Outside;
        return Trimmed::Dropped;
    }
  }
  return Trimmed::Kept;
}

bool CFaceBuilder::IsDuplicate(std::size_t index, std::size_t other) const {
  return other < index &&
         Length(faces_[index].plane.normal - faces_[other].plane.normal) < kSameNormal;
}

bool CFaceBuilder::AnyOutside() const {
  return std::ranges::any_of(
      faces_, [](const Face& face) { return !face.kept && face.fault == PlaneFault::Outside; });
}

/// Whether no face reaches the border of its base polygon.
bool CFaceBuilder::IsWhole(const Frame& frame) const {
  return std::ranges::all_of(faces_, [&](const Face& face) { return IsWhole(face, frame); });
}

bool CFaceBuilder::IsWhole(const Face& face, const Frame& frame) {
  if (!face.kept) return true;
  const Vector middle = frame.middle - face.plane.normal * SignedDistance(face.plane, frame.middle);
  return std::ranges::all_of(face.polygon.Vertices(), [&](const Vector& vertex) {
    return Length(vertex - middle) < kSureReach * frame.scale;
  });
}

Bounds CFaceBuilder::KeptBounds() const {
  Bounds bounds;
  for (const Face& face : faces_) {
    if (!face.kept) continue;
    for (const Vector& vertex : face.polygon.Vertices()) bounds.Include(vertex);
  }
  return bounds;
}

Vector CFaceBuilder::MiddleOfPoints() const {
  Bounds bounds;
  for (const Face& face : faces_) {
    for (const Vector& point : source_.planes[face.source].points) bounds.Include(point);
  }
  return bounds.IsEmpty() ? Vector{0.0, 0.0, 0.0} : (bounds.low + bounds.high) * 0.5;
}

void CFaceBuilder::FillBrush(CZandoBrush& brush) {
  for (const Face& face : faces_) {
    if (!face.kept) result_.faceless.push_back({face.source, face.fault});
  }
  std::erase_if(faces_, [](const Face& face) { return !face.kept; });
  if (const std::string_view name = MostFrequentTexture(); !name.empty()) brush.Name = name;
  // The export of a brush writes its last face first.
  std::ranges::reverse(faces_);
  brush.SetPolyCount(0);
  brush.ReservePolys(faces_.size());
  for (Face& face : faces_) {
    StartAt(source_.planes[face.source].points[0], face.polygon);
    brush.AppendPoly(face.polygon);
  }
  CoverFaces(brush);
}

void CFaceBuilder::CoverFaces(CZandoBrush& brush) const {
  auto covered = brush.Faces.begin();
  for (const Face& face : faces_) {
    const MapPlane& line = source_.planes[face.source];
    const auto [x, y, rotation, scaleX, scaleY] = line.numbers;
    FaceSurface surface{std::string(line.texture), x, y, rotation, scaleX, scaleY};
    const bool usual = surface == FaceSurface{.texture = brush.Name};
    if (!line.texture.empty() && !usual) covered->surface = std::move(surface);
    ++covered;
  }
}

std::string_view CFaceBuilder::MostFrequentTexture() const {
  const auto textureOf = [this](const Face& face) { return source_.planes[face.source].texture; };
  std::string_view most;
  std::ptrdiff_t best = 0;
  for (const Face& face : faces_) {
    const std::string_view texture = textureOf(face);
    const std::ptrdiff_t count = std::ranges::count(faces_, texture, textureOf);
    if (count <= best || texture.empty()) continue;
    best = count;
    most = texture;
  }
  return most;
}

}  // namespace

MapBrushResult BuildMapBrush(const MapBrush& source, CZandoBrush& brush) {
  return CFaceBuilder(source).Build(brush);
}

}  // namespace zando
