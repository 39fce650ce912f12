#include "document/document_file.h"

#include <cstdint>
#include <memory>
#include <new>
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

}  // namespace

void Serialise(CFileContext& file, Level& level, std::int32_t& entity, std::int32_t& group) {
  if (file.storing) NumberBrushes(file, level.BrushList);
  Serialise(file, level.WorkingBrush);
  SerialiseBrushList(file, level);
  Serialise(file, level.World);
  if (!file.storing) level.LinkWorld();
  Serialise(file, level.Entities, entity);
  Serialise(file, level.Groups, group);
  if (file.storing) return;
  for (CEntity& read : level.Entities) read.ParseOrigin();
  if (!level.IsEntity(entity)) entity = -1;
  if (!level.IsGroup(group)) group = -1;
}

LoadedDocument ReadDocument(std::string_view text) {
  try {
    auto document = std::make_unique<CZANDODoc>();
    CFileContext file(text);
    {
      CChange change(*document, kTouchedGroups);
      EditingState& state = change.state;
      Serialise(file, change.level, state.CurrentEntity, state.CurrentGroup);
    }
    return {std::move(document), {}};
  } catch (const CFileError& error) {
    return {nullptr, error.what()};
  } catch (const std::bad_alloc&) {
    return {nullptr, "there is not enough memory to hold the level"};
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

LoadedDocument LoadDocumentFile(const std::filesystem::path& path) {
  const FileContents contents = ReadWholeFile(path);
  if (!contents.bytes) return {nullptr, contents.error};
  LoadedDocument loaded = ReadDocument(*contents.bytes);
  if (loaded.document) loaded.document->SetPathName(path);
  return loaded;
}

std::string SaveDocumentFile(CZANDODoc& document, const std::filesystem::path& path) {
  std::string error = WriteFileAtomically(path, WriteDocument(document));
  if (!error.empty()) return error;
  document.SetPathName(path);
  document.SetModifiedFlag(false);
  return error;
}

}  // namespace zando
