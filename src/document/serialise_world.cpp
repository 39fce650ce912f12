#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "csg/bsp_node.h"
#include "document/serialise.h"

namespace zando {
namespace {

/// A node whose children are being written or read. Trees are as deep as levels are large, so that
/// nothing here recurses.
struct OpenNode {
  CBspNode* node;
  bool backDone;
};

void SerialiseMember(CFileContext& file, CBspNode& node) {
  if (file.storing) {
    Serialise(file, node.polygon);
  } else {
    CZandoPoly polygon;
    Serialise(file, polygon);
    node.TakePolygon(polygon);
  }
  file.Exchange("nValid", node.nValid);
  std::int32_t owner = file.storing ? file.PositionOf(node.pBrush, -1) : node.nBid;
  file.Exchange("nBid", owner);
  if (!file.storing) node.nBid = owner;
  file.Exchange("nPolNum", node.nPolNum);
}

void WriteChain(CFileContext& file, CBspNode* head) {
  file.Count("CoCount", static_cast<std::size_t>(ChainLength(head)), kPolygonHeader);
  for (CBspNode* node = head; node != nullptr; node = node->chain) SerialiseMember(file, *node);
}

/// Writes the line that announces a child.
void WriteChildMark(CFileContext& file, std::string_view key, const CBspNode* child) {
  file.WriteKeyLine(key, child != nullptr ? "1" : "0");
}

void WriteTree(CFileContext& file, CBspNode* root) {
  std::vector<OpenNode> open;
  const auto enter = [&](CBspNode* node) {
    WriteChain(file, node);
    if (node != nullptr) open.push_back({node, false});
  };
  enter(root);
  while (!open.empty()) {
    OpenNode& top = open.back();
    const bool backDone = std::exchange(top.backDone, true);
    CBspNode* child = backDone ? top.node->front : top.node->back;
    WriteChildMark(file, backDone ? "nF" : "nB", child);
    if (backDone) open.pop_back();
    if (child != nullptr) enter(child);
  }
}

/// A node with its coplanar companions, or null for one without polygons.
CBspNode* ReadChain(CFileContext& file, CConstructiveBsp& tree) {
  file.EndMarker = {};
  const std::int32_t count = file.Count("CoCount", 0, kPolygonHeader);
  CBspNode* head = nullptr;
  CBspNode** next = &head;
  for (std::int32_t i = 0; i < count; ++i) {
    *next = tree.NewNode();
    SerialiseMember(file, **next);
    next = &(*next)->chain;
  }
  return head;
}

CBspNode* ReadTree(CFileContext& file, CConstructiveBsp& tree) {
  std::vector<OpenNode> open;
  const auto enter = [&] {
    CBspNode* node = ReadChain(file, tree);
    if (node != nullptr) open.push_back({node, false});
    return node;
  };
  CBspNode* root = enter();
  while (!open.empty()) {
    OpenNode& top = open.back();
    CBspNode* node = top.node;
    const bool backDone = std::exchange(top.backDone, true);
    if (backDone) open.pop_back();
    std::int32_t announced = 0;
    const std::string_view mark = backDone ? "nF" : "nB";
    if (!file.Exchange(mark, announced)) file.WarnMissing(mark);
    if (announced == 1) (backDone ? node->front : node->back) = enter();
  }
  return root;
}

}  // namespace

void Serialise(CFileContext& file, CConstructiveBsp& world) {
  constexpr std::string_view kHead = "CConstructiveBsp1";
  constexpr std::string_view kEnd = "End CConstructiveBsp";
  file.EndMarker = kEnd;
  if (!file.storing) world.Clear();
  if (!file.Header(kHead)) {
    file.WarnMissing(kHead);
    return;
  }
  if (file.storing) {
    WriteTree(file, world.root);
    file.WriteKeyLine(kEnd);
  } else {
    world.root = ReadTree(file, world);
    file.WarnUnlessEnded(kEnd, kPolygonHeader);
    file.FindKey("");
  }
}

}  // namespace zando
