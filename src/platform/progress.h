#pragma once

namespace zando {

/// Where a long operation shows that it goes on: each call advances a bar by its own default step.
class CProgress {
 public:
  CProgress() = default;
  CProgress(const CProgress&) = delete;
  CProgress& operator=(const CProgress&) = delete;
  virtual ~CProgress() = default;

  virtual void StepIt() = 0;
};

}  // namespace zando
