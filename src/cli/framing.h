#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "document/zando_doc.h"
#include "geometry/vector.h"
#include "views/camera.h"

namespace zando {

/// In rotation units.
struct ViewAngles {
  double yaw = 0.0;
  double pitch = 0.0;
  double roll = 0.0;
};

/// A picture of a level as it was asked for; what is left open is chosen so that the whole level
/// fits.
struct PictureRequest {
  ViewKind kind = ViewKind::Wireframe;
  std::int32_t width = 1024;  ///< pixels
  std::int32_t height = 768;
  std::optional<Vector> at;          ///< the eye; the middle of an orthographic picture
  std::optional<ViewAngles> angles;  ///< of a picture in perspective
  std::optional<double> zoom;        ///< pixels per map unit, of an orthographic picture
  bool grid = true;                  ///< of an orthographic picture
  std::optional<std::filesystem::path> palette;  ///< of a solid or texture picture
};

/// Puts the camera where the request wants it, ready to draw. Only what is
/// shown of the level has to fit.
void FrameLevel(const CZANDODoc& document, const PictureRequest& request, CCamera& camera);

}  // namespace zando
