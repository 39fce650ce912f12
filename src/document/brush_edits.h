#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "document/zando_doc.h"
#include "geometry/axes.h"

namespace zando {

/// Operations on the brushes of a level. "Current" is the working brush or the picked one.

/// Appends a copy of the brush, with the next id, and returns its index in the list. The world does
/// not take it.
std::int32_t AddBrush(CZANDODoc& document, const CZandoBrush& brush);

/// The working brush joins the level as solid or carving, or a picked brush changes its operation
/// (the world is then left as it is) and is let go.
void AddToWorld(CZANDODoc& document);
void SubtractFromWorld(CZANDODoc& document);

/// Deletes the picked brush and returns to the working brush; nothing while that is current.
void DeleteCurrentBrush(CZANDODoc& document);

/// Picks the shown brush with the smallest bounds under a point of a view.
void PickBrush(CZANDODoc& document, const Vector& point, const ViewAxes& axes);

/// Picks a brush as the tool does: it is shown, and the tool that moves brushes is chosen.
void PickBrush(CZANDODoc& document, std::int32_t id);

/// Makes the listed brush with this id, or the working brush, the current one.
void SetCurrentBrush(CZANDODoc& document, std::int32_t id);

enum class ListStep { Next, Previous };
/// Makes the neighbour in the list of the picked brush the current one; at an end of the list it
/// stays. Nothing while the working brush is current.
void StepCurrentBrush(CZANDODoc& document, ListStep step);

/// The working brush becomes a copy of the picked one, and current. Nothing while it is already.
void CopyToCurrent(CZANDODoc& document);

/// Generates a primitive into the current brush, and keeps its parameters as those last used.
void GeneratePrimitive(CZANDODoc& document, const AnyPrimitive& primitive);

/// Keeps the parameters as those last used of their primitive, and redraws; no brush changes.
void KeepParameters(CZANDODoc& document, const AnyPrimitive& primitive);

/// Whether a level file and an exported map can hold this name of a brush: neither empty nor with
/// blanks.
[[nodiscard]] bool IsBrushName(std::string_view name);

/// Names the current brush, which is the texture of its faces.
void SetBrushName(CZANDODoc& document, std::string_view name);

/// Puts the current brush there at once, as a committed move.
void PlaceBrush(CZANDODoc& document, const Vector& position);

/// What people edit of one slot of a brush; rotation in rotation units: yaw, pitch, roll.
struct BrushAttributes {
  Vector position;
  Vector rotation;
  Vector scale;
  Vector shear;
  std::string name;

  friend bool operator==(const BrushAttributes&, const BrushAttributes&) = default;
};

/// Of the brush with this id, which is listed or the working brush.
[[nodiscard]] BrushAttributes AttributesOf(const CZANDODoc& document, std::int32_t id,
                                           std::size_t slot);

/// Gives them to the brush. A new position of its own slot is a committed move; a drag of the slot
/// is given up.
void SetBrushAttributes(CZANDODoc& document, std::int32_t id, std::size_t slot,
                        const BrushAttributes& attributes);

/// Rotation (rotation units: yaw, pitch, roll), scale and shear of the current brush.
void SetBrushRotation(CZANDODoc& document, const Vector& rotation);
void SetBrushScale(CZANDODoc& document, const Vector& scale);
void SetBrushShear(CZANDODoc& document, const Vector& shear);

/// No rotation, scale or shear of the current brush; in group movement mode of the current group's
/// own transform, when a group is current.
void ResetBrush(CZANDODoc& document);

}  // namespace zando
