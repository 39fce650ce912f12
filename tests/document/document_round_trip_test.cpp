#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "csg/csg_world.h"
#include "document/document_file.h"
#include "entities/class_defaults.h"
#include "support/random_level.h"

namespace zando::testing {
namespace {

std::int32_t AnyOf(CRandom& random, std::size_t count) {
  return random.Between(0, static_cast<std::int32_t>(count) - 1);
}

void AddGroups(CZANDODoc& level, CRandom& random) {
  const std::int32_t count = random.Between(0, 3);
  for (std::int32_t i = 0; i < count; ++i) {
    CBGroup& group = level.Groups.emplace_back();
    if (random.Percent(70)) group.gName = "T\xFCr  " + std::to_string(i);
    group.gVis = random.Percent(50) ? 1 : 0;
    group.gCol = static_cast<std::uint32_t>(random.Between(0, 0xFFFFFF));
  }
}

void PickGroup(CZANDODoc& level, CRandom& random) {
  level.CurrentGroup = random.Between(-1, static_cast<std::int32_t>(level.Groups.size()) - 1);
}

void AddEntities(CZANDODoc& level, CRandom& random) {
  const auto classes = ClassDefaultTable();
  const std::int32_t count = random.Between(0, 4);
  for (std::int32_t i = 0; i < count; ++i) {
    PickGroup(level, random);
    const std::int32_t which = AnyOf(random, classes.size());
    CEntity entity = MakeEntity(classes[static_cast<std::size_t>(which)]);
    entity.SetValue("origin", FormatWholeNumbers(random.Real(-4096.0, 4096.0), 64.0, -0.0));
    if (random.Percent(30)) entity.eFlags |= EF_SELECTED;
    level.AddEntity(std::move(entity));
  }
}

Transform RandomOperation(CRandom& random) {
  Transform operation = Transform::Identity();
  operation.Scale(random.Real(0.5, 2.0), 1.0, random.Real(0.5, 2.0));
  operation.Shear(random.Real(-0.4, 0.4), 0.0, 0.0);
  operation.Rotate(random.Real(0.0, 8192.0), random.Real(0.0, 8192.0), 0.0);
  return operation;
}

/// Changes a listed brush in ways that the world does not follow at once.
void ChangeBrush(CZANDODoc& level, CZandoBrush& brush, CRandom& random) {
  if (random.Percent(30)) brush.MoveTo({random.Real(-9999.0, 9999.0), 1.0 / 3.0, -0.0});
  if (random.Percent(30)) {
    brush.BeginGroupOperation({random.Real(-500.0, 500.0), 0.0, 7.0});
    brush.EndGroupOperation(RandomOperation(random));
  }
  if (random.Percent(30)) brush.BFlags |= BF_SELECTED;
  if (level.Entities.empty() || random.Percent(70)) return;
  brush.BFlags |= BF_ENTITY;
  brush.BEnt = AnyOf(random, level.Entities.size());
}

void BuildAnew(CZANDODoc& level, CRandom& random) {
  const std::int32_t way = random.Between(0, 2);
  if (way == 1) RebuildQuick(level.World, nullptr, WaterBrushes::Build);
  if (way == 2) RebuildOptimal(level.World, nullptr, WaterBrushes::Skip);
}

void DeleteSome(CZANDODoc& level, CRandom& random) {
  const std::int32_t brushes = random.Between(0, 3);
  for (std::int32_t i = 0; i < brushes && level.BrushCount() > 0; ++i) {
    const auto index = static_cast<std::size_t>(AnyOf(random, level.BrushList.Brushes().size()));
    level.SetCurrentBrush(*level.BrushList.Brushes()[index]);
    level.DeleteCurrentBrush();
  }
  if (!level.Entities.empty() && random.Percent(50)) {
    level.DeleteEntity(AnyOf(random, level.Entities.size()));
  }
}

/// A level as editing leaves it: brushes, groups and entities come, change and go.
void FillLevel(CZANDODoc& level, std::uint64_t seed) {
  CRandom random(seed);
  LevelOptions options{.brushes = random.Between(0, 14), .tapered = 30, .turned = 30, .water = 20};
  if (random.Percent(50)) options.layout = LevelOptions::Layout::CoarseGrid;
  AddGroups(level, random);
  const CBrushList brushes = RandomLevel(seed, options);
  for (const auto& brush : brushes.Brushes()) {
    PickGroup(level, random);
    level.WorkingBrush = *brush;
    if (brush->TranT == kAddToWorld) {
      level.AddToWorld();
    } else {
      level.SubtractFromWorld();
    }
  }
  AddEntities(level, random);
  for (const auto& brush : level.BrushList.Brushes()) ChangeBrush(level, *brush, random);
  BuildAnew(level, random);
  DeleteSome(level, random);
  PickGroup(level, random);
}

/// Whether `read` is what six significant digits tell of `written`.
bool Same(double written, double read) {
  return std::abs(written - read) <= 5.1e-6 * std::abs(written);
}
bool Same(const Vector& a, const Vector& b) {
  return Same(a.x, b.x) && Same(a.y, b.y) && Same(a.z, b.z);
}
bool Same(const CZandoPoly& a, const CZandoPoly& b) {
  const auto same = [](const Vector& v, const Vector& w) { return Same(v, w); };
  return std::ranges::equal(a.Vertices(), b.Vertices(), same);
}
bool Same(const Transform& a, const Transform& b) {
  for (std::size_t row = 0; row < 4; ++row) {
    const auto same = [](double x, double y) { return Same(x, y); };
    if (!std::ranges::equal(a.m[row], b.m[row], same)) return false;
  }
  return true;
}

std::string BrushDifference(const CZandoBrush& a, const CZandoBrush& b) {
  if (a.Name != b.Name || a.TranT != b.TranT || a.BFlags != b.BFlags) return "what it is";
  if (a.BGroup != b.BGroup || a.BEnt != b.BEnt) return "whose it is";
  if (!Same(a.Pos[kOwnSlot], b.Pos[kOwnSlot]) || !Same(a.Rot[kOwnSlot], b.Rot[kOwnSlot]) ||
      !Same(a.Scl[kOwnSlot], b.Scl[kOwnSlot]) || !Same(a.Shr[kOwnSlot], b.Shr[kOwnSlot]) ||
      !Same(a.BMatrix, b.BMatrix)) {
    return "placement";
  }
  if (a.Faces.size() != b.Faces.size()) return "face records";
  const auto same = [](const CZandoPoly& p, const CZandoPoly& q) { return Same(p, q); };
  return std::ranges::equal(a.Polys, b.Polys, same) ? "" : "polygons";
}

/// The position of a node's brush in the list; -1 for none.
std::int32_t OwnerOf(const CBspNode& node, const CZANDODoc& level) {
  std::int32_t position = 0;
  for (const auto& brush : level.BrushList.Brushes()) {
    if (brush.get() == node.pBrush) return position;
    ++position;
  }
  return -1;
}

std::string WorldDifference(const CZANDODoc& a, const CZANDODoc& b) {
  std::vector<std::pair<const CBspNode*, const CBspNode*>> pending{{a.World.root, b.World.root}};
  for (std::size_t visited = 0; !pending.empty(); ++visited) {
    const auto [x, y] = pending.back();
    pending.pop_back();
    const std::string which = "node " + std::to_string(visited) + ": ";
    if ((x == nullptr) != (y == nullptr)) return which + "only one level has it";
    if (x == nullptr) continue;
    if (x->nValid != y->nValid) return which + "visibility";
    if (OwnerOf(*x, a) != OwnerOf(*y, b) || y->nBid != OwnerOf(*y, b)) return which + "owner";
    if (x->nPolNum != y->nPolNum) return which + "face";
    if (!Same(x->polygon, y->polygon)) return which + "polygon";
    pending.insert(pending.end(), {{x->front, y->front}, {x->back, y->back}, {x->chain, y->chain}});
  }
  return {};
}

std::string EntityDifference(const CEntity& a, const CEntity& b) {
  if (a.eStyle != b.eStyle || a.eFlags != b.eFlags || a.eGroup != b.eGroup) return "fields";
  if (a.Pairs != b.Pairs) return "pairs";
  return Same(a.eOrigin, b.eOrigin) ? "" : "origin";
}

void ExpectSameLevel(const CZANDODoc& a, const CZANDODoc& b) {
  EXPECT_EQ(BrushDifference(a.WorkingBrush, b.WorkingBrush), "");
  ASSERT_EQ(a.BrushCount(), b.BrushCount());
  for (std::int32_t i = 0; i < a.BrushCount(); ++i) {
    const auto index = static_cast<std::size_t>(i);
    const CZandoBrush& read = *b.BrushList.Brushes()[index];
    EXPECT_EQ(BrushDifference(*a.BrushList.Brushes()[index], read), "") << "brush " << i;
    EXPECT_EQ(read.BBid, i);
  }
  EXPECT_EQ(WorldDifference(a, b), "");
  ASSERT_EQ(a.Entities.size(), b.Entities.size());
  for (std::size_t i = 0; i < a.Entities.size(); ++i) {
    EXPECT_EQ(EntityDifference(a.Entities[i], b.Entities[i]), "") << "entity " << i;
  }
  ASSERT_EQ(a.Groups.size(), b.Groups.size());
  for (std::size_t i = 0; i < a.Groups.size(); ++i) {
    EXPECT_EQ(a.Groups[i].gName, b.Groups[i].gName);
    EXPECT_EQ(a.Groups[i].gVis, b.Groups[i].gVis);
    EXPECT_EQ(a.Groups[i].gCol, b.Groups[i].gCol);
  }
  EXPECT_EQ(a.CurrentEntity, b.CurrentEntity);
  EXPECT_EQ(a.CurrentGroup, b.CurrentGroup);
}

TEST(DocumentRoundTrip, ALevelComesBackAsItWasAndIsSavedInTheSameBytes) {
  for (std::uint64_t seed = 0; seed < 200; ++seed) {
    SCOPED_TRACE(seed);
    CZANDODoc level;
    FillLevel(level, seed);
    const std::string text = WriteDocument(level);
    const LoadedDocument loaded = ReadDocument(text);
    ASSERT_NE(loaded.document, nullptr) << loaded.error;
    ExpectSameLevel(level, *loaded.document);
    EXPECT_TRUE(WriteDocument(*loaded.document) == text);
  }
}

}  // namespace
}  // namespace zando::testing
