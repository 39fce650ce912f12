#pragma once

#include <cstdint>
#include <exception>

namespace zando {

/// Thrown by a step of a CProgress when the user wants the operation under way to end. The
/// operation leaves everything as it was before.
class CCancelled : public std::exception {
 public:
  [[nodiscard]] const char* what() const noexcept override { return "cancelled"; }
};

/// Where a long operation shows that it goes on: each call advances a bar by its own default step.
class CProgress {
 public:
  CProgress() = default;
  CProgress(const CProgress&) = delete;
  CProgress& operator=(const CProgress&) = delete;
  virtual ~CProgress() = default;

  /// So many steps are still to come, as far as can be told.
  virtual void Expect(std::int64_t /*steps*/) {}

  /// One step is done. May throw CCancelled.
  virtual void StepIt() = 0;
};

/// A progress from nothing done to all done. It tells of whole percents only, and never goes back
/// when more turns out to be to come than was expected.
class CPercentProgress : public CProgress {
 public:
  void Expect(std::int64_t steps) final { expected_ = done_ + steps; }
  void StepIt() final;

 protected:
  /// `percent` of all is done, more than at the last call and less than 100. False when the
  /// operation is to end.
  virtual bool Advance(std::int32_t percent) = 0;

 private:
  std::int64_t done_ = 0;
  std::int64_t expected_ = 0;
  std::int32_t percent_ = 0;
};

}  // namespace zando
