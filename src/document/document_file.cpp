#include "document/document_file.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <utility>

#include "document/change.h"
#include "document/file_context.h"
#include "document/serialise.h"
#include "platform/file_io.h"

namespace zando {
namespace {

void NumberBrushes(CFileContext& file, const CBrushList& list) {
  for (const CZandoBrush& brush : list) {
    const auto position = static_cast<std::int32_t>(file.BrushPositions.size());
    file.BrushPositions.emplace(&brush, position);
  }
}

/// Brushes of entities that are not there: no export writes them.
void WarnOfLostBrushes(CFileContext& file, const Level& level) {
  std::size_t position = 0;
  for (const CZandoBrush& brush : level.BrushList) {
    if (brush.BelongsToEntity() && !level.IsEntity(brush.BEnt)) {
      file.Warn("brush " + std::to_string(position) + " belongs to entity " +
                std::to_string(brush.BEnt) + ", and there is none");
    }
    ++position;
  }
}

}  // namespace

void Serialise(CFileContext& file, Level& level, std::int32_t& entity, std::int32_t& group) {
  if (file.storing) NumberBrushes(file, level.BrushList);
  Serialise(file, level.WorkingBrush);
  SerialiseBrushList(file, level);
  Serialise(file, level.World);
  if (!file.storing) level.LinkWorld();
  Serialise(file, level.Entities, entity);
  Serialise(file, level.Groups, group);
  SerialiseWorldKeys(file, level.WorldKeys);
  if (file.storing) return;
  WarnOfLostBrushes(file, level);
  for (CEntity& read : level.Entities) read.ParseOrigin();
  if (!level.IsEntity(entity)) entity = -1;
  if (!level.IsGroup(group)) group = -1;
}

CResult<LoadedDocument> ReadDocument(std::string_view text) {
  try {
    auto document = std::make_unique<CZANDODoc>();
    CFileContext file(text);
    {
      CChange change(*document, kTouchedGroups);
      EditingState& state = change.state;
      Serialise(file, change.level, state.CurrentEntity, state.CurrentGroup);
    }
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
  auto& level = const_cast<Level&>(document.GetLevel());
  std::int32_t entity = document.State().CurrentEntity;
  std::int32_t group = document.State().CurrentGroup;
  Serialise(file, level, entity, group);
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
