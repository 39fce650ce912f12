#pragma once

#include "document/editing_state.h"
#include "document/level.h"

namespace zando {

/// Colour and visibility of brushes and entities are derived from their groups, the show filter and
/// whether entities are shown.

/// Colours from the groups, then the show filter. An index that names no group gives white.
void RefreshColors(Level& level, const EditingState& state);

/// Which brushes and entities are shown. An index that names no group counts as a group that is not
/// visible.
void ApplyShowFilter(Level& level, const EditingState& state);

/// Both, for one that has just joined the level.
void RefreshShown(CZandoBrush& brush, const Level& level, const EditingState& state);
void RefreshShown(CEntity& entity, const Level& level, const EditingState& state);

}  // namespace zando
