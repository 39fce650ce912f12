#include "platform/dialog.h"

#include <cmath>
#include <optional>

#include "platform/number_text.h"
#include "platform/text.h"

namespace zando {
namespace {

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && IsWhiteSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsWhiteSpace(text.back())) text.remove_suffix(1);
  return text;
}

/// The number that a field holds, and nothing else.
template <typename Number>
std::optional<Number> ParseField(std::string_view text) {
  text = Trimmed(text);
  Number value{};
  if (TakeNumber(text, value) != Taken::Number || !text.empty()) return std::nullopt;
  return value;
}

std::string Print(double value) { return NumberText(value, Digits::Twelve); }
std::string Print(std::int32_t value) { return std::to_string(value); }

}  // namespace

void CDataExchange::Text(ControlId id, double& value) {
  if (failed_) return;
  if (!IsSaving()) {
    form_.SetText(id, Print(value));
    return;
  }
  const std::string text = form_.GetText(id);
  const auto parsed = ParseField<double>(text);
  if (!parsed || !std::isfinite(*parsed)) {
    Fail(id, "Please enter a number.");
    return;
  }
  takeBack_ = [&value, before = value] { value = before; };
  // A field that still shows the value keeps all of its digits.
  if (Trimmed(text) != Print(value)) value = *parsed;
}

void CDataExchange::Text(ControlId id, std::int32_t& value) {
  if (failed_) return;
  if (!IsSaving()) {
    form_.SetText(id, Print(value));
    return;
  }
  takeBack_ = [&value, before = value] { value = before; };
  const auto parsed = ParseField<std::int32_t>(form_.GetText(id));
  if (!parsed) {
    Fail(id, "Please enter an integer.");
    return;
  }
  value = *parsed;
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
