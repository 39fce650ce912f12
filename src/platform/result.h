#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace zando {

/// Why something could not be done: one line for a person, without the name of the file that it is
/// about, which the caller knows.
struct Failure {
  std::string reason;
};

/// What an operation that can fail came to: a value or a failure. What was odd in a success travels
/// beside the value, in a CReport.
template <typename T>
class [[nodiscard]] CResult {
 public:
  CResult(T value) : held_(std::move(value)) {}
  CResult(Failure failure) : held_(std::move(failure)) {}

  [[nodiscard]] explicit operator bool() const { return std::holds_alternative<T>(held_); }

  /// The value. There must be one: otherwise std::bad_variant_access is thrown.
  [[nodiscard]] const T& operator*() const& { return std::get<T>(held_); }
  [[nodiscard]] T& operator*() & { return std::get<T>(held_); }
  [[nodiscard]] T&& operator*() && { return std::get<T>(std::move(held_)); }
  [[nodiscard]] const T* operator->() const { return &std::get<T>(held_); }
  [[nodiscard]] T* operator->() { return &std::get<T>(held_); }

  [[nodiscard]] T ValueOr(T otherwise) const { return *this ? **this : std::move(otherwise); }

  /// The reason of the failure; empty when there is a value.
  [[nodiscard]] std::string Error() const {
    return *this ? std::string() : std::get<Failure>(held_).reason;
  }

 private:
  std::variant<T, Failure> held_;
};

/// What an operation came to that gives nothing but success or failure.
template <>
class [[nodiscard]] CResult<void> {
 public:
  CResult() = default;
  CResult(Failure failure) : failure_(std::move(failure)) {}

  [[nodiscard]] explicit operator bool() const { return !failure_; }

  /// The reason of the failure; empty for a success.
  [[nodiscard]] std::string Error() const { return failure_ ? failure_->reason : std::string(); }

 private:
  std::optional<Failure> failure_;
};

/// What was odd, or left out, in something that succeeded: lines for a person, without the name of
/// the file that they are about. Only the first ten are kept; the others are counted.
class CReport {
 public:
  void Add(std::string line) {
    if (!IsFull()) {
      lines_.push_back(std::move(line));
    } else {
      ++more_;
    }
  }

  [[nodiscard]] bool IsEmpty() const { return lines_.empty(); }

  [[nodiscard]] std::size_t Count() const { return lines_.size() + more_; }

  /// Whether lines are only counted from now on.
  [[nodiscard]] bool IsFull() const { return lines_.size() == kMostLines; }

  /// The lines, and a last one that tells how many more there were, if any.
  [[nodiscard]] std::vector<std::string> Lines() const {
    std::vector<std::string> lines = lines_;
    if (more_ > 0) lines.push_back("and " + std::to_string(more_) + " more");
    return lines;
  }

 private:
  static constexpr std::size_t kMostLines = 10;

  std::vector<std::string> lines_;
  std::size_t more_ = 0;
};

}  // namespace zando
