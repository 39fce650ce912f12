#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zando {

/// What there is to say of one brush or plane of a map.
struct MapNote {
  std::int32_t line = 0;
  std::string what;
  std::string texture;  ///< of the plane, or of the brush's first one; empty without any
};

/// Notes of one kind. Only the first thousand are kept, the others are counted.
class CMapNotes {
 public:
  void Add(std::int32_t line, std::string_view what, std::string_view texture);

  [[nodiscard]] std::int64_t Count() const { return count_; }
  [[nodiscard]] const std::vector<MapNote>& Kept() const { return kept_; }

  /// "more than 100 planes: 1, no volume: 3".
  [[nodiscard]] std::string DescribeCounts() const;

 private:
  std::vector<MapNote> kept_;
  std::map<std::string, std::int64_t, std::less<>> counts_;  ///< of each text, as far as kept
  std::int64_t count_ = 0;
};

}  // namespace zando
