#include "support/scripted_desktop.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <utility>

namespace zando::testing {
namespace {

template <typename Answer>
Answer Next(std::deque<Answer>& answers, Answer fallback, const std::string& question) {
  if (answers.empty()) {
    ADD_FAILURE() << "nobody expected: " << question;
    return fallback;
  }
  Answer answer = std::move(answers.front());
  answers.pop_front();
  return answer;
}

}  // namespace

void CScriptedDesktop::ShowMessage(std::string_view text) {
  Calls.push_back("message " + std::string(text));
}

SaveAnswer CScriptedDesktop::AskSaveChanges(std::string_view name) {
  Calls.push_back("save? " + std::string(name));
  return Next(SaveAnswers, SaveAnswer::Cancel, Calls.back());
}

YesNo CScriptedDesktop::AskYesNo(std::string_view question) {
  Calls.push_back("yesno? " + std::string(question));
  return Next(YesNoAnswers, YesNo::No, Calls.back());
}

std::optional<std::filesystem::path> CScriptedDesktop::ChooseFile(const FileRequest& request) {
  const bool opens = request.kind == FileRequest::Kind::Open;
  Calls.push_back((opens ? "open " : "save ") + request.title);
  FileRequests.push_back(request);
  return Next(Files, std::optional<std::filesystem::path>(), Calls.back());
}

std::optional<ColorRef> CScriptedDesktop::ChooseColor(ColorRef initial) {
  char digits[7];
  std::snprintf(digits, sizeof digits, "%06X", initial & 0xFFFFFFU);
  Calls.push_back("color " + std::string(digits));
  return Next(Colors, std::optional<ColorRef>(), Calls.back());
}

std::unique_ptr<CProgress> CScriptedDesktop::ShowProgress(std::string_view text) {
  class CBar : public CPercentProgress {
   public:
    explicit CBar(CScriptedDesktop& desktop) : desktop_(desktop) {}

   protected:
    bool Advance(std::int32_t percent) override {
      desktop_.Percent = percent;
      return !desktop_.CancelAt || percent < *desktop_.CancelAt;
    }

   private:
    CScriptedDesktop& desktop_;
  };
  Calls.push_back("progress " + std::string(text));
  return std::make_unique<CBar>(*this);
}

ControlId CScriptedDesktop::DoModal(CDialog& dialog) {
  Calls.push_back("dialog " + std::to_string(dialog.TemplateId()));
  const std::function<ControlId(CDialog&)> cancel = [](CDialog&) { return IDCANCEL; };
  return Next(Dialogs, cancel, Calls.back())(dialog);
}

}  // namespace zando::testing
