#include <gtest/gtest.h>

#include <cstring>
#include <ostream>
#include <string>
#include <tuple>

#include "csg/csg_world.h"
#include "csg/literal_csg.h"
#include "csg/node_tree_builder.h"
#include "support/csg_testing.h"

namespace zando::testing {
namespace {

using Layout = LevelOptions::Layout;

class CStepCounter : public CProgress {
 public:
  void StepIt() override { ++steps; }
  std::int32_t steps = 0;
};

bool SameBits(const Vector& a, const Vector& b) { return std::memcmp(&a, &b, sizeof a) == 0; }

std::string MemberDifference(const CBspNode& a, const CBspNode& b) {
  if (a.nValid != b.nValid) return "visibility";
  if (a.nBid != b.nBid || a.nPolNum != b.nPolNum || a.pBrush != b.pBrush) return "owner";
  if (a.polygon.count != b.polygon.count) return "vertex count";
  for (std::int32_t i = 0; i < a.polygon.count; ++i) {
    if (!SameBits(a.polygon[i], b.polygon[i])) return "vertex " + std::to_string(i);
  }
  if (!SameBits(a.plane.normal, b.plane.normal)) return "normal";
  if (std::memcmp(&a.plane.d, &b.plane.d, sizeof a.plane.d) != 0) return "plane distance";
  if (a.polygon.tag < 4 || a.polygon.tag > 253) return "colour tag";
  return {};
}

/// Where and in what two trees differ first; empty when they are the same.
std::string Difference(const CBspNode* a, const CBspNode* b, const std::string& path) {
  if (a == nullptr && b == nullptr) return {};
  const CBspNode* memberA = a;
  const CBspNode* memberB = b;
  for (; memberA != nullptr && memberB != nullptr; memberA = memberA->chain) {
    const std::string what = MemberDifference(*memberA, *memberB);
    if (!what.empty()) return path + ": " + what;
    memberB = memberB->chain;
  }
  if (memberA != memberB) return path + ": only one has a node, or a further chain member";
  const std::string front = Difference(a->front, b->front, path + "f");
  return front.empty() ? Difference(a->back, b->back, path + "b") : front;
}

::testing::AssertionResult SameWorlds(CConstructiveBsp& world, literal::Tree& plain) {
  world.CountStats();
  plain.CountStats();
  const std::string difference = Difference(world.root, plain.root, "root ");
  if (!difference.empty()) return ::testing::AssertionFailure() << difference;
  const auto statistics = [](const CConstructiveBsp& tree) {
    return std::tuple(tree.nodes, tree.coplanar, tree.inserted, tree.visible, tree.refused);
  };
  if (statistics(world) == statistics(plain)) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << ::testing::PrintToString(statistics(world)) << " and "
                                       << ::testing::PrintToString(statistics(plain));
}

/// A kind of random level: options, and what is done to each brush afterwards.
struct Kind {
  const char* name;
  LevelOptions options;
  void (*change)(CZandoBrush& brush, CRandom& random) = [](CZandoBrush&, CRandom&) {};
};

void HollowSome(CZandoBrush& brush, CRandom& random) {
  if (random.Percent(35)) Hollow(brush);
}

/// Drums whose rims stand out of the grid by a single corner: to cut it off would take more
/// vertices than a polygon holds.
void DrumSome(CZandoBrush& brush, CRandom& random) {
  if (random.Percent(60)) return;
  MakeDrum(brush, random.Between(MAX_POLY_VERTS - 1, MAX_POLY_VERTS));
  brush.Scl[kOwnSlot] = {1.01, 1.0, 1.01};
}

/// Moves faces that coincide apart, by more and by less than the tolerance.
void Jitter(CZandoBrush& brush, CRandom& random) {
  const auto offset = [&random] { return random.Between(-4, 4) * 0.0004; };
  brush.BMatrix.Translate(offset(), offset(), offset());
}

constexpr std::int32_t kUnknownOperation = 2;

void LeaveSomeOut(CZandoBrush& brush, CRandom& random) {
  if (random.Percent(20)) brush.BFlags |= BF_ENTITY;
  if (random.Percent(20)) brush.BFlags &= ~BF_SHOWN;
  if (random.Percent(10)) brush.TranT = kUnknownOperation;
}

const Kind kKinds[] = {
    {"GeneralPosition", {.brushes = 60, .extent = 256, .maxSize = 128}},
    {"CoarseGrid", {.layout = Layout::CoarseGrid, .brushes = 60, .water = 20}},
    {"Tapered", {.brushes = 50, .extent = 256, .maxSize = 128, .tapered = 70, .water = 20}},
    {"TaperedOnGrid", {.layout = Layout::CoarseGrid, .brushes = 50, .tapered = 50}},
    {"Turned", {.brushes = 30, .extent = 160, .maxSize = 128, .tapered = 30, .turned = 70}},
    {"FarApart", {.brushes = 90, .extent = 640, .maxSize = 160, .tapered = 20, .turned = 20}},
    {"FarApartOnGrid", {.layout = Layout::CoarseGrid, .brushes = 90, .extent = 640, .turned = 10}},
    {"Hollow", {.layout = Layout::CoarseGrid, .brushes = 30, .turned = 10}, HollowSome},
    {"Drums", {.layout = Layout::CoarseGrid, .brushes = 18, .extent = 160}, DrumSome},
    {"NearlyCoincident", {.layout = Layout::CoarseGrid, .brushes = 40}, Jitter},
    {"SomeLeftOut", {.layout = Layout::CoarseGrid, .brushes = 50, .water = 10}, LeaveSomeOut},
};

void PrintTo(const Kind& kind, std::ostream* out) { *out << kind.name; }

class CsgDifferential : public ::testing::TestWithParam<Kind> {
 protected:
  static constexpr std::int32_t kSizes = 6;

