#include "support/map_solids.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <sstream>

namespace zando::testing {
namespace {

/// Faces are cut out of base polygons: one that reaches this far is open.
constexpr double kReach = 8192.0;

bool ReadPlaneLine(const std::string& line, MapPlane& plane) {
  std::istringstream words(line);
  std::string open;
  std::string close;
  for (Vector& point : plane.points) {
    words >> open >> point.x >> point.z >> point.y >> close;
    if (!words || open != "(" || close != ")") return false;
  }
  std::string alignment;
  std::getline(words >> plane.texture, alignment);
  return alignment == " 0 0 0 1.000000 1.000000\r";
}

/// The part of a convex polygon no more than `tolerance` before a plane.
std::vector<Vector> Behind(const Plane& plane, double tolerance,
                           const std::vector<Vector>& polygon) {
  std::vector<Vector> part;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const Vector& a = polygon[i];
    const Vector& b = polygon[(i + 1) % polygon.size()];
    const double beforeA = SignedDistance(plane, a) - tolerance;
    const double beforeB = SignedDistance(plane, b) - tolerance;
    if (beforeA <= 0.0) part.push_back(a);
    if ((beforeA <= 0.0) != (beforeB <= 0.0)) {
      part.push_back(a + (b - a) * (beforeA / (beforeA - beforeB)));
    }
  }
  return part;
}

/// The face of the solid in one of its planes. Of equal planes the first has it.
std::vector<Vector> FaceOf(const Planes& planes, std::size_t index) {
  constexpr double kTolerance = 1e-8;
  const CZandoPoly base = BasePolygonForPlane(planes[index]);
  std::vector<Vector> face(base.Vertices().begin(), base.Vertices().end());
  for (std::size_t i = 0; i < planes.size(); ++i) {
    if (i != index) face = Behind(planes[i], i < index ? -kTolerance : kTolerance, face);
  }
  return face;
}

}  // namespace

std::optional<std::vector<MapEntity>> ParseMap(const std::string& text) {
  std::vector<MapEntity> entities;
  int depth = 0;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    MapPlane plane;
    if (line == "{\r" && depth == 0) {
      entities.emplace_back();
      ++depth;
    } else if (line == "{\r" && depth == 1) {
      entities.back().brushes.emplace_back();
      ++depth;
    } else if (line == "}\r" && depth > 0) {
      --depth;
    } else if (depth == 2 && ReadPlaneLine(line, plane)) {
      entities.back().brushes.back().push_back(plane);
    } else if (depth != 1 || !line.starts_with('"') || !line.ends_with("\"\r")) {
      return std::nullopt;
    }
  }
  if (depth != 0 || entities.empty()) return std::nullopt;
  return entities;
}

Planes PlanesOf(const MapBrush& brush) {
  Planes planes;
  for (const MapPlane& line : brush) {
    const auto& [a, b, c] = line.points;
    const Vector normal = Normalised(Cross(b - a, c - a));
    planes.push_back({normal, -Dot(normal, a)});
  }
  return planes;
}

Planes PlanesOf(const CZandoBrush& brush) {
  Planes planes;
  for (const CZandoPoly& face : brush.WorldPolys()) planes.push_back(ComputePlane(face));
  return planes;
}

double DistanceOutside(const Planes& planes, const Vector& point) {
  double farthest = -std::numeric_limits<double>::infinity();
  for (const Plane& plane : planes) farthest = std::max(farthest, SignedDistance(plane, point));
  return farthest;
}

MapSolid SolidOf(const MapBrush& brush) {
  const Planes planes = PlanesOf(brush);
  MapSolid solid;
  bool bounded = true;
  for (std::size_t i = 0; i < planes.size(); ++i) {
    const std::vector<Vector> face = FaceOf(planes, i);
    for (std::size_t k = 1; k + 1 < face.size(); ++k) {
      solid.volume += Dot(face[0], Cross(face[k], face[k + 1])) / 6.0;
    }
    bounded = bounded && std::all_of(face.begin(), face.end(),
                                     [](const Vector& v) { return Length(v) < kReach; });
  }
  solid.closed = bounded && std::abs(solid.volume) > 1e-3;
  return solid;
}

}  // namespace zando::testing
