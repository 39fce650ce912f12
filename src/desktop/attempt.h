#pragma once

#include <functional>

namespace zando {

/// Runs what a window hands on to the core so that nothing that is thrown gets past.
using Attempt = std::function<void(const std::function<void()>& operation)>;

/// For a window that stands alone.
inline void RunUnguarded(const std::function<void()>& operation) { operation(); }

}  // namespace zando
