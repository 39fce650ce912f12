#include "platform/dialog.h"

#include <string>

#include "support/fake_form.h"

namespace zando {
namespace {

using Direction = CDataExchange::Direction;

/// Two numbers with ranges, a text, a mark and three radio buttons.
class CSampleDlg : public CDialog {
 public:
  double Number = 0.0;
  std::int32_t Whole = 0;
  std::string Name;
  std::int32_t Mark = 0;
  std::int32_t Choice = -1;
  std::int32_t TemplateId() const override { return 1; }

 protected:
  void DoDataExchange(CDataExchange& exchange) override {
    exchange.Text(10, Number);
    exchange.MinMax(10, Number, -1e9, 1e9);
    exchange.Text(11, Whole);
    exchange.MinMax(11, Whole, 0, 100);
    exchange.Text(12, Name);
    exchange.Check(13, Mark);
    exchange.Radio(14, 3, Choice);
  }
};

TEST(DataExchange, AFieldThatFailsSaysWhatIsAllowedAndEndsTheExchange) {
  const struct {
    ControlId field;
    const char* text;
    const char* message;
  } cases[] = {
      {10, "", "Please enter a number."},
      {10, "1,5", "Please enter a number."},
      {10, "+-1", "Please enter a number."},
      {10, "inf", "Please enter a number."},
      {10, "1e999", "Please enter a number."},
      {10, "2e9", "Please enter a number between -1000000000 and 1000000000."},
      {10, "-2e9", "Please enter a number between -1000000000 and 1000000000."},
      {11, "5.0", "Please enter an integer."},
      {11, "4294967297", "Please enter an integer."},
      {11, "-1", "Please enter an integer between 0 and 100."},
      {11, "101", "Please enter an integer between 0 and 100."},
  };
  for (const auto& wrong : cases) {
    SCOPED_TRACE(wrong.text);
    CSampleDlg dialog;
    dialog.Number = 3.0;
    dialog.Whole = 4;
    dialog.Name = "before";
    testing::CFakeForm form(dialog);
    form.Type(12, "after");
    form.Type(wrong.field, wrong.text);
    form.Press(IDOK);
    EXPECT_EQ(form.Result, 0);
    EXPECT_EQ(form.Error, wrong.message);
    EXPECT_EQ(form.Focus, wrong.field);
    EXPECT_EQ(dialog.Number, 3.0);
    EXPECT_EQ(dialog.Whole, 4);
    EXPECT_EQ(dialog.Name, "before");
  }
}

TEST(DataExchange, AFieldThatStillShowsItsValueKeepsAllDigits) {
  CSampleDlg dialog;
  dialog.Number = 1000.0 / 3.0;
  testing::CFakeForm form(dialog);
  EXPECT_EQ(form.Texts[10], "333.333333333");
  ASSERT_TRUE(dialog.UpdateData(Direction::FromControls));
  EXPECT_EQ(dialog.Number, 1000.0 / 3.0);
  form.Type(10, "333.3330");
  ASSERT_TRUE(dialog.UpdateData(Direction::FromControls));
  EXPECT_EQ(dialog.Number, 333.333);
}

}  // namespace
}  // namespace zando
