#pragma once

#include <cstdint>
#include <functional>

#include "document/zando_doc.h"
#include "geometry/axes.h"

namespace zando {

/// Operations on the multi-selection. What is not shown cannot be selected by them.

enum class Selection { Select, Deselect };

/// Takes what is shown and lies in a rectangle of a view into the selection, or out of it: entities
/// by their origin, brushes by their whole bounds, from the first one that belongs to no entity on.
void BoxSelect(CZANDODoc& document, const ViewRect& rect, Selection selection);

/// The same for any other part of a view; what is asked whether it lies there is shown, and an
/// entity has an origin.
void SelectShown(CZANDODoc& document, const std::function<bool(const CEntity&)>& holdsEntity,
                 const std::function<bool(const CZandoBrush&)>& holdsBrush, Selection selection);

void SelectAll(CZANDODoc& document);

/// Also what is hidden is no longer selected.
void SelectNone(CZANDODoc& document);

/// One listed brush by its id, one entity by its index.
void SelectBrush(CZANDODoc& document, std::int32_t id, Selection selection);
void SelectEntity(CZANDODoc& document, std::int32_t index, Selection selection);

}  // namespace zando
