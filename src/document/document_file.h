#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "document/zando_doc.h"

namespace zando {

/// The level's own file, `.3dz`: 8-bit text of key lines in nested sections. docs/file-formats.md
/// describes it.

/// A level read from a file, or the reason why there is none.
struct LoadedDocument {
  std::unique_ptr<CZANDODoc> document;  ///< null when the file was refused
  std::string error;                    ///< one line, without the file's name
};

/// Reads a level from the text of a document file.
[[nodiscard]] LoadedDocument ReadDocument(std::string_view text);

/// The text of the level's document file.
[[nodiscard]] std::string WriteDocument(const CZANDODoc& document);

/// Reads a document file into a fresh level, whose path is set and which is not modified.
[[nodiscard]] LoadedDocument LoadDocumentFile(const std::filesystem::path& path);

/// Saves the level: into a temporary file in the same folder, which then takes the name. Returns
/// the empty string, or one line that says what failed; an existing file is then still whole. On
/// success the path is the document's own and it is no longer modified.
[[nodiscard]] std::string SaveDocumentFile(CZANDODoc& document, const std::filesystem::path& path);

}  // namespace zando
