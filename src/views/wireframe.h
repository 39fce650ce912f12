#pragma once

#include "document/zando_doc.h"
#include "platform/draw_context.h"
#include "views/camera.h"

namespace zando {

/// What a paint needs beside the level: the camera has its view matrix built and BeginDraw called.
struct ViewDrawing {
  CDC& dc;
  const CCamera& camera;
};

/// Fine grid, coarse grid and world axes of an orthographic view.
void DrawGrid(const ViewDrawing& drawing, const CZANDODoc& document);

/// The outlines and vertex handles of every listed brush but the current one.
void DrawBrushes(const ViewDrawing& drawing, const CZANDODoc& document);

/// The crosses of the shown entities.
void DrawEntities(const ViewDrawing& drawing, const CZANDODoc& document);

/// The current brush in its own colours, and its origin handle.
void DrawCurrentBrush(const ViewDrawing& drawing, const CZANDODoc& document);

}  // namespace zando
