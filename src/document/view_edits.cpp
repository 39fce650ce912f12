#include "document/view_edits.h"

#include "document/change.h"

namespace zando {
namespace {

constexpr double kSmallestHalvedGrid = 2.0;

void Toggle(std::int32_t& flag) { flag = flag == 0 ? 1 : 0; }

}  // namespace

void SetShowFilter(CZANDODoc& document, std::int32_t filter) {
  CChange change(document, kTouchedVisible);
  change.state.ShowFilter = filter;
}

void ToggleShowEntities(CZANDODoc& document) {
  CChange change(document, kTouchedVisible);
  Toggle(change.state.ShowEntities);
}

void ToggleShowBrush(CZANDODoc& document) {
  CChange change(document, kTouchedDisplay);
  Toggle(change.state.ShowBrush);
}

void ToggleUseGrid(CZANDODoc& document) {
  CChange change(document, kTouchedGrid);
  Toggle(change.state.UseGrid);
}

GridSettings GridSettingsOf(const CZANDODoc& document) {
  const EditingState& state = document.State();
  return {state.GridSize, state.ShowCoarseGrid, state.ShowFineGrid, state.UseRotationSnap,
          state.RotationSnap};
}

void SetGridSettings(CZANDODoc& document, const GridSettings& settings) {
  CChange change(document, kTouchedGrid);
  change.state.GridSize = settings.size;
  change.state.ShowCoarseGrid = settings.showCoarse;
  change.state.ShowFineGrid = settings.showFine;
  change.state.UseRotationSnap = settings.useRotationSnap;
  change.state.RotationSnap = settings.rotationSnap;
}

void StepGrid(CZANDODoc& document, GridStep step) {
  CChange change(document, kTouchedGrid);
  double& size = change.state.GridSize;
  if (step == GridStep::Down) {
    if (size >= kSmallestHalvedGrid) size /= 2.0;
  } else if (size * 2.0 <= kLargestGrid) {
    size *= 2.0;
  }
}

void SetTool(CZANDODoc& document, std::int32_t tool) {
  CChange change(document, kTouchedNothing);
  change.state.ToolMode = tool;
}

void ToggleCamera(CZANDODoc& document) {
  CChange change(document, kTouchedNothing);
  EditingState& state = change.state;
  if (state.ToolMode == ID_TOOL_CAMERA) {
    state.ToolMode = state.SavedToolMode;
    return;
  }
  state.SavedToolMode = state.ToolMode;
  state.ToolMode = ID_TOOL_CAMERA;
}

void ToggleGroupMovement(CZANDODoc& document) {
  CChange change(document, kTouchedNothing);
  Toggle(change.state.GroupMovementMode);
}

}  // namespace zando