  /// Levels of one kind grow with the seed.
  static CBrushList Level(std::int32_t seed) {
    LevelOptions options = GetParam().options;
    options.brushes = options.brushes * seed / kSizes;
    CRandom random(static_cast<std::uint64_t>(seed));
    CBrushList level = RandomLevel(random.Next(), options);
    for (const auto& brush : level.Brushes()) GetParam().change(*brush, random);
    return level;
  }
};

TEST_P(CsgDifferential, RebuildsEqualThePlainAlgorithmsNodeByNode) {
  for (std::int32_t seed = 1; seed <= kSizes; ++seed) {
    for (const bool water : {true, false}) {
      SCOPED_TRACE(::testing::Message() << "seed " << seed << ", water " << water);
      const CBrushList level = Level(seed);
      const WaterBrushes takeWater = water ? WaterBrushes::Build : WaterBrushes::Skip;
      CConstructiveBsp world;
      world.brushList = level.Head();
      literal::Tree plain;
      CStepCounter progress;
      RebuildQuick(world, &progress, takeWater);
      EXPECT_EQ(progress.steps, literal::RebuildQuick(plain, level.Head(), water));
      EXPECT_TRUE(SameWorlds(world, plain)) << "quick";
      progress.steps = 0;
      RebuildOptimal(world, &progress, takeWater);
      EXPECT_EQ(progress.steps, literal::RebuildOptimal(plain, level.Head(), water));
      EXPECT_TRUE(SameWorlds(world, plain)) << "optimal";
      if (GetParam().options.water == 0) break;
    }
  }
}

TEST_P(CsgDifferential, EveryInsertedBrushLeavesTheTreeOfThePlainAlgorithm) {
  for (std::int32_t seed = kSizes + 1; seed <= kSizes + 3; ++seed) {
    const CBrushList level = Level(seed);
    CConstructiveBsp world;
    literal::Tree plain;
    for (const auto& brush : level.Brushes()) {
      InsertBrush(world, *brush, brush->BBid);
      literal::InsertBrush(plain, *brush, brush->BBid);
      ASSERT_TRUE(SameWorlds(world, plain)) << "seed " << seed << " brush " << brush->BBid;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Levels, CsgDifferential, ::testing::ValuesIn(kKinds),
                         [](const auto& testInfo) { return std::string(testInfo.param.name); });

/// All faces of a level as they are, chained and hidden at random.
TEST(CsgDifferentialLists, NodeTreesEqualThePlainOnesAlsoWithChainsAndHiddenPolygons) {
  for (std::uint64_t seed = 1; seed <= 200; ++seed) {
    const bool drums = seed % 4 == 0;
    const CBrushList level =
        RandomLevel(seed, {.layout = drums ? Layout::CoarseGrid : Layout::General,
                           .brushes = 1 + static_cast<std::int32_t>(seed % 13),
                           .extent = 128,
                           .turned = drums ? 0 : 30});
    CRandom random(seed);
    CConstructiveBsp tree;
    CNodeList list;
    literal::Tree plain;
    literal::List plainList;
    for (const auto& brush : level.Brushes()) {
      if (drums) DrumSome(*brush, random);
      brush->UpdateWorld();
      for (const CZandoPoly& face : brush->WorldPolys) {
        CBspNode* node = tree.NewNode();
        node->TakePolygon(face);
        node->nValid = random.Percent(70) ? 1 : 0;
        CBspNode* twin = plain.NewNode();
        *twin = *node;
        if (!list.IsEmpty() && random.Percent(60)) {
          ChainEnd(list.tail)->chain = node;
          ChainEnd(plainList.back())->chain = twin;
        } else {
          list.Append(node);
          plainList.push_back(twin);
        }
      }
    }
    CStepCounter progress;
    BuildNodeTree(tree, list, &progress);
    EXPECT_EQ(progress.steps, literal::BuildNodeTree(plain, plainList)) << "seed " << seed;
    EXPECT_TRUE(SameWorlds(tree, plain)) << "seed " << seed;
  }
}

}  // namespace
}  // namespace zando::testing
