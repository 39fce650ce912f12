#pragma once

#include <cstdint>

#include "platform/dialog.h"
#include "platform/progress.h"

namespace zando {

/// A progress bar of a form that goes on by steps: from 0 to 100 by 10 until it is told otherwise.
/// A step beyond the end begins anew, so that work of unknown length still shows that it goes on.
class CFormProgress final : public CProgress {
 public:
  CFormProgress(CDialogForm& form, ControlId bar) : form_(form), bar_(bar) {}

  /// `high` lies above `low`; the bar stands at `low` afterwards.
  void SetRange(std::int32_t low, std::int32_t high) {
    low_ = low;
    high_ = high;
    form_.SetProgressRange(bar_, low, high);
    SetPos(low);
  }
  void SetStep(std::int32_t step) { step_ = step; }
  void SetPos(std::int32_t position) {
    position_ = position;
    form_.SetProgressPos(bar_, position);
  }
  void StepIt() override { SetPos(step_ > high_ - position_ ? low_ : position_ + step_); }

 private:
  CDialogForm& form_;
  ControlId bar_;
  std::int32_t low_ = 0;
  std::int32_t high_ = 100;
  std::int32_t step_ = 10;
  std::int32_t position_ = 0;
};

}  // namespace zando
