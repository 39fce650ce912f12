#include "document/document_file.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <utility>

#include "document/file_context.h"
#include "document/serialise.h"
#include "platform/file_io.h"

namespace zando {
namespace {

void NumberBrushes(CFileContext& file, const CBrushList& list) {
  for (const auto& brush : list.Brushes()) {
    const auto position = static_cast<std::int32_t>(file.BrushPositions.size());
    file.BrushPositions.emplace(brush.get(), position);
  }
}

/// Brushes of entities that are not there: no export writes them.
void WarnOfLostBrushes(CFileContext& file, const CZANDODoc& document) {
  std::size_t position = 0;
  for (const auto& brush : document.BrushList.Brushes()) {
    if (brush->BelongsToEntity() && !document.IsEntity(brush->BEnt)) {
      file.Warn("brush " + std::to_string(position) + " belongs to entity " +
                std::to_string(brush->BEnt) + ", and there is none");
    }
    ++position;
  }
}

}  // namespace

void Serialise(CFileContext& file, CZANDODoc& document) {
  if (file.storing) {
    NumberBrushes(file, document.BrushList);
  } else {
    document.NextBrushId = 0;
  }
  Serialise(file, document.WorkingBrush);
  SerialiseBrushList(file, document);
  Serialise(file, document.World);
  if (!file.storing) document.World.LinkBrushes(document.BrushList.Head());
  Serialise(file, document.Entities, document.CurrentEntity);
  if (!file.storing) document.ParseAllOrigins();
  Serialise(file, document.Groups, document.CurrentGroup);
  if (file.storing) return;
  WarnOfLostBrushes(file, document);
  if (!document.IsEntity(document.CurrentEntity)) document.CurrentEntity = -1;
  if (!document.IsGroup(document.CurrentGroup)) document.CurrentGroup = -1;
  document.ApplyShowFilter();
  document.SetModifiedFlag(false);
}

CResult<LoadedDocument> ReadDocument(std::string_view text) {
  try {
    auto document = std::make_unique<CZANDODoc>();
    CFileContext file(text);
    Serialise(file, *document);
    return LoadedDocument{std::move(document), file.TakeWarnings()};
  } catch (const CFileError& error) {
    return Failure{error.what()};
  } catch (const std::bad_alloc&) {
    return Failure{"there is not enough memory to hold the level"};
  }
}

std::string WriteDocument(const CZANDODoc& document) {
  CFileContext file;
  // Each object has one operation for both directions; a storing context only reads from it.
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast)
  Serialise(file, const_cast<CZANDODoc&>(document));
  return file.TakeOutput();
}

CResult<LoadedDocument> LoadDocumentFile(const std::filesystem::path& path) {
  const auto bytes = ReadWholeFile(path);
  if (!bytes) return Failure{bytes.Error()};
  auto loaded = ReadDocument(*bytes);
  if (loaded) loaded->document->SetPathName(path);
  return loaded;
}

CResult<CReport> SaveDocumentFile(CZANDODoc& document, const std::filesystem::path& path) {
  auto saved = WriteFileAtomically(path, WriteDocument(document));
  if (!saved) return saved;
  document.SetPathName(path);
  document.SetModifiedFlag(false);
  return saved;
}

}  // namespace zando
