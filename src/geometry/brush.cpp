#include "geometry/brush.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace zando {
namespace {

constexpr double kUnboundedCoordinate = 5555555.0;

/// Where bounds stand that nothing was included in yet.
constexpr Bounds kNoBounds{{kUnboundedCoordinate, kUnboundedCoordinate, kUnboundedCoordinate},
                           {-kUnboundedCoordinate, -kUnboundedCoordinate, -kUnboundedCoordinate}};

/// How far the sum of a closed solid's area vectors may be from zero, as a part of its area.
constexpr double kClosedWithin = 1e-6;

/// What the faces enclose. Twice the area, and six times the volume, stand for themselves.
struct Enclosed {
  double volume = 0.0;
  double area = 0.0;
  Vector sum{0.0, 0.0, 0.0};  ///< of the area vectors; zero when the faces close

  [[nodiscard]] bool IsClosed() const { return Length(sum) <= kClosedWithin * area; }
  [[nodiscard]] bool IsFlat() const {
    return std::fabs(volume) / 6.0 <= PLANE_EPSILON * area / 4.0;
  }
};

Enclosed Enclose(const std::vector<CZandoPoly>& polygons) {
  Enclosed enclosed;
  const auto first = std::find_if(polygons.begin(), polygons.end(),
                                  [](const CZandoPoly& polygon) { return polygon.count > 0; });
  if (first == polygons.end()) return enclosed;
  // Measured from a vertex of its own, so that distance from the origin costs no digits.
  const Vector origin = (*first)[0];
  for (const CZandoPoly& polygon : polygons) {
    Vector area{0.0, 0.0, 0.0};
    for (std::int32_t i = 2; i < polygon.count; ++i) {
      area = area + Cross(polygon[i - 1] - polygon[0], polygon[i] - polygon[0]);
    }
    if (polygon.count > 2) enclosed.volume += Dot(polygon[0] - origin, area);
    enclosed.area += Length(area);
    enclosed.sum = enclosed.sum + area;
  }
  return enclosed;
}

bool IsMirror(const Transform& t) {
  const Vector x{t.m[0][0], t.m[1][0], t.m[2][0]};
  const Vector y{t.m[0][1], t.m[1][1], t.m[2][1]};
  const Vector z{t.m[0][2], t.m[1][2], t.m[2][2]};
  return Dot(Cross(x, y), z) < 0.0;
}

void ResetToNeutral(Placement& placement) {
  placement.Rot = {0.0, 0.0, 0.0};
  placement.Scl = {1.0, 1.0, 1.0};
  placement.Shr = {0.0, 0.0, 0.0};
  placement.WorkPos = placement.Pos;
  placement.WorkRot = placement.Rot;
}

}  // namespace

CZandoBrush::CZandoBrush(const CZandoBrush& source) { *this = source; }

CZandoBrush& CZandoBrush::operator=(const CZandoBrush& source) {
  if (this == &source) return *this;
  Name = source.Name;
  BFlags = source.BFlags;
  BGroup = source.BGroup;
  BEnt = source.BEnt;
  TranT = source.TranT;
  Faces = source.Faces;
  polys_ = source.polys_;
  placed_ = source.placed_;
  drag_ = source.drag_;
  slots_ = source.slots_;
  for (Placement& slot : slots_) {
    slot.WorkPos = slot.Pos;
    slot.WorkRot = slot.Rot;
  }
  world_.isCurrent = false;
  return *this;
}

void CZandoBrush::CopyWhole(const CZandoBrush& source) {
  *this = source;
  BBid = source.BBid;
  Color = source.Color;
  slots_ = source.slots_;
}

bool operator==(const CZandoBrush& a, const CZandoBrush& b) {
  return a.Name == b.Name && a.BGroup == b.BGroup && a.BFlags == b.BFlags && a.BEnt == b.BEnt &&
         a.BBid == b.BBid && a.TranT == b.TranT && a.slots_ == b.slots_ && a.placed_ == b.placed_ &&
         a.drag_ == b.drag_ && a.polys_ == b.polys_ && a.Faces == b.Faces;
}

void CZandoBrush::SetPolyCount(std::int32_t n) {
  world_.isCurrent = false;
  const auto count = static_cast<std::size_t>(std::max(n, 0));
  if (count > polys_.size()) {
    polys_.assign(count, CZandoPoly());
    Faces.assign(count, BrushFace());
    return;
  }
  polys_.resize(count);
  Faces.resize(count);
}

CZandoPoly& CZandoBrush::EditPoly(std::size_t i) {
  world_.isCurrent = false;
  return polys_[i];
}

void CZandoBrush::AppendPoly(const CZandoPoly& polygon) {
  world_.isCurrent = false;
  polys_.push_back(polygon);
  Faces.emplace_back();
}

void CZandoBrush::ReservePolys(std::size_t count) {
  polys_.reserve(count);
  Faces.reserve(count);
}

void CZandoBrush::ComputeFacePoints() {
  for (std::size_t i = 0; i < polys_.size(); ++i) {
    // A polygon from a damaged file may hold fewer vertices; its face keeps what it had.
    if (polys_[i].count < 3) continue;
    Faces[i].points = {polys_[i][1], polys_[i][0], polys_[i][2]};
  }
}

void CZandoBrush::SetFaceTextures(std::int32_t texture) {
  for (BrushFace& face : Faces) face.tag = texture;
}

void CZandoBrush::SetSlot(std::size_t slot, const Placement& placement) {
  world_.isCurrent = false;
  slots_[slot] = placement;
}

void CZandoBrush::SetBMatrix(const Transform& placed) {
  world_.isCurrent = false;
  placed_ = placed;
}

void CZandoBrush::ResetSlot(std::size_t slot) {
  world_.isCurrent = false;
  ResetToNeutral(slots_[slot]);
}

