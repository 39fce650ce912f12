#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

#include "document/editing_state.h"
#include "document/level.h"
#include "platform/document.h"
#include "platform/frame_display.h"
#include "textures/wad2.h"

namespace zando {

/// A brush as it was when it joined the level, for a world that takes it later.
struct WaitingBrush {
  CZandoBrush brush;
  std::int32_t id;
};

/// A level that is open: the level itself, the editing state that all its views share, and the
/// textures to choose from. Everybody reads it; it changes through the operations of the ..._edits
/// headers of this room only. Each of them is one change: what it touched, it says once, and from
/// that follow the modified mark, the derived colours and visibility, the display of the frame and
/// the redraw of the views, in this order. Lookups that find nothing leave everything as it was.
class CZANDODoc : public CDocument {
 public:
  /// An empty level, whose working brush is the default box.
  CZANDODoc();

  [[nodiscard]] const Level& GetLevel() const { return level_; }
  [[nodiscard]] const EditingState& State() const { return state_; }

  /// The working brush, or the one that is picked.
  [[nodiscard]] const CZandoBrush& CurrentBrush() const;
  [[nodiscard]] bool BrushPicked() const { return state_.CurrentBrush != kWorkingBrush; }

  /// Whether any brush or entity is in the multi-selection.
  [[nodiscard]] bool AnySelected() const;

  /// The palette and the archive are read anew; see CWad2::Create.
  void LoadTextures(const std::filesystem::path& palette, const std::filesystem::path& archive);
  [[nodiscard]] const CWad2& Textures() const { return textures_; }

  /// Whoever is told of changed groups and grid; null for nobody.
  void SetFrame(CFrameDisplay* frame) { frame_ = frame; }
  [[nodiscard]] CFrameDisplay* Frame() const { return frame_; }

 private:
  friend class CChange;
  friend class CCompoundChange;

  void BeginChange() { ++depth_; }
  void EndChange();
  void TellOfChange();

  Level level_;
  EditingState state_;
  CWad2 textures_;
  CFrameDisplay* frame_ = nullptr;
  std::optional<std::vector<WaitingBrush>> waiting_;  ///< while insertions are deferred
  std::int32_t depth_ = 0;                            ///< changes within changes that are under way
  std::uint32_t touched_ = 0;  ///< what they have touched so far, see Touched
};

/// Several operations as one change: views, mark and frame are told once, when it ends.
class CCompoundChange {
 public:
  explicit CCompoundChange(CZANDODoc& document) : document_(document) { document_.BeginChange(); }
  CCompoundChange(const CCompoundChange&) = delete;
  CCompoundChange& operator=(const CCompoundChange&) = delete;
  ~CCompoundChange() { document_.EndChange(); }

 private:
  CZANDODoc& document_;
};

}  // namespace zando
