#pragma once

#include <cstdint>
#include <vector>

#include "formats/map_source.h"
#include "geometry/brush.h"

namespace zando {

/// Why a brush of a map cannot be one of ours.
enum class BrushFault {
  None,
  NoVolume,
  TooManyPlanes,    ///< more than kMostPlanes
  TooManyVertices,  ///< a face would need more than MAX_POLY_VERTS
  NoPlane,          ///< three points of a line lie on one line, and the other planes do not close
  OutOfRange        ///< coordinates beyond 32 bits
};

/// Why a plane of a brush made no face.
enum class PlaneFault {
  NoPlane,   ///< its three points lie on one line
  Outside,   ///< it does not touch the solid that the others enclose
  Duplicate  ///< an earlier plane of the brush is the same
};

struct FacelessPlane {
  std::size_t plane;  ///< index in the brush
  PlaneFault fault;
};

/// What the planes of a brush came to.
struct MapBrushResult {
  BrushFault fault = BrushFault::None;
  bool open = false;  ///< the planes enclose no bounded space; the faces reach as far as they may
  std::vector<FacelessPlane> faceless;
};

/// Makes `brush` the convex solid behind the planes of a brush in a map. Each face is a base
/// polygon, trimmed by the other planes; the faces stand in the order that the export reverses; a
/// brush that base polygons about the origin do not hold whole gets them about its own middle. The
/// brush takes the texture that most of its faces carry as its name, the first of equals; a face
/// that the name and the usual numbers do not say keeps what it carries as its surface. With a
/// fault `brush` is not to be used.
[[nodiscard]] MapBrushResult BuildMapBrush(const MapBrush& source, CZandoBrush& brush);

}  // namespace zando
