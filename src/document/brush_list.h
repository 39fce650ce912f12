#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <vector>

#include "geometry/brush.h"

namespace zando {

/// The brushes of a level in the order of appending, which is the order of the file, of export and
/// of carving. Owns them; their addresses stay valid until they are removed. The brushes' Prev and
/// Next links run through the list. Ids ascend along it.
class CBrushList {
  using Owned = std::vector<std::unique_ptr<CZandoBrush>>;

  template <typename Brush, typename Place>
  class CIterator {
   public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = CZandoBrush;
    using difference_type = std::ptrdiff_t;
    using pointer = Brush*;
    using reference = Brush&;

    CIterator() = default;
    explicit CIterator(Place place) : place_(place) {}
    reference operator*() const { return **place_; }
    pointer operator->() const { return place_->get(); }
    CIterator& operator++() {
      ++place_;
      return *this;
    }
    CIterator operator++(int) { return CIterator(place_++); }
    friend bool operator==(const CIterator&, const CIterator&) = default;

   private:
    Place place_;
  };

 public:
  using iterator = CIterator<CZandoBrush, Owned::iterator>;
  using const_iterator = CIterator<const CZandoBrush, Owned::const_iterator>;

  CBrushList() = default;
  CBrushList(const CBrushList& source);
  CBrushList(CBrushList&&) noexcept = default;
  CBrushList& operator=(const CBrushList& source) { return *this = CBrushList(source); }
  CBrushList& operator=(CBrushList&&) noexcept = default;
  ~CBrushList() = default;

  friend bool operator==(const CBrushList& a, const CBrushList& b);

  /// Takes the brush, whose id is larger than those listed, to the end and returns its index.
  std::int32_t Append(std::unique_ptr<CZandoBrush> brush);

  /// Unlinks and destroys the brush with this id, if there is one.
  void Remove(std::int32_t id);

  [[nodiscard]] std::int32_t BrushCount() const {
    return static_cast<std::int32_t>(brushes_.size());
  }
  [[nodiscard]] bool IsEmpty() const { return brushes_.empty(); }

  /// The first brush, or none.
  [[nodiscard]] const CZandoBrush* Head() const {
    return brushes_.empty() ? nullptr : brushes_.front().get();
  }

  /// The brush with this id, or none.
  [[nodiscard]] const CZandoBrush* Find(std::int32_t id) const;
  [[nodiscard]] CZandoBrush* Find(std::int32_t id);

  /// The brush at an index below BrushCount.
  [[nodiscard]] const CZandoBrush& operator[](std::int32_t index) const {
    return *brushes_[static_cast<std::size_t>(index)];
  }
  [[nodiscard]] CZandoBrush& operator[](std::int32_t index) {
    return *brushes_[static_cast<std::size_t>(index)];
  }

  [[nodiscard]] iterator begin() { return iterator(brushes_.begin()); }
  [[nodiscard]] iterator end() { return iterator(brushes_.end()); }
  [[nodiscard]] const_iterator begin() const { return const_iterator(brushes_.begin()); }
  [[nodiscard]] const_iterator end() const { return const_iterator(brushes_.end()); }

 private:
  [[nodiscard]] Owned::const_iterator PlaceOf(std::int32_t id) const;

  Owned brushes_;
};

}  // namespace zando
