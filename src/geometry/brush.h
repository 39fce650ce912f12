#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "geometry/axes.h"
#include "geometry/bounds.h"
#include "geometry/placement.h"
#include "geometry/polygon.h"
#include "geometry/transform.h"
#include "geometry/vector.h"

namespace zando {

/// Bits of CZandoBrush::BFlags.
inline constexpr std::int32_t BF_SHOWN = 1;     ///< passes the show filter: drawn and pickable
inline constexpr std::int32_t BF_SELECTED = 2;  ///< in the multi-selection
inline constexpr std::int32_t BF_ENTITY = 4;    ///< owned by the entity BEnt

/// Values of CZandoBrush::TranT.
inline constexpr std::int32_t kAddToWorld = 0;
inline constexpr std::int32_t kSubtractFromWorld = 1;

inline constexpr std::uint32_t kWhite = 0xFFFFFF;

/// How a face is covered in a map: a texture, and the five numbers of its plane line.
struct FaceSurface {
  std::string texture;
  double offsetX = 0.0;
  double offsetY = 0.0;
  double rotation = 0.0;  ///< degrees
  double scaleX = 1.0;
  double scaleY = 1.0;

  friend bool operator==(const FaceSurface&, const FaceSurface&) = default;
};

/// What a brush knows of one of its faces beside the polygon.
struct BrushFace {
  std::int32_t tag = 0;  ///< texture reference
  std::string textureName;
  std::int32_t userData1 = 0;  ///< carried with the face; nothing here reads it
  std::int32_t userData2 = 0;
  std::array<Vector, 3> points{};  ///< local vertices 1, 0 and 2 of the face's polygon
  /// Its own; a face without one is covered with the brush's Name and the numbers given above.
  std::optional<FaceSurface> surface;

  friend bool operator==(const BrushFace&, const BrushFace&) = default;
};

/// One solid of a level: polygons in a local space of its own, a placement that carries them into
/// the world, and the bookkeeping that ties it to a group, an entity and a list. World polygons,
/// their bounds and what else is told of the world are derived: reading them gives current ones.
class CZandoBrush {
 public:
  std::string Name = "tech05_1";  ///< texture name of its faces; '*' marks water
  std::int32_t BGroup = -1;       ///< index of the group, -1 for none
  std::uint32_t Color = kWhite;   ///< 0x00BBGGRR, the group's colour
  std::int32_t BFlags = BF_SHOWN;
  std::int32_t BEnt = 0;   ///< index of the owning entity; meaningful while BF_ENTITY is set
  std::int32_t BBid = -1;  ///< unique within a level
  std::int32_t TranT = kAddToWorld;
  std::vector<BrushFace> Faces;  ///< one for each polygon
  CZandoBrush* Prev = nullptr;   ///< links of the list that owns the brush
  CZandoBrush* Next = nullptr;

  CZandoBrush() = default;
  CZandoBrush(const CZandoBrush& source);

  /// Copies shape, placement and membership. BBid, Color and list links stay the destination's own;
  /// a drag in progress is copied, working values fall back to committed ones.
  CZandoBrush& operator=(const CZandoBrush& source);
  virtual ~CZandoBrush() = default;

  /// As assignment, with id, colour and working values; list links stay.
  void CopyWhole(const CZandoBrush& source);

  /// Whether both hold the same, list links and colours left aside.
  friend bool operator==(const CZandoBrush& a, const CZandoBrush& b);

  [[nodiscard]] bool IsShown() const { return (BFlags & BF_SHOWN) != 0; }
  [[nodiscard]] bool IsSelected() const { return (BFlags & BF_SELECTED) != 0; }
  [[nodiscard]] bool BelongsToEntity() const { return (BFlags & BF_ENTITY) != 0; }
  [[nodiscard]] bool IsWater() const { return Name.starts_with('*'); }

  /// The local polygons.
  [[nodiscard]] const std::vector<CZandoPoly>& Polys() const { return polys_; }
  [[nodiscard]] std::int32_t PolyCount() const { return static_cast<std::int32_t>(polys_.size()); }

  /// More polygons than now: all polygons and face records start afresh. Fewer: the first n stay.
  void SetPolyCount(std::int32_t n);

  /// A local polygon to be written now.
  [[nodiscard]] CZandoPoly& EditPoly(std::size_t i);

  /// Another polygon behind those that there are, with a face record of its own.
  void AppendPoly(const CZandoPoly& polygon);

  /// Makes room for so many polygons beforehand.
  void ReservePolys(std::size_t count);

