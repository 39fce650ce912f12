#pragma once

#include <filesystem>
#include <vector>

namespace zando {

class CView;

/// The hint of a redraw that has nothing to add.
inline constexpr int kNoHint = 0;

/// Something the user opens, changes and saves: a path, a modified mark and the views that show it.
/// Views attach themselves and must detach before they go.
class CDocument {
 public:
  CDocument() = default;
  CDocument(const CDocument&) = delete;
  CDocument& operator=(const CDocument&) = delete;
  virtual ~CDocument() = default;

  [[nodiscard]] const std::filesystem::path& GetPathName() const { return path_; }
  void SetPathName(const std::filesystem::path& path) { path_ = path; }

  [[nodiscard]] bool IsModified() const { return modified_; }
  void SetModifiedFlag(bool modified = true) { modified_ = modified; }

  void AddView(CView& view);
  void RemoveView(CView& view);
  [[nodiscard]] const std::vector<CView*>& Views() const { return views_; }

  /// Tells every attached view but the sender, in order of attachment.
  void UpdateAllViews(const CView* sender, int hint = kNoHint);

 private:
  std::filesystem::path path_;
  bool modified_ = false;
  std::vector<CView*> views_;
};

/// What shows a document.
class CView {
 public:
  CView() = default;
  CView(const CView&) = delete;
  CView& operator=(const CView&) = delete;
  virtual ~CView() = default;

  /// The document changed; `sender` is the view that changed it, or null.
  virtual void OnUpdate(const CView* sender, int hint) = 0;
};

}  // namespace zando
