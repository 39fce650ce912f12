#pragma once

#include <cstdint>
#include <string>

#include "document/zando_doc.h"
#include "geometry/transform.h"

namespace zando {

/// Operations on the groups of a level. An index that names none changes nothing.

/// A group of its own for the selection, which becomes current. Nothing asks for its name here.
/// This and the next two do nothing without a selection, and end it.
void CreateNewGroup(CZANDODoc& document);

/// The selected brushes and entities join the current group, or leave theirs when there is none.
/// The brushes take the group's centre as pivot.
void AddSelectedToGroup(CZANDODoc& document);
void RemoveSelectedFromGroup(CZANDODoc& document);

/// A group without members becomes the current one.
void CreateEmptyGroup(CZANDODoc& document);

/// Another group, or -1, becomes the current one; with the filter that shows only it, other
/// brushes are shown.
void SetCurrentGroup(CZANDODoc& document, std::int32_t group);

/// What people see of a group.
struct GroupLook {
  std::string name;
  std::uint32_t color;  ///< 0x00BBGGRR
  bool visible;
};
[[nodiscard]] GroupLook LookOf(const CBGroup& group);

/// Gives a group this look; the level counts as modified only when it had another.
void SetGroupLook(CZANDODoc& document, std::int32_t group, const GroupLook& look);

/// Moves the brushes of a group at once, as a committed move.
void MoveGroup(CZANDODoc& document, std::int32_t group, const Vector& offset);

/// Turns, scales or shears the brushes of a group about their centre, as they lie now.
void TransformGroup(CZANDODoc& document, std::int32_t group, const Transform& operation);

}  // namespace zando
