#pragma once

#include <span>
#include <string_view>

#include "entities/entity.h"

namespace zando {

/// A key and the value that a new entity of a class starts with.
struct DefaultPair {
  std::string_view key;
  std::string_view value;
};

/// The pairs of a new entity of one game class; the first is "classname".
struct ClassDefaults {
  std::span<const DefaultPair> pairs;

  [[nodiscard]] std::string_view ClassName() const { return pairs.front().value; }
};

/// The 71 classes of the game, in their fixed order.
[[nodiscard]] std::span<const ClassDefaults> ClassDefaultTable();

/// The record of a class by its exact name, or null.
[[nodiscard]] const ClassDefaults* FindClassDefaults(std::string_view className);

/// A new entity with the pairs of the record and its origin parsed.
[[nodiscard]] CEntity MakeEntity(const ClassDefaults& defaults);

}  // namespace zando
