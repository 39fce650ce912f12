#pragma once

#include <vector>

namespace zando {

template <typename Visitor>
void WalkBackFrontNode(CBspNode* root, Visitor&& visit) {
  struct Step {
    CBspNode* node;
    bool childrenDone;
  };
  std::vector<Step> stack;
  if (root != nullptr) stack.push_back({root, false});
  while (!stack.empty()) {
    const Step step = stack.back();
    stack.pop_back();
    if (step.childrenDone) {
      visit(step.node);
      continue;
    }
    stack.push_back({step.node, true});
    if (step.node->front != nullptr) stack.push_back({step.node->front, false});
    if (step.node->back != nullptr) stack.push_back({step.node->back, false});
  }
}

template <typename Visitor>
void WalkFrontToBack(const CBspNode* root, const Vector& eye, CWalkStack& stack, Visitor&& visit) {
  stack.clear();
  if (root != nullptr) stack.push_back({root, false});
  while (!stack.empty()) {
    const WalkStep step = stack.back();
    if (!step.draw) {
      ExpandSteps(stack, eye);
      continue;
    }
    stack.pop_back();
    if (visit(step.node)) return;
  }
}

}  // namespace zando
