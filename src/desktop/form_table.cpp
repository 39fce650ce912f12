#include "desktop/form_table.h"

#include <ui_brush_attributes.h>
#include <ui_bsp_manager.h>
#include <ui_create_box.h>
#include <ui_create_cylinder.h>
#include <ui_create_spheroid.h>
#include <ui_create_staircase.h>
#include <ui_entity_editor.h>
#include <ui_global_settings.h>
#include <ui_grid_settings.h>
#include <ui_group_attributes.h>
#include <ui_select_classname.h>
#include <ui_world_keys.h>

#include <QDialog>
#include <QLabel>
#include <algorithm>
#include <map>

namespace zando {
namespace {

/// Labels of one column, which may stand in several boxes, are as wide as the widest of them.
void AlignLabels(QDialog& dialog) {
  std::map<int, int> widths;
  const auto forEach = [&dialog, &widths](const auto& act) {
    for (auto* label : dialog.findChildren<QLabel*>()) {
      const QVariant column = label->property("labelColumn");
      if (column.isValid()) act(*label, widths[column.toInt()]);
    }
  };
  forEach(
      [](const QLabel& label, int& width) { width = std::max(width, label.sizeHint().width()); });
  forEach([](QLabel& label, int width) { label.setMinimumWidth(width); });
}

template <typename Form>
void Build(QDialog& dialog) {
  Form form;
  form.setupUi(&dialog);
  AlignLabels(dialog);
}

struct FormRow {
  std::int32_t templateId;
  void (*build)(QDialog&);
};

constexpr FormRow kForms[] = {
    {132, Build<Ui::BrushAttributes>}, {133, Build<Ui::CreateBox>},
    {136, Build<Ui::CreateSpheroid>},  {139, Build<Ui::CreateCylinder>},
    {141, Build<Ui::GridSettings>},    {142, Build<Ui::BspManager>},
    {143, Build<Ui::EntityEditor>},    {144, Build<Ui::SelectClassname>},
    {145, Build<Ui::GroupAttributes>}, {146, Build<Ui::CreateStaircase>},
    {148, Build<Ui::GlobalSettings>},  {201, Build<Ui::WorldKeys>},
};

}  // namespace

bool BuildForm(std::int32_t templateId, QDialog& dialog) {
  for (const FormRow& row : kForms) {
    if (row.templateId != templateId) continue;
    row.build(dialog);
    return true;
  }
  return false;
}

}  // namespace zando
