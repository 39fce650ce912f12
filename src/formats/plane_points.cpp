#include "formats/plane_points.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zando {
namespace {

/// How far a plane may move anywhere on its face.
constexpr double kMostShift = 0.5;

/// Shifts this near to each other are equal: of symmetrical choices the first is taken, wherever
/// the face lies.
constexpr double kTie = 1e-6;

constexpr double kNoPlane = std::numeric_limits<double>::infinity();

using Triple = std::array<std::int32_t, 3>;
constexpr Triple kFirstThree{0, 1, 2};

Vector Rounded(const Vector& v) {
  return {static_cast<double>(RoundHalfAway(v.x)), static_cast<double>(RoundHalfAway(v.y)),
          static_cast<double>(RoundHalfAway(v.z))};
}

/// A face, and its vertices as they would be written.
class CWrittenFace {
 public:
  CWrittenFace(const CZandoPoly& face, const Vector& normal, const CZandoPoly& written)
      : face_(face), normal_(normal), written_(written) {}

  /// Whether the plane through three written points is near enough.
  [[nodiscard]] bool Serves(const Triple& triple) const {
    return ShiftOf(triple, kNoPlane) <= kMostShift;
  }

  /// The first three vertices when they serve, else those that do best.
  [[nodiscard]] Triple Best() const;

  [[nodiscard]] std::array<Vector, 3> PointsOf(const Triple& triple) const {
    return {written_[triple[0]], written_[triple[1]], written_[triple[2]]};
  }

 private:
  [[nodiscard]] double ShiftOf(const Triple& triple, double enough) const;

  const CZandoPoly& face_;
  const Vector& normal_;
  const CZandoPoly& written_;
};

Triple CWrittenFace::Best() const {
  Triple best = kFirstThree;
  double least = ShiftOf(best, kNoPlane);
  if (least <= kMostShift) return best;
  for (std::int32_t i = 0; i < face_.count; ++i) {
    for (std::int32_t j = i + 1; j < face_.count; ++j) {
      for (std::int32_t k = j + 1; k < face_.count; ++k) {
        const double better = least - kTie;
        const double shift = ShiftOf({i, j, k}, better);
        if (!(shift < better)) continue;
        least = shift;
        best = {i, j, k};
      }
    }
  }
  return best;
}

/// The farthest that the plane through three written points lies from that of the face at any
/// vertex; `enough` or more once that is reached. Measured from points of the planes, so that the
/// distance from the world's origin costs no digits.
double CWrittenFace::ShiftOf(const Triple& triple, double enough) const {
  const auto [first, corner, last] = PointsOf(triple);
  const Vector cross = Cross(last - corner, first - corner);
  const double length = Length(cross);
  if (!std::isfinite(length) || !(Dot(cross, normal_) > 0.0)) return kNoPlane;
  double shift = 0.0;
  for (const Vector& vertex : face_.Vertices()) {
    const double before = Dot(cross, vertex - corner) / length;
    const double beforeFace = Dot(normal_, vertex - face_[0]);
    shift = std::max(shift, std::fabs(before - beforeFace));
    if (shift >= enough) break;
  }
  return shift;
}

}  // namespace

std::int32_t RoundHalfAway(double value) {
  if (std::isnan(value)) return 0;
  const double whole = value >= 0.0 ? std::floor(value + 0.5) : std::ceil(value - 0.5);
  constexpr double low = std::numeric_limits<std::int32_t>::min();
  constexpr double high = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::clamp(whole, low, high));
}

PlanePoints ChoosePlanePoints(const CZandoPoly& face) {
  const Vector normal = ComputePlane(face).normal;
  CZandoPoly rounded = face;
  for (Vector& vertex : rounded.Vertices()) vertex = Rounded(vertex);
  const CWrittenFace whole(face, normal, rounded);
  if (whole.Serves(kFirstThree)) {
    return {whole.PointsOf(kFirstThree), PlaneOrigin::FirstVertices};
  }
  if (IsFinite(normal)) {
    const Triple best = whole.Best();
    if (whole.Serves(best)) return {whole.PointsOf(best), PlaneOrigin::OtherVertices};
    const CWrittenFace exact(face, normal, face);
    const Triple exactBest = exact.Best();
    if (exact.Serves(exactBest)) return {exact.PointsOf(exactBest), PlaneOrigin::Decimals};
  }
  return {whole.PointsOf(kFirstThree), PlaneOrigin::Moved};
}

}  // namespace zando
