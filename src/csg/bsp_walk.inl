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
  const auto push = [&stack](const CBspNode* node) {
    if (node != nullptr) stack.push_back({node, false});
  };
  push(root);
  while (!stack.empty()) {
    const WalkStep step = stack.back();
    stack.pop_back();
    if (step.draw) {
      if (visit(step.node)) return;
      continue;
    }
    if (ClassifyPoint(step.node->plane, eye) == PointClass::Front) {
      push(step.node->back);
      stack.push_back({step.node, true});
      push(step.node->front);
    } else {
      push(step.node->front);
      push(step.node->back);
    }
  }
}

template <typename Visitor>
void WalkFrontToBack(const CBspNode* root, const Vector& eye, Visitor&& visit) {
  CWalkStack stack;
  WalkFrontToBack(root, eye, stack, visit);
}

}  // namespace zando
