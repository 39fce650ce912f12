#include "dialogs/select_classname_dlg.h"

#include <cstddef>

namespace zando {
namespace {

constexpr ControlId kClassNames = 1064;

}  // namespace

const ClassDefaults* CSelectClassnameDlg::Run(CDesktop& desktop) {
  desktop.DoModal(*this);
  return chosen_ < 0 ? nullptr : &ClassDefaultTable()[static_cast<std::size_t>(chosen_)];
}

void CSelectClassnameDlg::OnInitDialog() {
  std::int32_t index = 0;
  for (const ClassDefaults& record : ClassDefaultTable()) {
    Form().AddLine(kClassNames, record.ClassName(), index++);
  }
}

void CSelectClassnameDlg::OnSelectionChange(ControlId list) {
  if (list == kClassNames) chosen_ = Form().SelectedLine(kClassNames);
}

void CSelectClassnameDlg::OnDoubleClick(ControlId list) {
  if (list == kClassNames) OnOK();
}

}  // namespace zando
