#pragma once

#include <cstdint>
#include <exception>

namespace zando {

/// Thrown by CProgress::StepIt when the user wants the operation under way to end. The operation
/// leaves everything as it was before.
class CCancelled : public std::exception {
 public:
  [[nodiscard]] const char* what() const noexcept override { return "cancelled"; }
};

/// Where a long operation shows that it goes on, from nothing done to all done.
class CProgress {
 public:
  CProgress() = default;
  CProgress(const CProgress&) = delete;
  CProgress& operator=(const CProgress&) = delete;
  virtual ~CProgress() = default;

  /// So many steps are still to come, as far as can be told.
  void Expect(std::int64_t steps) { expected_ = done_ + steps; }

  /// One step is done. Throws CCancelled when the user has had enough.
  void StepIt();

 protected:
  /// The bar has come further: `percent` of all is done, more than at the last call. False when the
  /// operation is to end.
  virtual bool Advance(std::int32_t percent) = 0;

 private:
  std::int64_t done_ = 0;
  std::int64_t expected_ = 0;
  std::int32_t percent_ = 0;
};

}  // namespace zando
