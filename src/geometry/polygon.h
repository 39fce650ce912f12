#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include "geometry/plane.h"
#include "geometry/vector.h"

namespace zando {

/// No polygon anywhere in the system holds more vertices.
inline constexpr std::int32_t MAX_POLY_VERTS = 32;

/// One planar, convex face: vertices in winding order, counter-clockwise seen from the front.
/// A flat record without pointers; copying it copies only the vertices in use.
struct CZandoPoly {
  std::uint32_t tag = 0;
  std::int32_t count = 0;
  std::array<Vector, MAX_POLY_VERTS> verts;

  CZandoPoly() {}  // NOLINT(modernize-use-equals-default): leaves the vertices untouched
  CZandoPoly(const CZandoPoly& other) { *this = other; }
  CZandoPoly& operator=(const CZandoPoly& other) {
    tag = other.tag;
    count = other.count;
    if (this != &other) std::copy_n(other.verts.begin(), other.count, verts.begin());
    return *this;
  }
  ~CZandoPoly() = default;

  friend bool operator==(const CZandoPoly& a, const CZandoPoly& b) {
    return a.tag == b.tag && std::ranges::equal(a.Vertices(), b.Vertices());
  }

  [[nodiscard]] std::span<const Vector> Vertices() const {
    return {verts.data(), static_cast<std::size_t>(count)};
  }
  [[nodiscard]] std::span<Vector> Vertices() {
    return {verts.data(), static_cast<std::size_t>(count)};
  }

  [[nodiscard]] const Vector& operator[](std::int32_t i) const {
    return verts[static_cast<std::size_t>(i)];
  }
  [[nodiscard]] Vector& operator[](std::int32_t i) { return verts[static_cast<std::size_t>(i)]; }

  /// Appends a vertex. The polygon must hold fewer than MAX_POLY_VERTS.
  void Append(const Vector& vertex) { verts[static_cast<std::size_t>(count++)] = vertex; }
};

enum class PolygonClass {
  Front = 0,
  Back = 1,
  Spanning = 3,
  CoplanarSame = 4,
  CoplanarOpposite = 5
};

/// The plane of the first corner whose edges are not collinear; d always comes from vertex 0.
/// A polygon without such a corner gives a plane whose coordinates may not be numbers; one
/// without vertices gives a plane of zeros.
[[nodiscard]] Plane ComputePlane(const CZandoPoly& polygon);

/// The side of the whole polygon. One whose vertices all lie on the plane is coplanar, facing the
/// same way when the normals' dot product is positive. A polygon without vertices is Spanning.
[[nodiscard]] PolygonClass ClassifyPolygon(const Plane& plane, const CZandoPoly& polygon);

enum class SplitResult { Done, Refused };

/// Cuts `polygon` along the plane: it becomes the front piece (its tag unchanged), `back` gets the
/// back piece (its tag unset). A vertex on the plane goes into both. Either piece may be left with
/// fewer than 3 vertices. When a piece would need more than MAX_POLY_VERTS vertices the split is
/// refused, and both polygons are unchanged.
[[nodiscard]] SplitResult SplitPolygon(const Plane& plane, CZandoPoly& polygon, CZandoPoly& back);

/// Front or Back, by the mean of the vertices: where a polygon goes whose split was refused.
[[nodiscard]] PolygonClass SideOfMean(const Plane& plane, const CZandoPoly& polygon);

/// A copy with the vertex order reversed, and its plane.
struct ReversedPolygon {
  CZandoPoly polygon;
  Plane plane;
};
[[nodiscard]] ReversedPolygon ReverseCopy(const CZandoPoly& polygon);

/// Half the width of a base polygon: the reach of an ordinary level, in map units.
inline constexpr double kBasePolygonReach = 8192.0;

/// A square of 4 vertices on the plane, centred on the plane's point nearest to `middle` and facing
/// as the plane does. It lies in a square of 2 x `reach` across; where the plane leans, it is
/// smaller, by no more than the square root of two.
[[nodiscard]] CZandoPoly BasePolygonForPlane(const Plane& plane, const Vector& middle = {0, 0, 0},
                                             double reach = kBasePolygonReach);

}  // namespace zando
