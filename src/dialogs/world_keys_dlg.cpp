#include "dialogs/world_keys_dlg.h"

#include <cstddef>
#include <string>
#include <vector>

#include "document/surface_edits.h"
#include "platform/text.h"

namespace zando {
namespace {

constexpr ControlId kWorldKeys = 2001;
constexpr ControlId kWorldKey = 2002;
constexpr ControlId kWorldValue = 2003;
constexpr ControlId kSetKey = 2004;
constexpr ControlId kRemoveKey = 2005;

}  // namespace

void CWorldKeysDlg::OnInitDialog() {
  Form().SetSorted(kWorldKeys, false);
  Refresh(0);
  Form().SetFocus(kWorldKey);
}

void CWorldKeysDlg::OnSelectionChange(ControlId list) {
  if (list == kWorldKeys) ShowPair();
}

void CWorldKeysDlg::OnButton(ControlId id) {
  if (id == kSetKey) Set();
  if (id != kRemoveKey) return;
  SetWorldKey(document_, Form().GetText(kWorldKey), "");
  Refresh(0);
}

void CWorldKeysDlg::Refresh(std::int32_t selection) {
  Form().ClearList(kWorldKeys);
  std::int32_t index = 0;
  for (const EntityPair& pair : document_.GetLevel().WorldKeys) {
    Form().AddLine(kWorldKeys, QuotedPair(pair), index++);
  }
  Form().SelectLine(kWorldKeys, selection);
  ShowPair();
}

void CWorldKeysDlg::ShowPair() {
  const std::vector<EntityPair>& pairs = document_.GetLevel().WorldKeys;
  const auto index = static_cast<std::size_t>(Form().SelectedLine(kWorldKeys));
  const EntityPair shown = index < pairs.size() ? pairs[index] : EntityPair();
  Form().SetText(kWorldKey, shown.key);
  Form().SetText(kWorldValue, shown.value);
}

void CWorldKeysDlg::Set() {
  const std::string key = Form().GetText(kWorldKey);
  const std::string value = Form().GetText(kWorldValue);
  const std::string problem = CheckWorldKey(key, value);
  if (!problem.empty()) {
    Form().ReportError(kWorldKey, problem);
    return;
  }
  if (value.empty()) {
    Form().ReportError(kWorldValue, "Please enter a value. Remove takes the key away.");
    return;
  }
  SetWorldKey(document_, key, value);
  std::int32_t index = 0;
  for (const EntityPair& pair : document_.GetLevel().WorldKeys) {
    if (EqualIgnoringCase(pair.key, key)) break;
    ++index;
  }
  Refresh(index);
}

}  // namespace zando
