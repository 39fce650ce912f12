// The window that stands in for a real one in other tests behaves as that does.
#include "support/window_suite.h"

namespace zando::testing {
namespace {

class CFakeHolder {
 public:
  explicit CFakeHolder(CZANDOView& view) : view_(view) { view.SetWindow(&window_); }
  ~CFakeHolder() { view_.SetWindow(nullptr); }

  CViewWindow& Window() { return window_; }
  std::string Title() { return window_.Titles.back(); }
  std::optional<ScreenRect> Frame() { return window_.DragRect; }
  int Paints() { return window_.Redraws + settled_; }
  void Settle() { settled_ += std::exchange(window_.Invalidations, 0) > 0 ? 1 : 0; }

 private:
  CZANDOView& view_;
  CFakeViewWindow window_;
  int settled_ = 0;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, WindowSuite, CFakeHolder);

}  // namespace
}  // namespace zando::testing
