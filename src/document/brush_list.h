#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "geometry/brush.h"

namespace zando {

/// The brushes of a level in the order of appending, which is the order of the file, of export and
/// of carving. Owns them; their addresses stay valid until they are removed. The brushes' Prev and
/// Next links run through the list.
class CBrushList {
 public:
  CBrushList() = default;

  /// Takes the brush to the end of the list and returns its index.
  std::int32_t Append(std::unique_ptr<CZandoBrush> brush);

  /// Unlinks and destroys a brush of this list; any other brush is left alone.
  void Remove(const CZandoBrush* brush);

  void Clear() { brushes_.clear(); }

  [[nodiscard]] CZandoBrush* Head() const {
    return brushes_.empty() ? nullptr : brushes_.front().get();
  }
  [[nodiscard]] std::int32_t BrushCount() const {
    return static_cast<std::int32_t>(brushes_.size());
  }
  [[nodiscard]] const std::vector<std::unique_ptr<CZandoBrush>>& Brushes() const {
    return brushes_;
  }

 private:
  std::vector<std::unique_ptr<CZandoBrush>> brushes_;
};

}  // namespace zando
