#include "platform/dialog.h"

#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

namespace zando {
namespace {

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

template <typename Number>
bool ParseWhole(std::string_view text, Number& value) {
  text = Trimmed(text);
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  Number parsed{};
  const char* end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, parsed);
  if (error != std::errc() || rest != end) return false;
  value = parsed;
  return true;
}

template <typename Number, typename... Format>
std::string Print(Number value, Format... format) {
  std::array<char, 40> digits{};
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value, format...);
  return {digits.data(), result.ptr};
}

/// Fields show numbers as people type them: six significant digits.
std::string Print(double value) { return Print(value, std::chars_format::general, 6); }

}  // namespace

void CDataExchange::Text(ControlId id, double& value) {
  if (failed_) return;
  if (!IsSaving()) {
    form_.SetText(id, Print(value));
    return;
  }
  double parsed = 0.0;
  const std::string text = form_.GetText(id);
  if (!ParseWhole(text, parsed) || !std::isfinite(parsed)) {
    Fail(id, "Please enter a number.");
    return;
  }
  takeBack_ = [&value, before = value] { value = before; };
  // A field that still shows the value keeps all of its digits.
  if (Trimmed(text) != Print(value)) value = parsed;
}

void CDataExchange::Text(ControlId id, std::int32_t& value) {
  if (failed_) return;
  if (!IsSaving()) {
    form_.SetText(id, Print(value));
    return;
  }
  takeBack_ = [&value, before = value] { value = before; };
  if (!ParseWhole(form_.GetText(id), value)) Fail(id, "Please enter an integer.");
}

void CDataExchange::Text(ControlId id, std::string& value) {
  if (failed_) return;
  if (IsSaving()) {
    value = form_.GetText(id);
  } else {
    form_.SetText(id, value);
  }
}

void CDataExchange::Check(ControlId id, std::int32_t& value) {
  if (failed_) return;
  if (IsSaving()) {
    value = form_.IsChecked(id) ? 1 : 0;
  } else {
    form_.SetChecked(id, value != 0);
  }
}

void CDataExchange::Radio(ControlId first, std::int32_t count, std::int32_t& value) {
  if (failed_) return;
  std::int32_t checked = -1;
  for (std::int32_t i = 0; i < count; ++i) {
    if (IsSaving()) {
      if (form_.IsChecked(first + i)) checked = i;
    } else {
      form_.SetChecked(first + i, i == value);
    }
  }
  if (IsSaving()) value = checked;
}

void CDataExchange::MinMax(ControlId id, double value, double low, double high) {
  if (failed_ || !IsSaving() || (low <= value && value <= high)) return;
  FailRange(id, "Please enter a number between " + Print(low) + " and " + Print(high) + ".");
}

void CDataExchange::MinMax(ControlId id, std::int32_t value, std::int32_t low, std::int32_t high) {
  if (failed_ || !IsSaving() || (low <= value && value <= high)) return;
  FailRange(id, "Please enter an integer between " + Print(low) + " and " + Print(high) + ".");
}

void CDataExchange::Fail(ControlId id, std::string_view message) {
  failed_ = true;
  form_.ReportError(id, message);
}

void CDataExchange::FailRange(ControlId id, std::string_view message) {
  if (takeBack_) takeBack_();
  Fail(id, message);
}

void CDialog::Attach(CDialogForm& form) {
  form_ = &form;
  UpdateData(CDataExchange::Direction::ToControls);
  OnInitDialog();
}

void CDialog::Click(ControlId id) {
  switch (id) {
    case IDOK:
      OnOK();
      break;
    case IDCANCEL:
      OnCancel();
      break;
    default:
      OnButton(id);
      break;
  }
}

bool CDialog::UpdateData(CDataExchange::Direction direction) {
  CDataExchange exchange(*form_, direction);
  DoDataExchange(exchange);
  return !exchange.Failed();
}

void CDialog::OnOK() {
  if (UpdateData(CDataExchange::Direction::FromControls)) form_->Close(IDOK);
}

void CDialog::OnCancel() { form_->Close(IDCANCEL); }

}  // namespace zando
