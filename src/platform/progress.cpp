#include "platform/progress.h"

#include <algorithm>

namespace zando {

void CPercentProgress::StepIt() {
  ++done_;
  // The end of the bar is kept for the end of the operation.
  constexpr std::int64_t kMost = 99;
  const std::int64_t all = std::max(expected_, done_);
  const auto percent = static_cast<std::int32_t>(std::min(done_ * 100 / all, kMost));
  if (percent <= percent_) return;
  percent_ = percent;
  if (!Advance(percent)) throw CCancelled();
}

}  // namespace zando