void CZandoBrush::UpdateMove(const Vector& workPos) {
  world_.isCurrent = false;
  Placement& own = slots_[kOwnSlot];
  own.WorkPos = workPos;
  drag_.SetIdentity();
  drag_.Translate(own.WorkPos - own.Pos);
}

void CZandoBrush::EndMove() {
  world_.isCurrent = false;
  Placement& own = slots_[kOwnSlot];
  placed_.Translate(own.WorkPos - own.Pos);
  own.Pos = own.WorkPos;
  drag_.SetIdentity();
}

void CZandoBrush::MoveTo(const Vector& position) {
  slots_[kOwnSlot].WorkPos = position;
  EndMove();
}

void CZandoBrush::CancelDrag(const std::array<Placement, 2>& before) {
  world_.isCurrent = false;
  slots_ = before;
  drag_.SetIdentity();
}

void CZandoBrush::BeginGroupOperation(const Vector& pivot) {
  slots_[kGroupSlot].Pos = pivot;
  ResetSlot(kGroupSlot);
}

Transform CZandoBrush::GroupOperation() const {
  const Placement& slot = slots_[kGroupSlot];
  const Vector turn = slot.WorkRot - slot.Rot;
  Transform operation = Transform::Identity();
  operation.Shear(slot.Shr.x, slot.Shr.y, slot.Shr.z);
  operation.Scale(slot.Scl.x, slot.Scl.y, slot.Scl.z);
  operation.Rotate(turn.x, turn.y, turn.z);
  return operation;
}

void CZandoBrush::UpdateGroupOperation(const Transform& operation) {
  world_.isCurrent = false;
  drag_ = AboutPivot(operation);
}

void CZandoBrush::EndGroupOperation(const Transform& operation) {
  placed_.Multiply(AboutPivot(operation));
  drag_.SetIdentity();
  ResetSlot(kGroupSlot);
  Placement& own = slots_[kOwnSlot];
  own.Pos = {placed_.m[0][3], placed_.m[1][3], placed_.m[2][3]};
  own.WorkPos = own.Pos;
}

Transform CZandoBrush::AboutPivot(const Transform& operation) const {
  const Vector& pivot = slots_[kGroupSlot].Pos;
  Transform result = Transform::Identity();
  result.Translate(-pivot);
  result.Multiply(operation);
  result.Translate(pivot);
  return result;
}

Transform CZandoBrush::ComposeWorldMatrix() const {
  const Placement& own = slots_[kOwnSlot];
  Transform matrix = Transform::Identity();
  matrix.Shear(own.Shr.x, own.Shr.y, own.Shr.z);
  matrix.Scale(own.Scl.x, own.Scl.y, own.Scl.z);
  matrix.Rotate(own.WorkRot.x, own.WorkRot.y, own.WorkRot.z);
  matrix.Multiply(placed_);
  matrix.Multiply(drag_);
  return matrix;
}

const CZandoBrush::World& CZandoBrush::UpdateWorld() const {
  if (world_.isCurrent) return world_;
  world_.matrix = ComposeWorldMatrix();
  world_.bounds = kNoBounds;
  if (world_.polys.size() != polys_.size()) world_.polys.assign(polys_.size(), CZandoPoly());
  for (std::size_t i = 0; i < polys_.size(); ++i) {
    CZandoPoly& polygon = world_.polys[i];
    polygon.count = 0;
    for (Vector vertex : polys_[i].Vertices()) {
      world_.matrix.TransformPoint(vertex);
      polygon.Append(vertex);
      world_.bounds.Include(vertex);
    }
  }
  const Enclosed enclosed = Enclose(world_.polys);
  world_.hasVolume = !(enclosed.IsClosed() && enclosed.IsFlat());
  const bool insideOut =
      enclosed.IsClosed() ? world_.hasVolume && enclosed.volume < 0.0 : IsMirror(world_.matrix);
  if (insideOut) {
    for (CZandoPoly& polygon : world_.polys) std::ranges::reverse(polygon.Vertices());
  }
  world_.isCurrent = true;
  return world_;
}

const Transform& CZandoBrush::WorldMatrix() const { return UpdateWorld().matrix; }

const std::vector<CZandoPoly>& CZandoBrush::WorldPolys() const { return UpdateWorld().polys; }

const Bounds& CZandoBrush::WorldBounds() const { return UpdateWorld().bounds; }

bool CZandoBrush::HasVolume() const { return UpdateWorld().hasVolume; }

Vector CZandoBrush::WorldOrigin() const {
  Vector origin{0.0, 0.0, 0.0};
  WorldMatrix().TransformPoint(origin);
  return origin;
}

bool CZandoBrush::HitTest2D(const Vector& point, const ViewAxes& axes) const {
  return ViewRect{WorldBounds().low, WorldBounds().high, axes}.Holds(point);
}

bool CZandoBrush::InRect(const ViewRect& rect) const {
  return rect.Holds(WorldBounds().low) && rect.Holds(WorldBounds().high);
}

const CZandoBrush* CZandoBrush::NextShown() const {
  const CZandoBrush* brush = Next;
  while (brush != nullptr && !brush->IsShown()) brush = brush->Next;
  return brush;
}

const CZandoBrush* CZandoBrush::FirstShownNonEntity() const {
  const CZandoBrush* brush = this;
  while (brush != nullptr && (!brush->IsShown() || brush->BelongsToEntity())) brush = brush->Next;
  return brush;
}

const CZandoBrush* FindBrushById(const CZandoBrush* head, std::int32_t id) {
  const CZandoBrush* brush = head;
  while (brush != nullptr && brush->BBid != id) brush = brush->Next;
  return brush;
}

}  // namespace zando
