#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <tuple>

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

TEST(DocumentRoundTrip, ALevelIsReadAsItWasWrittenAndSavedInTheSameBytes) {
  for (std::uint64_t seed = 0; seed < 200; ++seed) {
    SCOPED_TRACE(seed);
    CZANDODoc document;
    FillLevel(document, seed);
    const std::string text = WriteDocument(document);
    const auto loaded = ReadDocument(text);
    ASSERT_TRUE(loaded) << loaded.Error();
    EXPECT_FALSE(loaded->IsDamaged()) << loaded->warnings.Lines().front();
    EXPECT_TRUE(WriteDocument(*loaded->document) == text);
    const Level& read = loaded->document->GetLevel();
    for (std::int32_t i = 0; i < read.BrushList.BrushCount(); ++i) {
      // What is more than a move is kept to the last bit.
      const Transform& written = document.GetLevel().BrushList[i].BMatrix();
      if (written.m[0][0] == 1.0) continue;
      EXPECT_EQ(read.BrushList[i].BMatrix(), written);
    }
    const BspCounts before = document.GetLevel().World.Count();
    const BspCounts after = read.World.Count();
    EXPECT_EQ(std::tie(after.nodes, after.coplanar, after.visible),
              std::tie(before.nodes, before.coplanar, before.visible));
  }
}

}  // namespace
}  // namespace zando::testing
