#pragma once

#include <variant>

#include "app/command_table.h"
#include "platform/command.h"

namespace zando {

/// Answers those commands of the table whose rules are for this kind of target.
template <typename Target>
class CTableTarget final : public CCmdTarget {
 public:
  explicit CTableTarget(Target& target) : target_(target) {}

  bool OnCommand(CommandId id) override {
    const auto* rule = RuleOf(id);
    if (rule == nullptr) return false;
    rule->run(target_);
    return true;
  }

  bool OnUpdateCommandUI(CommandId id, CCmdUI& ui) override {
    const auto* rule = RuleOf(id);
    if (rule == nullptr) return false;
    if (rule->enabled != nullptr) ui.Enable(rule->enabled(target_));
    if (rule->checked != nullptr) ui.SetCheck(rule->checked(target_));
    return true;
  }

 private:
  static const CommandRule<Target>* RuleOf(CommandId id) {
    const CommandRow* row = FindCommand(id);
    return row == nullptr ? nullptr : std::get_if<CommandRule<Target>>(&row->rule);
  }

  Target& target_;
};

}  // namespace zando
