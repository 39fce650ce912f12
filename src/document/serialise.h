#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "csg/bsp_tree.h"
#include "document/file_context.h"
#include "document/level.h"

namespace zando {

/// What the section of a polygon begins with.
inline constexpr std::string_view kPolygonHeader = "CZandoPoly";

/// Each stored object writes its section of the document file, or reads it, as the context says.
/// Objects are read into freshly made ones. A file without a line that must be there is refused
/// with CFileError.

/// The level, with the indices of the current entity and group.
void Serialise(CFileContext& file, Level& level, std::int32_t& entity, std::int32_t& group);
void Serialise(CFileContext& file, CZandoBrush& brush);
void Serialise(CFileContext& file, CZandoPoly& polygon);
void Serialise(CFileContext& file, CConstructiveBsp& world);
void Serialise(CFileContext& file, CEntity& entity);
void Serialise(CFileContext& file, CBGroup& group);

/// The lists, with the index of the current item.
void Serialise(CFileContext& file, CEntList& entities, std::int32_t& current);
void Serialise(CFileContext& file, CGroupList& groups, std::int32_t& current);

/// The brush list; the level numbers the brushes that are read.
void SerialiseBrushList(CFileContext& file, Level& level);

/// The keys of worldspawn, when there are any.
void SerialiseWorldKeys(CFileContext& file, std::vector<EntityPair>& keys);

}  // namespace zando
