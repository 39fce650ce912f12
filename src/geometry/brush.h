#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "geometry/polygon.h"
#include "geometry/transform.h"
#include "geometry/vector.h"

namespace zando {

class CZANDODoc;

/// Bits of CZandoBrush::BFlags.
inline constexpr std::int32_t BF_SHOWN = 1;     ///< passes the show filter: drawn and pickable
inline constexpr std::int32_t BF_SELECTED = 2;  ///< in the multi-selection
inline constexpr std::int32_t BF_ENTITY = 4;    ///< owned by the entity BEnt

/// Values of CZandoBrush::TranT.
inline constexpr std::int32_t kAddToWorld = 0;
inline constexpr std::int32_t kSubtractFromWorld = 1;

inline constexpr std::uint32_t kWhite = 0xFFFFFF;

/// What a brush knows of one of its faces beside the polygon.
struct BrushFace {
  std::int32_t tag = 0;  ///< texture reference
  std::string textureName;
  std::int32_t userData1 = 0;  ///< carried with the face; nothing here reads it
  std::int32_t userData2 = 0;
  std::array<Vector, 3> points{};  ///< local vertices 1, 0 and 2 of the face's polygon
};

/// The parts of a placement that come in two slots. Slot 0 is the brush's own placement; slot 1 is
/// the scratch of a group operation, whose Pos and WorkPos hold the pivot.
inline constexpr std::size_t kOwnSlot = 0;
inline constexpr std::size_t kGroupSlot = 1;

/// One convex solid of a level: polygons in a local space of its own, a placement that carries
/// them into the world, and the bookkeeping that ties it to a group, an entity and a document.
/// Owns its polygons and face records. World polygons and bounds are derived: UpdateWorld makes
/// them, and nothing keeps them current in between.
class CZandoBrush {
 public:
  Transform DragMatrix = Transform::Identity();  ///< a drag in progress; identity otherwise
  Transform BMatrix = Transform::Identity();     ///< every committed move and group operation
  std::string Name = "tech05_1";                 ///< texture name of its faces; '*' marks water
  std::int32_t BGroup = -1;                      ///< index of the group, -1 for none
  std::uint32_t Color = kWhite;                  ///< 0x00BBGGRR, the group's colour
  CZANDODoc* Document = nullptr;                 ///< set when appended to a document; not owned
  std::int32_t BFlags = BF_SHOWN;
  std::int32_t BEnt = 0;   ///< index of the owning entity; meaningful while BF_ENTITY is set
  std::int32_t BBid = -1;  ///< unique within a document
  std::vector<CZandoPoly> Polys;
  std::vector<BrushFace> Faces;  ///< one for each of Polys
  std::vector<CZandoPoly> WorldPolys;
  std::int32_t TranT = kAddToWorld;
  Vector BoundsMin{5555555.0, 5555555.0, 5555555.0};
  Vector BoundsMax{-5555555.0, -5555555.0, -5555555.0};
  CZandoBrush* Prev = nullptr;
  CZandoBrush* Next = nullptr;
  std::array<Vector, 2> Pos{};
  std::array<Vector, 2> WorkPos{};
  std::array<Vector, 2> Rot{};  ///< rotation units: x yaw, y pitch, z roll
  std::array<Vector, 2> WorkRot{};
  std::array<Vector, 2> Scl{Vector{1.0, 1.0, 1.0}, Vector{1.0, 1.0, 1.0}};
  std::array<Vector, 2> Shr{};
  Transform WorldMatrix = Transform::Identity();

  CZandoBrush() = default;
  CZandoBrush(const CZandoBrush& source);

  /// Copies shape, placement and membership. BBid, Color, list links and world polygons stay the
  /// destination's own; a drag in progress is copied, working values fall back to committed ones.
  CZandoBrush& operator=(const CZandoBrush& source);
  virtual ~CZandoBrush() = default;

  [[nodiscard]] bool IsShown() const { return (BFlags & BF_SHOWN) != 0; }
  [[nodiscard]] bool IsSelected() const { return (BFlags & BF_SELECTED) != 0; }
  [[nodiscard]] bool BelongsToEntity() const { return (BFlags & BF_ENTITY) != 0; }
  [[nodiscard]] bool IsWater() const { return Name.starts_with('*'); }
  [[nodiscard]] std::int32_t PolyCount() const { return static_cast<std::int32_t>(Polys.size()); }

  /// More polygons than now: all polygons and face records start afresh. Fewer: the first n stay.
  void SetPolyCount(std::int32_t n);

  /// Composes WorldMatrix: shear, scale, working rotation, placement, drag.
  void BuildWorldMatrix();

  /// Recomputes WorldMatrix, WorldPolys and the bounds.
  void UpdateWorld();

  /// The local origin in the world, under a fresh WorldMatrix.
  [[nodiscard]] Vector WorldOrigin();

  /// Whether the point lies in the bounds, borders included, in the plane of a view. The coordinate
  /// along the view direction is passed as 0. Needs bounds made by UpdateWorld.
  [[nodiscard]] bool HitTest2D(double x, double y, double z) const;

  /// Fills every face's three points from its local polygon.
  void ComputeFacePoints();

  void SetFaceTextures(std::int32_t texture);

  /// Rotation, scale and shear of the slot back to neutral; position and BMatrix stay.
  void ResetSlot(std::size_t slot);

  /// The pending translation WorkPos - Pos of the own slot becomes the drag in progress.
  void UpdateMove();

  /// Commits WorkPos of the own slot into BMatrix and Pos, and ends the drag.
  void EndMove();

  /// Moves the brush to a position at once, as a committed move.
  void MoveTo(const Vector& position);

  /// Whether the bounds lie entirely in a rectangle of a view, borders included, given by its least
  /// and greatest corner as for HitTest2D. Needs bounds made by UpdateWorld.
  [[nodiscard]] bool InRect(const Vector& low, const Vector& high) const;

  /// The operation in progress about slot 1's pivot: its shear, scale and rotation.
  [[nodiscard]] Transform GroupOperation() const;

  /// Starts an operation about a pivot: slot 1 is reset and holds the pivot.
  void BeginGroupOperation(const Vector& pivot);

  /// Shows an operation about slot 1's pivot as the drag in progress.
  void UpdateGroupOperation(const Transform& operation);

  /// Commits the operation into BMatrix, ends the drag and resets slot 1.
  void EndGroupOperation(const Transform& operation);

  /// The first brush after this one that is shown, or none.
  [[nodiscard]] CZandoBrush* NextShown() const;

  /// This brush, or the first one after it, that is shown and belongs to no entity, or none.
  [[nodiscard]] CZandoBrush* FirstShownNonEntity();

  /// A brush keeps no history: no step is ever available and the steps do nothing.
  [[nodiscard]] static constexpr bool CanUndo() { return false; }
  [[nodiscard]] static constexpr bool CanRedo() { return false; }
  void Undo() {}
  void Redo() {}
  void ResetHistory() {}

 private:
  [[nodiscard]] Transform AboutPivot(const Transform& operation) const;
};

/// The first brush of the list, from `head` on, with this id, or none.
[[nodiscard]] CZandoBrush* FindBrushById(CZandoBrush* head, std::int32_t id);

/// Whether the world bounds of two brushes overlap; touching counts.
[[nodiscard]] bool BoundsOverlap(const CZandoBrush& a, const CZandoBrush& b);

}  // namespace zando
