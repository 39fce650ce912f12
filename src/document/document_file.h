#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "document/zando_doc.h"
#include "platform/result.h"

namespace zando {

/// The level's own file, `.3dz`: 8-bit text of key lines in nested sections. docs/file-formats.md
/// describes it.

/// A level read from a file.
struct LoadedDocument {
  std::unique_ptr<CZANDODoc> document;  ///< never null
  /// What is wrong with the file, though it was read. Whoever saves the level in its place loses
  /// what the file may still tell.
  CReport warnings;

  [[nodiscard]] bool IsDamaged() const { return !warnings.IsEmpty(); }
};

/// Reads a level from the text of a document file, or refuses it.
[[nodiscard]] CResult<LoadedDocument> ReadDocument(std::string_view text);

/// The text of the level's document file.
[[nodiscard]] std::string WriteDocument(const CZANDODoc& document);

/// Reads a document file into a fresh level, whose path is set and which is not modified.
[[nodiscard]] CResult<LoadedDocument> LoadDocumentFile(const std::filesystem::path& path);

/// Saves the level with WriteFileAtomically, whose notes it gives. When that fails, an existing
/// file is still whole. On success the path is the document's own and it is no longer modified.
[[nodiscard]] CResult<CReport> SaveDocumentFile(CZANDODoc& document,
                                                const std::filesystem::path& path);

}  // namespace zando
