#pragma once

#include <cstdint>
#include <string_view>

#include "document/zando_doc.h"
#include "geometry/axes.h"

namespace zando {

/// Operations on the entities of a level. An index that names none changes nothing.

/// Appends the entity, in the current group and with its origin parsed, and makes it current.
void AddEntity(CZANDODoc& document, CEntity entity);

/// A light at the origin, in the current group, becomes the current entity.
void PlaceLight(CZANDODoc& document);

/// A copy of the current entity becomes current; nothing without one.
void CopyCurrentEntity(CZANDODoc& document);

/// Removes an entity; its brushes belong to none, those of later ones follow them down. So does
/// the current entity; there is none when it was the one removed.
void DeleteEntity(CZANDODoc& document, std::int32_t index);

/// Removes the current entity; the one before it becomes current, if there is one.
void DeleteCurrentEntity(CZANDODoc& document);

/// Makes an entity, or none (-1), the current one.
void SetCurrentEntity(CZANDODoc& document, std::int32_t index);

/// Makes the shown entity nearest to a point of a view the current one, if it is no more than 100
/// units away.
void PickEntity(CZANDODoc& document, const Vector& point, const ViewAxes& axes);

/// Replaces the value of the first pair with this key, or adds a pair; the origin is parsed anew.
void SetEntityKey(CZANDODoc& document, std::int32_t index, std::string_view key,
                  std::string_view value);

/// Replaces, appends or removes one pair, by its index. Origins are left to ParseAllOrigins.
void SetEntityPair(CZANDODoc& document, std::int32_t index, std::int32_t pair,
                   const EntityPair& value);
void AddEntityPair(CZANDODoc& document, std::int32_t index, const EntityPair& value);
void RemoveEntityPair(CZANDODoc& document, std::int32_t index, std::int32_t pair);

/// Every origin as its pair says.
void ParseAllOrigins(CZANDODoc& document);

/// Every selected brush becomes one of the entity's and joins its group, and is no longer selected.
void AssociateSelectedBrushes(CZANDODoc& document, std::int32_t index);

/// The same for one listed brush, by its id.
void AssociateBrush(CZANDODoc& document, std::int32_t index, std::int32_t id);

/// Every brush of the current group, if there is one, becomes one of the entity's, which joins it.
void AssociateBrushGroup(CZANDODoc& document, std::int32_t index);

/// The entity's brushes belong to none.
void DisassociateBrushes(CZANDODoc& document, std::int32_t index);

}  // namespace zando
