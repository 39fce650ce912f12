#include "app/status_text.h"

#include "platform/text.h"

namespace zando {

std::string Summary(const CReport& report) {
  if (report.IsEmpty()) return {};
  std::string text = ToLatin1(report.Lines().front());
  if (report.Count() > 1) text += "; and " + std::to_string(report.Count() - 1) + " more";
  return text;
}

void ShowOutcome(CDesktop& desktop, const std::string& done, const CReport& notes) {
  if (notes.IsEmpty()) {
    desktop.SetStatusText(done);
  } else {
    desktop.ShowFailure(done + "; but " + Summary(notes));
  }
}

}  // namespace zando
