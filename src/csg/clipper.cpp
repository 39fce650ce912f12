#include "csg/clipper.h"

namespace zando {
namespace {

/// A piece has come to the empty space before or behind the last face on its way.
ClipCounts Settle(CBspNode* piece, bool front, bool hide) {
  if (front) {
    if (hide) piece->nValid = 1;
    return {1, 0};
  }
  piece->nValid = hide ? 0 : 1;
  return {0, 1};
}

}  // namespace

void CClipper::BeginCut(const CBspNode* face, CBspNode* piece, const CZandoPoly& whole,
                        const CZandoPoly& back) {
  CBspNode* backPiece = owner_.NewNode();
  backPiece->TakePolygon(back);
  backPiece->TakeOwner(*piece);
  backPiece->nValid = piece->nValid;
  cuts_.push_back({face, piece, backPiece, whole, {}, false});
}

ClipCounts CClipper::EndCut(const Cut& cut, Mode mode) {
  const bool needed = mode == Mode::Hide ? cut.counts.inside > 0 : cut.counts.outside > 0;
  if (needed) {
    ChainEnd(cut.frontPiece)->chain = cut.backPiece;
    return cut.counts;
  }
  owner_.FreeNode(cut.backPiece);
  cut.frontPiece->TakePolygon(cut.whole);
  return {1, 0};
}

bool CClipper::SideIsFront(const CBspNode* face, CBspNode* piece, Rules rules) {
  PolygonClass side = ClassifyPolygon(face->plane, piece->polygon);
  if (side == PolygonClass::Spanning) {
    const CZandoPoly whole = piece->polygon;
    CZandoPoly back;
    side = owner_.Split(face->plane, piece->polygon, back);
    if (side == PolygonClass::Spanning) BeginCut(face, piece, whole, back);
  }
  return GoesToFront(side, rules.coplanar);
}

ClipCounts CClipper::Clip(const CConstructiveBsp& brushTree, CBspNode* node, Rules rules) {
  if (brushTree.root == nullptr) return {};
  const bool hide = rules.mode == Mode::Hide;
  cuts_.clear();
  const CBspNode* face = brushTree.root;
  CBspNode* piece = node;
  while (true) {
    const bool front = SideIsFront(face, piece, rules);
    const CBspNode* child = front ? face->front : face->back;
    if (child != nullptr) {
      face = child;
      continue;
    }

    // Pieces settle until one of an unfinished cut has further to go.
    ClipCounts counts = Settle(piece, front, hide);
    while (true) {
      if (cuts_.empty()) return counts;
      Cut& last = cuts_.back();
      last.counts.outside += counts.outside;
      last.counts.inside += counts.inside;
      if (last.frontDone) {
        counts = EndCut(last, rules.mode);
        cuts_.pop_back();
        continue;
      }
      last.frontDone = true;
      if (last.splitter->back != nullptr) {
        face = last.splitter->back;
        piece = last.backPiece;
        break;
      }
      counts = Settle(last.backPiece, false, hide);
    }
  }
}

}  // namespace zando