  /// Fills every face's three points from its local polygon.
  void ComputeFacePoints();

  void SetFaceTextures(std::int32_t texture);

  [[nodiscard]] const Placement& Slot(std::size_t slot) const { return slots_[slot]; }
  [[nodiscard]] const std::array<Placement, 2>& Slots() const { return slots_; }
  [[nodiscard]] const Placement& Own() const { return slots_[kOwnSlot]; }
  void SetSlot(std::size_t slot, const Placement& placement);

  /// Every committed move and group operation.
  [[nodiscard]] const Transform& BMatrix() const { return placed_; }
  void SetBMatrix(const Transform& placed);

  /// The drag in progress; the identity otherwise.
  [[nodiscard]] const Transform& DragMatrix() const { return drag_; }

  /// Rotation, scale and shear of the slot back to neutral; position and BMatrix stay.
  void ResetSlot(std::size_t slot);

  /// The pending translation to the working position becomes the drag in progress.
  void UpdateMove(const Vector& workPos);

  /// Commits the working position of the own slot into BMatrix and Pos, and ends the drag.
  void EndMove();

  /// Moves the brush to a position at once, as a committed move.
  void MoveTo(const Vector& position);

  /// The drag in progress is given up, and both slots hold these again.
  void CancelDrag(const std::array<Placement, 2>& before);

  /// The operation in progress about slot 1's pivot: its shear, scale and rotation.
  [[nodiscard]] Transform GroupOperation() const;

  /// Starts an operation about a pivot: slot 1 is reset and holds the pivot.
  void BeginGroupOperation(const Vector& pivot);

  /// Shows an operation about slot 1's pivot as the drag in progress.
  void UpdateGroupOperation(const Transform& operation);

  /// Commits the operation into BMatrix, ends the drag and resets slot 1. The own position becomes
  /// the translation of BMatrix.
  void EndGroupOperation(const Transform& operation);

  /// Local to world: shear, scale, working rotation, BMatrix, drag.
  [[nodiscard]] const Transform& WorldMatrix() const;

  /// The polygons in the world, looking outward also when sizes or scales are negative.
  [[nodiscard]] const std::vector<CZandoPoly>& WorldPolys() const;

  /// The least box around them; from 5555555 down to -5555555 for a brush without polygons.
  [[nodiscard]] const Bounds& WorldBounds() const;

  /// Whether it encloses any space, thicker than points are told from a plane. A brush whose faces
  /// do not close is taken to.
  [[nodiscard]] bool HasVolume() const;

  /// The local origin in the world.
  [[nodiscard]] Vector WorldOrigin() const;

  /// Whether the point lies in the world bounds, borders included, as a view shows them.
  [[nodiscard]] bool HitTest2D(const Vector& point, const ViewAxes& axes) const;

  /// Whether the world bounds lie entirely in a rectangle of a view, borders included.
  [[nodiscard]] bool InRect(const ViewRect& rect) const;

  /// The first brush after this one that is shown, or none.
  [[nodiscard]] const CZandoBrush* NextShown() const;

  /// This brush, or the first one after it, that is shown and belongs to no entity, or none.
  [[nodiscard]] const CZandoBrush* FirstShownNonEntity() const;

  /// A brush keeps no history: no step is ever available and the steps do nothing.
  [[nodiscard]] static constexpr bool CanUndo() { return false; }
  [[nodiscard]] static constexpr bool CanRedo() { return false; }
  void Undo() {}
  void Redo() {}
  void ResetHistory() {}

 private:
  /// What is derived, as it was last asked for.
  struct World {
    Transform matrix = Transform::Identity();
    std::vector<CZandoPoly> polys;
    Bounds bounds;
    bool hasVolume = false;
    bool isCurrent = false;
  };

  [[nodiscard]] Transform ComposeWorldMatrix() const;
  [[nodiscard]] Transform AboutPivot(const Transform& operation) const;
  const World& UpdateWorld() const;

  std::vector<CZandoPoly> polys_;
  std::array<Placement, 2> slots_;
  Transform placed_ = Transform::Identity();
  Transform drag_ = Transform::Identity();
  mutable World world_;
};

/// The first brush of the list, from `head` on, with this id, or none.
[[nodiscard]] const CZandoBrush* FindBrushById(const CZandoBrush* head, std::int32_t id);

/// Whether the world bounds of two brushes overlap; touching counts.
[[nodiscard]] inline bool BoundsOverlap(const CZandoBrush& a, const CZandoBrush& b) {
  return Overlap(a.WorldBounds(), b.WorldBounds());
}

}  // namespace zando
