#pragma once

#include "document/selection_edits.h"
#include "document/zando_doc.h"
#include "platform/draw_context.h"
#include "views/camera.h"

namespace zando {

/// What a view shows at a place, in client pixels. In an orthographic view the plane of the view
/// decides; in a perspective one the ray through the pixel, or where things stand on the screen.
/// What is not shown, or not before the eye, is not there; and where nothing is, nothing changes.
/// The camera has its view matrix built.

/// Picks the shown brush with the smallest bounds; in perspective the one whose face is the
/// front-most of the world, or, where outlines are drawn, the one that the ray enters first.
void PickBrushAt(CZANDODoc& document, const CCamera& camera, ScreenPoint pixel);

/// Makes the nearest entity current: within 100 map units, in perspective within 12 pixels.
void PickEntityAt(CZANDODoc& document, const CCamera& camera, ScreenPoint pixel);

/// Takes what lies in a frame into the selection, or out of it: entities by their origin, brushes
/// by all of their corners.
void SelectInFrame(CZANDODoc& document, const CCamera& camera, const ScreenRect& frame,
                   Selection selection);

}  // namespace zando
