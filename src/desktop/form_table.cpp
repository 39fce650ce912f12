#include "desktop/form_table.h"

#include <ui_create_box.h>
#include <ui_group_attributes.h>

#include <QDialog>

namespace zando {
namespace {

template <typename Form>
void Build(QDialog& dialog) {
  Form form;
  form.setupUi(&dialog);
}

struct FormRow {
  std::int32_t templateId;
  void (*build)(QDialog&);
};

constexpr FormRow kForms[] = {
    {133, Build<Ui::CreateBox>},
    {145, Build<Ui::GroupAttributes>},
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
