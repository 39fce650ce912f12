// The form that stands in for a window in other tests behaves as a window does.
#include "support/fake_form.h"

#include "support/form_suite.h"

namespace zando::testing {
namespace {

class CFakePerson {
 public:
  explicit CFakePerson(CDialog& dialog) : form_(dialog) {}

  void Type(ControlId id, std::string_view text) { form_.Type(id, text); }
  void Press(ControlId id) { form_.Press(id); }
  void Cancel() { form_.Press(IDCANCEL); }
  void Choose(ControlId list, std::string_view text) { form_.Choose(list, text); }
  void DoubleClick(ControlId list, std::string_view text) { form_.DoubleClick(list, text); }
  auto LinesOf(ControlId list) { return form_.LinesOf(list); }
  std::string TipOf(ControlId list, std::string_view text) { return form_.TipOf(list, text); }
  ControlId Focus() { return form_.Focus; }
  bool IsVisible(ControlId id) { return !form_.Hidden.contains(id); }
  bool IsEnabled(ControlId id) { return !form_.Disabled.contains(id); }
  std::int32_t BarAt(ControlId id) { return form_.Bars[id].position; }
  ControlId Result() { return form_.Result; }

 private:
  CFakeForm form_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, FormSuite, CFakePerson);

}  // namespace
}  // namespace zando::testing
