#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "csg/csg_world.h"
#include "document/brush_edits.h"
#include "document/document_file.h"
#include "document/entity_edits.h"
#include "document/group_edits.h"
#include "support/edit_level.h"
#include "support/random_level.h"

namespace zando::testing {
namespace {

std::int32_t AnyOf(CRandom& random, std::size_t count) {
  return random.Between(0, static_cast<std::int32_t>(count) - 1);
}

void PickGroup(CZANDODoc& document, CRandom& random) {
  const auto groups = static_cast<std::int32_t>(document.GetLevel().Groups.size());
  SetCurrentGroup(document, random.Between(-1, groups - 1));
}

/// Changes a listed brush in ways that the world does not follow at once.
void ChangeBrush(CZandoBrush& brush, const CEntList& entities, CRandom& random) {
  if (random.Percent(30)) brush.MoveTo({random.Real(-9999.0, 9999.0), 1.0 / 3.0, -0.0});
  if (random.Percent(30)) {
    brush.BeginGroupOperation({random.Real(-500.0, 500.0), 0.0, 7.0});
    Transform operation = Transform::Identity();
    operation.Scale(random.Real(0.5, 2.0), 1.0, random.Real(0.5, 2.0));
    operation.Shear(random.Real(-0.4, 0.4), 0.0, 0.0);
    operation.Rotate(random.Real(0.0, 8192.0), random.Real(0.0, 8192.0), 0.0);
    brush.EndGroupOperation(operation);
  }
  if (random.Percent(30)) brush.BFlags |= BF_SELECTED;
  if (entities.empty() || random.Percent(70)) return;
  brush.BFlags |= BF_ENTITY;
  brush.BEnt = AnyOf(random, entities.size());
}

/// A level as editing leaves it: brushes, groups and entities come, change and go.
void FillLevel(CZANDODoc& document, std::uint64_t seed) {
  CRandom random(seed);
  Level& level = Edit(document);
  LevelOptions options{.brushes = random.Between(0, 14), .tapered = 30, .turned = 30, .water = 20};
  for (std::int32_t i = random.Between(0, 3); i > 0; --i) {
    CBGroup& group = level.Groups.emplace_back();
    group.gName = "T\xFCr  " + std::to_string(i);
    group.gVis = random.Between(0, 1);
    group.gCol = static_cast<std::uint32_t>(random.Between(0, 0xFFFFFF));
  }
  for (const CZandoBrush& brush : RandomLevel(seed, options)) {
    PickGroup(document, random);
    level.WorkingBrush = brush;
    brush.TranT == kAddToWorld ? AddToWorld(document) : SubtractFromWorld(document);
  }
  for (std::int32_t i = random.Between(0, 4); i > 0; --i) {
    PickGroup(document, random);
    PlaceLight(document);
    CEntity& light = level.Entities.back();
    light.SetValue("origin", FormatWholeNumbers(random.Real(-4096.0, 4096.0), 64.0, -0.0));
    light.ParseOrigin();
    if (random.Percent(30)) light.eFlags |= EF_SELECTED;
  }
  for (CZandoBrush& brush : level.BrushList) ChangeBrush(brush, level.Entities, random);
  if (random.Percent(30)) RebuildQuick(level.World, nullptr, WaterBrushes::Build);
  if (random.Percent(30)) RebuildOptimal(level.World, nullptr, WaterBrushes::Skip);
  for (std::int32_t i = random.Between(0, 3); i > 0 && !level.BrushList.IsEmpty(); --i) {
    const auto count = static_cast<std::size_t>(level.BrushList.BrushCount());
    SetCurrentBrush(document, level.BrushList[AnyOf(random, count)].BBid);
    DeleteCurrentBrush(document);
  }
  if (!level.Entities.empty() && random.Percent(50)) {
    DeleteEntity(document, AnyOf(random, level.Entities.size()));
  }
  PickGroup(document, random);
}

/// All that a file must keep of a level, in order.
struct Contents {
  std::vector<std::string> texts;
  std::vector<std::int32_t> whole;
  std::vector<double> real;
};

void Add(Contents& contents, const Vector& v) {
  contents.real.insert(contents.real.end(), {v.x, v.y, v.z});
}

void Add(Contents& contents, const CZandoPoly& polygon) {
  contents.whole.push_back(polygon.count);
  for (const Vector& vertex : polygon.Vertices()) Add(contents, vertex);
}

void Add(Contents& contents, const CZandoBrush& brush) {
  contents.texts.push_back(brush.Name);
  contents.whole.insert(contents.whole.end(),
                        {brush.TranT, brush.BFlags, brush.BGroup, brush.BEnt, brush.PolyCount()});
  const Placement& own = brush.Own();
  for (const Vector& v : {own.Pos, own.Rot, own.Scl, own.Shr}) Add(contents, v);
  for (const auto& row : brush.BMatrix().m) {
    contents.real.insert(contents.real.end(), row.begin(), row.end());
  }
  for (const CZandoPoly& polygon : brush.Polys()) Add(contents, polygon);
}

void AddWorld(Contents& contents, const Level& level) {
  std::map<const CZandoBrush*, std::int32_t> positions{{nullptr, -1}};
  for (const CZandoBrush& brush : level.BrushList) {
    positions.emplace(&brush, static_cast<std::int32_t>(positions.size()) - 1);
  }
  std::vector<const CBspNode*> pending{level.World.root};
  while (!pending.empty()) {
    const CBspNode* node = pending.back();
    pending.pop_back();
    contents.whole.push_back(node == nullptr ? 0 : 1);
    if (node == nullptr) continue;
    contents.whole.insert(contents.whole.end(),
                          {node->nValid, positions.at(node->pBrush), node->nPolNum});
    Add(contents, node->polygon);
    pending.insert(pending.end(), {node->front, node->back, node->chain});
  }
}

Contents ContentsOf(const CZANDODoc& document) {
  const Level& level = document.GetLevel();
  Contents contents;
  Add(contents, level.WorkingBrush);
  for (const CZandoBrush& brush : level.BrushList) Add(contents, brush);
  AddWorld(contents, level);
  for (const CEntity& entity : level.Entities) {
    contents.whole.insert(contents.whole.end(), {entity.eStyle, entity.eFlags, entity.eGroup});
    Add(contents, entity.eOrigin);
    for (const auto& [key, value] : entity.Pairs) {
      contents.texts.push_back(key);
      contents.texts.push_back(value);
    }
  }
  for (const CBGroup& group : level.Groups) {
    contents.texts.push_back(group.gName);
    contents.whole.insert(contents.whole.end(),
                          {group.gVis, static_cast<std::int32_t>(group.gCol)});
  }
  contents.whole.insert(contents.whole.end(),
                        {document.State().CurrentEntity, document.State().CurrentGroup});
  return contents;
}

/// Whether `read` is what six significant digits tell of `written`.
bool Same(double written, double read) {
  return std::abs(written - read) <= 5.1e-6 * std::abs(written);
}

TEST(DocumentRoundTrip, ALevelComesBackAsItWasAndIsSavedInTheSameBytes) {
  for (std::uint64_t seed = 0; seed < 200; ++seed) {
    SCOPED_TRACE(seed);
    CZANDODoc level;
    FillLevel(level, seed);
    const std::string text = WriteDocument(level);
    const LoadedDocument loaded = ReadDocument(text);
    ASSERT_NE(loaded.document, nullptr) << loaded.error;
    const Contents before = ContentsOf(level);
    const Contents after = ContentsOf(*loaded.document);
    EXPECT_EQ(after.texts, before.texts);
    EXPECT_EQ(after.whole, before.whole);
    EXPECT_TRUE(std::ranges::equal(before.real, after.real, Same));
    EXPECT_TRUE(WriteDocument(*loaded.document) == text);
  }
}

}  // namespace
}  // namespace zando::testing
