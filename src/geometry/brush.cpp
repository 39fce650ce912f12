#include "geometry/brush.h"

#include <algorithm>
#include <cstddef>

#include "geometry/axes.h"

namespace zando {
namespace {

constexpr double kUnboundedCoordinate = 5555555.0;

}  // namespace

CZandoBrush::CZandoBrush(const CZandoBrush& source) { *this = source; }

CZandoBrush& CZandoBrush::operator=(const CZandoBrush& source) {
  if (this == &source) return *this;
  Name = source.Name;
  BFlags = source.BFlags;
  BGroup = source.BGroup;
  BEnt = source.BEnt;
  DragMatrix = source.DragMatrix;
  BMatrix = source.BMatrix;
  Pos = source.Pos;
  Rot = source.Rot;
  Scl = source.Scl;
  Shr = source.Shr;
  Document = source.Document;
  TranT = source.TranT;
  WorkPos = Pos;
  WorkRot = Rot;
  Polys = source.Polys;
  Faces = source.Faces;
  return *this;
}

void CZandoBrush::SetPolyCount(std::int32_t n) {
  const auto count = static_cast<std::size_t>(std::max(n, 0));
  if (count > Polys.size()) {
    Polys.assign(count, CZandoPoly());
    Faces.assign(count, BrushFace());
    return;
  }
  Polys.resize(count);
  Faces.resize(count);
}

void CZandoBrush::BuildWorldMatrix() {
  WorldMatrix.SetIdentity();
  WorldMatrix.Shear(Shr[kOwnSlot].x, Shr[kOwnSlot].y, Shr[kOwnSlot].z);
  WorldMatrix.Scale(Scl[kOwnSlot].x, Scl[kOwnSlot].y, Scl[kOwnSlot].z);
  WorldMatrix.Rotate(WorkRot[kOwnSlot].x, WorkRot[kOwnSlot].y, WorkRot[kOwnSlot].z);
  WorldMatrix.Multiply(BMatrix);
  WorldMatrix.Multiply(DragMatrix);
}

void CZandoBrush::UpdateWorld() {
  BuildWorldMatrix();
  if (WorldPolys.size() != Polys.size()) WorldPolys.assign(Polys.size(), CZandoPoly());
  BoundsMin = {kUnboundedCoordinate, kUnboundedCoordinate, kUnboundedCoordinate};
  BoundsMax = {-kUnboundedCoordinate, -kUnboundedCoordinate, -kUnboundedCoordinate};
  for (std::size_t i = 0; i < Polys.size(); ++i) {
    WorldPolys[i].count = 0;
    for (Vector vertex : Polys[i].Vertices()) {
      WorldMatrix.TransformPoint(vertex);
      WorldPolys[i].Append(vertex);
      BoundsMin.x = std::min(BoundsMin.x, vertex.x);
      BoundsMin.y = std::min(BoundsMin.y, vertex.y);
      BoundsMin.z = std::min(BoundsMin.z, vertex.z);
      BoundsMax.x = std::max(BoundsMax.x, vertex.x);
      BoundsMax.y = std::max(BoundsMax.y, vertex.y);
      BoundsMax.z = std::max(BoundsMax.z, vertex.z);
    }
  }
}

Vector CZandoBrush::WorldOrigin() {
  BuildWorldMatrix();
  Vector origin{0.0, 0.0, 0.0};
  WorldMatrix.TransformPoint(origin);
  return origin;
}

bool CZandoBrush::HitTest2D(double x, double y, double z) const {
  const Vector point{x, y, z};
  const auto plane = ViewPlane(point);
  return std::all_of(plane.begin(), plane.end(), [&](double Vector::*axis) {
    return BoundsMin.*axis <= point.*axis && point.*axis <= BoundsMax.*axis;
  });
}

bool CZandoBrush::InRect(const Vector& low, const Vector& high) const {
  const auto plane = ViewPlane(low);
  return std::all_of(plane.begin(), plane.end(), [&](double Vector::*axis) {
    return low.*axis <= BoundsMin.*axis && BoundsMax.*axis <= high.*axis;
  });
}

void CZandoBrush::ComputeFacePoints() {
  for (std::size_t i = 0; i < Polys.size(); ++i) {
    // A polygon from a damaged file may hold fewer vertices; its face keeps what it had.
    if (Polys[i].count < 3) continue;
    Faces[i].points = {Polys[i][1], Polys[i][0], Polys[i][2]};
  }
}

void CZandoBrush::SetFaceTextures(std::int32_t texture) {
  for (BrushFace& face : Faces) face.tag = texture;
}

void CZandoBrush::ResetSlot(std::size_t slot) {
  Rot[slot] = {0.0, 0.0, 0.0};
  Scl[slot] = {1.0, 1.0, 1.0};
  Shr[slot] = {0.0, 0.0, 0.0};
  WorkPos[slot] = Pos[slot];
  WorkRot[slot] = Rot[slot];
}

void CZandoBrush::UpdateMove() {
  DragMatrix.SetIdentity();
  DragMatrix.Translate(WorkPos[kOwnSlot] - Pos[kOwnSlot]);
}

void CZandoBrush::EndMove() {
  BMatrix.Translate(WorkPos[kOwnSlot] - Pos[kOwnSlot]);
  Pos[kOwnSlot] = WorkPos[kOwnSlot];
  DragMatrix.SetIdentity();
}

void CZandoBrush::MoveTo(const Vector& position) {
  WorkPos[kOwnSlot] = position;
  EndMove();
}

void CZandoBrush::BeginGroupOperation(const Vector& pivot) {
  Pos[kGroupSlot] = pivot;
  ResetSlot(kGroupSlot);
}

Transform CZandoBrush::GroupOperation() const {
  Transform operation = Transform::Identity();
  const Vector& shear = Shr[kGroupSlot];
  const Vector& scale = Scl[kGroupSlot];
  const Vector turn = WorkRot[kGroupSlot] - Rot[kGroupSlot];
  operation.Shear(shear.x, shear.y, shear.z);
  operation.Scale(scale.x, scale.y, scale.z);
  operation.Rotate(turn.x, turn.y, turn.z);
  return operation;
}

void CZandoBrush::UpdateGroupOperation(const Transform& operation) {
  DragMatrix = AboutPivot(operation);
}

void CZandoBrush::EndGroupOperation(const Transform& operation) {
  BMatrix.Multiply(AboutPivot(operation));
  DragMatrix.SetIdentity();
  ResetSlot(kGroupSlot);
}

Transform CZandoBrush::AboutPivot(const Transform& operation) const {
  Transform result = Transform::Identity();
  result.Translate(-Pos[kGroupSlot]);
  result.Multiply(operation);
  result.Translate(Pos[kGroupSlot]);
  return result;
}

CZandoBrush* CZandoBrush::NextShown() const {
  CZandoBrush* brush = Next;
  while (brush != nullptr && !brush->IsShown()) brush = brush->Next;
  return brush;
}

CZandoBrush* CZandoBrush::FirstShownNonEntity() {
  CZandoBrush* brush = this;
  while (brush != nullptr && (!brush->IsShown() || brush->BelongsToEntity())) brush = brush->Next;
  return brush;
}

CZandoBrush* FindBrushById(CZandoBrush* head, std::int32_t id) {
  CZandoBrush* brush = head;
  while (brush != nullptr && brush->BBid != id) brush = brush->Next;
  return brush;
}

bool BoundsOverlap(const CZandoBrush& a, const CZandoBrush& b) {
  return b.BoundsMax.x >= a.BoundsMin.x && b.BoundsMin.x <= a.BoundsMax.x &&
         b.BoundsMax.y >= a.BoundsMin.y && b.BoundsMin.y <= a.BoundsMax.y &&
         b.BoundsMax.z >= a.BoundsMin.z && b.BoundsMin.z <= a.BoundsMax.z;
}

}  // namespace zando
