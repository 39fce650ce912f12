#pragma once

#include <string>

#include "platform/desktop.h"
#include "platform/result.h"

namespace zando {

/// The first line of a report, and how many more there are; empty without any.
[[nodiscard]] std::string Summary(const CReport& report);

/// Says in the status bar what was done, and what was odd about it; that stays until the next
/// command.
void ShowOutcome(CDesktop& desktop, const std::string& done, const CReport& notes);

}  // namespace zando
