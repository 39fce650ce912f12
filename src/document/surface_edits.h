#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "document/zando_doc.h"

namespace zando {

/// Gives a face of the current brush a surface of its own, or takes it back. Nothing happens
/// without such a face.
void SetFaceSurface(CZANDODoc& document, std::size_t face,
                    const std::optional<FaceSurface>& surface);

/// What keeps a pair from being one of worldspawn, in one line, or nothing. Both must stand
/// unharmed in quotes, and on a line of a file; worldspawn is worldspawn.
[[nodiscard]] std::string CheckWorldKey(std::string_view key, std::string_view value);

/// Changes the first key of worldspawn with this name, whatever the case of its letters, or adds
/// it. An empty value takes the key away.
void SetWorldKey(CZANDODoc& document, std::string_view key, std::string_view value);

}  // namespace zando
