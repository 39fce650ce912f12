#pragma once

#include <string>

#include "document/zando_doc.h"

namespace zando {

/// What the dialogs of the editor show of a level: the counts of its world, every brush with its
/// attributes, every entity with its keys and values, every group with its look. One JSON object,
/// in UTF-8, its keys in a fixed order; the manual page of zando-cli describes it.
[[nodiscard]] std::string LevelAsJson(const CZANDODoc& document);

}  // namespace zando
