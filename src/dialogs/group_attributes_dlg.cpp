#include "dialogs/group_attributes_dlg.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include "dialogs/brush_attributes_dlg.h"
#include "document/group_edits.h"
#include "platform/number_text.h"

namespace zando {
namespace {

constexpr ControlId kGroupName = 1001;
constexpr ControlId kGroups = 1064;
constexpr ControlId kColor = 1065;
constexpr ControlId kGroupVisible = 1066;
constexpr ControlId kBrushes = 1067;

std::string LineOf(const CBGroup& group) {
  return group.gName + (group.gVis != 0 ? " [X]" : " [ ]");
}

std::string TextOf(const Vector& vector) {
  return NumberText(vector.x, Digits::Six) + ' ' + NumberText(vector.y, Digits::Six) + ' ' +
         NumberText(vector.z, Digits::Six);
}

}  // namespace

void CGroupAttributesDlg::Run() {
  selected_ = document_.State().CurrentGroup;
  if (desktop_.DoModal(*this) == IDOK) document_.SetModifiedFlag();
  SetCurrentGroup(document_, selected_);
}

const CBGroup* CGroupAttributesDlg::Selected() const {
  return document_.GetLevel().IsGroup(selected_) ? &Groups()[static_cast<std::size_t>(selected_)]
                                                 : nullptr;
}

void CGroupAttributesDlg::FillGroups() {
  Form().ClearList(kGroups);
  std::int32_t index = 0;
  for (const CBGroup& group : Groups()) Form().AddLine(kGroups, LineOf(group), index++);
  Form().SelectLine(kGroups, selected_);
  selected_ = Form().SelectedLine(kGroups);
  FillFields();
}

void CGroupAttributesDlg::FillFields() {
  const CBGroup* group = Selected();
  if (group == nullptr) return;
  Form().SetText(kGroupName, group->gName);
  Form().SetChecked(kGroupVisible, group->gVis != 0);
  Form().SetColor(kColor, group->gCol);
  FillBrushes();
}

void CGroupAttributesDlg::FillBrushes() {
  Form().ClearList(kBrushes);
  for (const CZandoBrush& brush : document_.GetLevel().BrushList) {
    if (brush.BGroup == selected_) Form().AddLine(kBrushes, brush.Name, brush.BBid);
  }
}

/// A level file holds no blanks at the end of a name, and an empty one would read back as the name
/// of a new group.
bool CGroupAttributesDlg::ApplyFields() {
  if (Selected() == nullptr) return true;
  std::string name = Form().GetText(kGroupName);
  name.resize(name.find_last_not_of(" \t") + 1);
  if (name.empty()) {
    Form().ReportError(kGroupName, "Please enter a name for the group.");
    return false;
  }
  SetGroupLook(document_, selected_,
               {std::move(name), Form().GetColor(kColor), Form().IsChecked(kGroupVisible)});
  return true;
}

void CGroupAttributesDlg::OnSelectionChange(ControlId list) {
  if (list != kGroups) return;
  const std::int32_t chosen = Form().SelectedLine(kGroups);
  if (!ApplyFields()) {
    Form().SelectLine(kGroups, selected_);
    return;
  }
  selected_ = chosen;
  if (selected_ >= 0) FillGroups();
}

void CGroupAttributesDlg::EditBrush() {
  const std::int32_t brush = Form().SelectedLine(kBrushes);
  if (brush < 0) return;
  CBrushAttributesDlg(document_, brush, kOwnSlot).Run(desktop_);
  FillBrushes();
  Form().SelectLine(kBrushes, brush);
}

std::string CGroupAttributesDlg::LineTip(ControlId list, std::int32_t line) {
  const CZandoBrush* brush = document_.GetLevel().BrushList.Find(line);
  if (list != kBrushes || brush == nullptr) return {};
  const std::string position = "Position " + TextOf(brush->Own().Pos);
  const Bounds& bounds = brush->WorldBounds();
  return bounds.IsEmpty() ? position : position + ", size " + TextOf(bounds.high - bounds.low);
}

void CGroupAttributesDlg::OnDoubleClick(ControlId list) {
  if (list == kBrushes) EditBrush();
  if (list != kGroups) return;
  Form().SetChecked(kGroupVisible, !Form().IsChecked(kGroupVisible));
  if (ApplyFields()) {
    FillGroups();
  } else {
    Form().SetChecked(kGroupVisible, !Form().IsChecked(kGroupVisible));
  }
}

void CGroupAttributesDlg::OnButton(ControlId id) {
  if (id != kColor) return;
  const std::optional<ColorRef> color = desktop_.ChooseColor(Form().GetColor(kColor));
  if (color) Form().SetColor(kColor, *color);
}

void CGroupAttributesDlg::OnOK() {
  if (ApplyFields()) CDialog::OnOK();
}

}  // namespace zando
