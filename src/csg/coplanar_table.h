#pragma once

#include <array>
#include <cstddef>

#include "geometry/polygon.h"

namespace zando {

/// On which side of a coplanar brush face a polygon counts: outside, which is before the face, or
/// inside the brush.
enum class Coplanar { Outside, Inside };
struct CoplanarRule {
  Coplanar sameFacing;
  Coplanar oppositeFacing;
};

/// Whether a polygon of this class goes on before the plane; a spanning one does with its front
/// piece.
[[nodiscard]] constexpr bool GoesToFront(PolygonClass side, CoplanarRule rule) {
  switch (side) {
    case PolygonClass::Front:
    case PolygonClass::Spanning:
      return true;
    case PolygonClass::CoplanarSame:
      return rule.sameFacing == Coplanar::Outside;
    case PolygonClass::CoplanarOpposite:
      return rule.oppositeFacing == Coplanar::Outside;
    case PolygonClass::Back:
      break;
  }
  return false;
}

/// A brush that clips, as the brush whose face it clips sees it in the list.
enum class ClippingBrush { EarlierSolid, LaterSolid, EarlierCarver, LaterCarver };

/// The table of docs/coincident-planes.md, which tells why the walks differ: same facing first,
/// then opposite facing.
struct CoplanarTable {
  using Rows = std::array<CoplanarRule, 4>;  ///< by ClippingBrush

  CoplanarRule insertAdd{Coplanar::Outside, Coplanar::Inside};
  CoplanarRule insertSubtract{Coplanar::Inside, Coplanar::Outside};
  CoplanarRule partition{Coplanar::Outside, Coplanar::Inside};

  /// Faces of the world, by the brush that is inserted.
  CoplanarRule olderFaceBySolid{Coplanar::Outside, Coplanar::Inside};
  CoplanarRule olderFaceByCarver{Coplanar::Inside, Coplanar::Inside};

  /// Faces of a solid, in an optimal rebuild.
  Rows solidFace{{{Coplanar::Outside, Coplanar::Inside},
                  {Coplanar::Outside, Coplanar::Inside},
                  {Coplanar::Outside, Coplanar::Inside},
                  {Coplanar::Inside, Coplanar::Inside}}};

  /// Faces of a carver, in an optimal rebuild.
  Rows carvingFace{{{Coplanar::Inside, Coplanar::Outside},
                    {Coplanar::Outside, Coplanar::Inside},
                    {Coplanar::Inside, Coplanar::Outside},
                    {Coplanar::Inside, Coplanar::Inside}}};
};
inline constexpr CoplanarTable kCoplanarTable;

[[nodiscard]] constexpr CoplanarRule SolidFaceRule(ClippingBrush other) {
  return kCoplanarTable.solidFace[static_cast<std::size_t>(other)];
}
[[nodiscard]] constexpr CoplanarRule CarvingFaceRule(ClippingBrush other) {
  return kCoplanarTable.carvingFace[static_cast<std::size_t>(other)];
}

}  // namespace zando
