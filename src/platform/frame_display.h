#pragma once

namespace zando {

/// What the main frame shows of the active document beside its views.
class CFrameDisplay {
 public:
  CFrameDisplay() = default;
  CFrameDisplay(const CFrameDisplay&) = delete;
  CFrameDisplay& operator=(const CFrameDisplay&) = delete;
  virtual ~CFrameDisplay() = default;

  /// The list of groups, or a name or mark in it, changed.
  virtual void RefreshGroups() = 0;

  /// The grid size or its use changed.
  virtual void RefreshGrid() = 0;
};

}  // namespace zando
