#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "document/zando_doc.h"
#include "geometry/axes.h"
#include "geometry/placement.h"

namespace zando {

/// What a drag with the mouse does. The first four work on the current brush, or in group movement
/// mode on the brushes of the current group about its centre; there may be none, and then nothing
/// changes.
enum class DragOperation {
  MoveBrush,    ///< back by so many map units
  RotateBrush,  ///< by (yaw, pitch, roll) in rotation units, which are about y, x and z
  ScaleBrush,   ///< lessens each scale by 0.005 a pixel; none falls below 0.1
  ShearBrush,   ///< adds 0.005 a pixel to each shear coefficient
  MoveEntity    ///< the current entity, if it has an origin, back by so many map units
};

/// One drag of a level, from its first step to its end or to being given up. It works on what was
/// current when it began. Its steps show at once in the level and are told to nobody; the end is
/// one change. One that is neither ended nor given up leaves its steps uncommitted.
class CToolDrag {
 public:
  CToolDrag(CZANDODoc& document, DragOperation operation);

  /// A component of the amount counts only when the mask allows its axis.
  void Step(const Vector& amount, std::uint32_t axisMask);

  /// Commits. What the drag changed snaps, along the axes of the mask, to the grid or the rotation
  /// step, or to whole units or degrees without them; scales and shears do not. Where no step
  /// changed anything, nothing is committed and the level is not modified.
  void End(std::uint32_t axisMask, Commit commit);

  /// Commits what the steps gave, to the last bit.
  void EndUnsnapped();

  /// Everything is as it was before the first step.
  void Cancel();

  [[nodiscard]] DragOperation Operation() const { return operation_; }

 private:
  struct Member {
    std::int32_t id;
    std::array<Placement, 2> before;
  };

  [[nodiscard]] bool MovesEntity() const { return operation_ == DragOperation::MoveEntity; }
  [[nodiscard]] CEntity* DraggedEntity(Level& level) const;
  void StepBrush(CZandoBrush& brush, const Vector& amount) const;
  void EndMove(std::uint32_t axisMask, Commit commit);
  void EndGroupMove(std::uint32_t axisMask, Commit commit);
  void EndRotation(std::uint32_t axisMask, Commit commit);
  void CommitGroupOperation();
  void EndEntity(std::uint32_t axisMask, Commit commit);
  template <typename Edit>
  void ForEachMember(std::uint32_t touched, Edit&& edit);

  CZANDODoc& document_;
  DragOperation operation_;
  bool changed_ = false;     ///< by any step
  std::int32_t group_ = -1;  ///< whose brushes are dragged; -1 for the current brush alone
  std::optional<CBGroup> groupBefore_;
  std::int32_t entity_ = -1;
  Vector entityBefore_{0.0, 0.0, 0.0};
  Vector moved_{0.0, 0.0, 0.0};  ///< by all steps
  std::vector<Member> members_;
};

/// Turns the current brush, or the current group, at once and without snapping.
void TurnBrush(CZANDODoc& document, const Vector& angles, std::uint32_t axisMask);

}  // namespace zando
