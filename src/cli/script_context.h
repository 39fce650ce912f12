#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/script.h"
#include "document/world_edits.h"
#include "document/zando_doc.h"

namespace zando {

/// What the commands of a running script work on. The lookups throw CScriptError when they find
/// nothing.
class CScriptContext {
 public:
  CZANDODoc& document;
  CDeferredWorld world;  ///< to be caught up with before anybody reads it
  std::vector<PendingFile> files;
  std::vector<std::string> notes;

  explicit CScriptContext(CZANDODoc& level) : document(level), world(level) {}

  /// The listed brush that a word names: its index in the list, `last`, or the first shown brush of
  /// that name. A hidden brush cannot be named.
  [[nodiscard]] const CZandoBrush& Brush(const std::string& word) const;

  /// As Brush, but every shown brush of the name, and FIRST..LAST for a range of indices.
  [[nodiscard]] std::vector<const CZandoBrush*> Brushes(const std::string& word) const;

  [[nodiscard]] std::int32_t GroupIndex(std::string_view name) const;

  /// The index, if there is such an entity.
  [[nodiscard]] std::int32_t CheckedEntity(std::int32_t index) const;
  [[nodiscard]] const CEntity& CurrentEntity() const;

 private:
  [[nodiscard]] const CZandoBrush& BrushAt(std::int32_t index) const;
  [[nodiscard]] std::vector<const CZandoBrush*> ShownBrushesNamed(const std::string& name) const;
};

/// Text that both the level's own file and a .map hold unharmed: no quotes, no blanks at the ends.
/// Returns it; `what` names it in the error.
[[nodiscard]] const std::string& CheckedText(const std::string& text, std::string_view what);

/// The same for a text that stands in a .map as a word, which a blank would end.
[[nodiscard]] const std::string& CheckedWord(const std::string& text, std::string_view what);

}  // namespace zando
