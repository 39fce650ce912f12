#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "document/zando_doc.h"

namespace zando {

/// What a change touched, as bits.
enum Touched : std::uint32_t {
  kTouchedNothing = 0,  ///< nothing that is drawn or saved: the tool, a step of a drag
  kTouchedLevel = 1,    ///< what a file holds: marks the level modified
  kTouchedDisplay = 2,  ///< what the views show beside it
  kTouchedGroups = 4,   ///< groups, or who belongs to them: colours, visibility, list of groups
  kTouchedVisible = 8,  ///< the show filter: visibility
  kTouchedGrid = 16,    ///< grid size or its use
};

/// The door to a level, for the operations of this room alone: while a change lasts, level and
/// editing state may be written. Changes may stand in one another; when the outermost ends, also by
/// an exception, all that was touched is told of.
class CChange {
 public:
  CChange(CZANDODoc& document, std::uint32_t touched)
      : level(document.level_),
        state(document.state_),
        waiting(document.waiting_),
        document_(document),
        compound_(document) {
    Touch(touched);
  }

  Level& level;
  EditingState& state;
  std::optional<std::vector<WaitingBrush>>& waiting;  ///< of a CDeferredWorld, if there is one

  void Touch(std::uint32_t touched) { document_.touched_ |= touched; }

  /// The brush that commands and tools act on.
  [[nodiscard]] CZandoBrush& CurrentBrush();

  /// The entity that is current; there must be one.
  [[nodiscard]] CEntity& CurrentEntity() {
    return level.Entities[static_cast<std::size_t>(state.CurrentEntity)];
  }

 private:
  CZANDODoc& document_;
  CCompoundChange compound_;
};

}  // namespace zando
