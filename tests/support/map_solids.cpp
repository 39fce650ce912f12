#include "support/map_solids.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>

#include "geometry/plane.h"

namespace zando::testing {
namespace {

constexpr std::string_view kPlaneTail = " 0 0 0 1.000000 1.000000";

/// Reads the lines of a map, each ended by CR LF. Sets `failed` at the first thing out of place.
class CMapParser {
 public:
  explicit CMapParser(std::string_view text) : rest_(text) {}

  bool failed = false;

  [[nodiscard]] bool AtEnd() const { return rest_.empty(); }

  MapEntity Entity() {
    MapEntity entity;
    Expect("{\r\n");
    while (!failed && rest_.starts_with('"')) entity.pairs.push_back(Pair());
    while (!failed && rest_.starts_with('{')) entity.brushes.push_back(Brush());
    Expect("}\r\n");
    return entity;
  }

 private:
  void Expect(std::string_view token) {
    failed = failed || !rest_.starts_with(token);
    if (!failed) rest_.remove_prefix(token.size());
  }

  std::string Until(char end) {
    const std::size_t length = std::min(rest_.find(end), rest_.size());
    std::string result(rest_.substr(0, length));
    rest_.remove_prefix(length);
    return result;
  }

  EntityPair Pair() {
    EntityPair pair;
    Expect("\"");
    pair.key = Until('"');
    Expect("\"");
    while (rest_.starts_with(' ') || rest_.starts_with('\t')) rest_.remove_prefix(1);
    Expect("\"");
    pair.value = Until('"');
    Expect("\"\r\n");
    return pair;
  }

  MapBrush Brush() {
    MapBrush brush;
    Expect("{\r\n");
    while (!failed && rest_.starts_with('(')) brush.push_back(PlaneLine());
    Expect("}\r\n");
    return brush;
  }

  MapPlane PlaneLine() {
    MapPlane plane;
    for (Vector& point : plane.points) {
      Expect("( ");
      point.x = Number();
      point.z = Number();
      point.y = Number();
      Expect(") ");
    }
    plane.texture = Until(' ');
    Expect(kPlaneTail);
    Expect("\r\n");
    return plane;
  }

  double Number() {
    int value = 0;
    const auto result = std::from_chars(rest_.data(), rest_.data() + rest_.size(), value);
    failed = failed || result.ec != std::errc();
    rest_.remove_prefix(static_cast<std::size_t>(result.ptr - rest_.data()));
    Expect(" ");
    return value;
  }

  std::string_view rest_;
};

/// The level's axes are the map's mirrored, so a normal that points outward turns the other way
/// round here than in the game.
Plane PlaneOf(const MapPlane& line) {
  const auto& [a, b, c] = line.points;
  const Vector normal = Normalised(Cross(b - a, c - a));
  return {normal, -Dot(normal, a)};
}

/// Not finite when the planes do not meet in one point.
Vector Meet(const Plane& a, const Plane& b, const Plane& c) {
  const double volume = Dot(a.normal, Cross(b.normal, c.normal));
  if (std::fabs(volume) < 1e-9) {
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    return {none, none, none};
  }
  const Vector sum = Cross(b.normal, c.normal) * a.d + Cross(c.normal, a.normal) * b.d +
                     Cross(a.normal, b.normal) * c.d;
  return sum * (-1.0 / volume);
}

constexpr double kNear = 1e-6;

bool IsBehindAll(const std::vector<Plane>& planes, const Vector& point) {
  return std::all_of(planes.begin(), planes.end(),
                     [&](const Plane& p) { return SignedDistance(p, point) <= kNear; });
}

/// Twice the area of the convex face that the points in a plane span, along the plane's normal.
Vector DoubleArea(const Plane& plane, std::vector<Vector> points) {
  if (points.size() < 3) return {0.0, 0.0, 0.0};
  Vector centre{0.0, 0.0, 0.0};
  for (const Vector& point : points) centre = centre + point * (1.0 / double(points.size()));
  const Vector u = Normalised(points[0] - centre);
  const Vector v = Cross(plane.normal, u);
  const auto angle = [&](const Vector& p) {
    return std::atan2(Dot(p - centre, v), Dot(p - centre, u));
  };
  std::sort(points.begin(), points.end(),
            [&](const Vector& a, const Vector& b) { return angle(a) < angle(b); });
  Vector sum{0.0, 0.0, 0.0};
  for (std::size_t i = 0; i < points.size(); ++i) {
    sum = sum + Cross(points[i] - centre, points[(i + 1) % points.size()] - centre);
  }
  return sum;
}

}  // namespace

std::optional<std::vector<MapEntity>> ParseMap(std::string_view text) {
  CMapParser parser(text);
  std::vector<MapEntity> entities;
  while (!parser.AtEnd()) {
    entities.push_back(parser.Entity());
    if (parser.failed) return std::nullopt;
  }
  return entities;
}

MapSolid SolidOf(const MapBrush& brush) {
  std::vector<Plane> planes;
  for (const MapPlane& line : brush) planes.push_back(PlaneOf(line));

  MapSolid solid;
  for (std::size_t a = 0; a < planes.size(); ++a) {
    for (std::size_t b = a + 1; b < planes.size(); ++b) {
      for (std::size_t c = b + 1; c < planes.size(); ++c) {
        const Vector point = Meet(planes[a], planes[b], planes[c]);
        const bool known =
            std::any_of(solid.vertices.begin(), solid.vertices.end(),
                        [&](const Vector& other) { return Length(other - point) < kNear; });
        if (!known && IsBehindAll(planes, point)) solid.vertices.push_back(point);
      }
    }
  }

  // The faces of a closed solid balance one another; where the solid is open, one is missing.
  Vector balance{0.0, 0.0, 0.0};
  double area = 0.0;
  for (std::size_t i = 0; i < planes.size(); ++i) {
    const Plane& plane = planes[i];
    const bool repeated = std::any_of(planes.begin(), planes.begin() + std::ptrdiff_t(i),
                                      [&plane](const Plane& earlier) {
                                        return Length(earlier.normal - plane.normal) < kNear &&
                                               std::fabs(earlier.d - plane.d) < kNear;
                                      });
    if (repeated) continue;
    std::vector<Vector> points;
    std::copy_if(solid.vertices.begin(), solid.vertices.end(), std::back_inserter(points),
                 [&](const Vector& p) { return std::fabs(SignedDistance(plane, p)) <= kNear; });
    if (points.size() < 3) continue;
    const Vector face = DoubleArea(plane, points) * 0.5;
    balance = balance + face;
    area += Length(face);
    solid.volume += Dot(face, points[0]) / 3.0;
  }
  solid.closed = solid.volume > kNear && Length(balance) <= kNear * area;
  return solid;
}

double DistanceOutside(const MapBrush& brush, const Vector& point) {
  double farthest = -std::numeric_limits<double>::infinity();
  for (const MapPlane& line : brush) {
    farthest = std::max(farthest, SignedDistance(PlaneOf(line), point));
  }
  return farthest;
}

}  // namespace zando::testing
