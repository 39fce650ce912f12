#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <ostream>
#include <string>
#include <tuple>
#include <utility>

#include "csg/csg_world.h"
#include "csg/literal_csg.h"
#include "csg/node_tree_builder.h"
#include "support/csg_testing.h"
#include "support/edit_level.h"

namespace zando::testing {
namespace {

using Layout = LevelOptions::Layout;

class CStepCounter : public CProgress {
 public:
  void StepIt() override { ++steps; }
  std::int32_t steps = 0;
};

/// Bit for bit, but for the colour: any flat colour will do.
bool SameMember(const CBspNode& a, const CBspNode& b) {
  const auto sameBits = [](const auto& x, const auto& y) {
    return std::memcmp(&x, &y, sizeof x) == 0;
  };
  const auto verticesA = a.polygon.Vertices();
  const auto verticesB = b.polygon.Vertices();
  return a.nValid == b.nValid && a.nBid == b.nBid && a.nPolNum == b.nPolNum &&
         a.pBrush == b.pBrush && sameBits(a.plane, b.plane) && a.polygon.tag >= 4 &&
         a.polygon.tag <= 253 &&
         std::equal(verticesA.begin(), verticesA.end(), verticesB.begin(), verticesB.end(),
                    sameBits);
}

/// Where two trees differ first; empty when they are the same.
std::string Difference(const CBspNode* a, const CBspNode* b, const std::string& path) {
  if (a == nullptr && b == nullptr) return {};
  const CBspNode* memberA = a;
  const CBspNode* memberB = b;
  for (int i = 0; memberA != nullptr || memberB != nullptr; ++i) {
    const bool both = memberA != nullptr && memberB != nullptr;
    if (!both || !SameMember(*memberA, *memberB)) return path + " member " + std::to_string(i);
    memberA = memberA->chain;
    memberB = memberB->chain;
  }
  const std::string front = Difference(a->front, b->front, path + "f");
  return front.empty() ? Difference(a->back, b->back, path + "b") : front;
}

void ExpectSame(CConstructiveBsp& world, literal::Tree& plain) {
  world.CountStats();
  plain.CountStats();
  EXPECT_EQ(Difference(world.root, plain.root, "root "), "");
  const auto statistics = [](const CConstructiveBsp& tree) {
    return std::tuple(tree.nodes, tree.coplanar, tree.inserted, tree.visible, tree.refused);
  };
  EXPECT_EQ(statistics(world), statistics(plain));
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
  Place(brush, [](Placement& own) { own.Scl = {1.01, 1.0, 1.01}; });
}

/// Moves faces that coincide apart, by more and by less than the tolerance.
void Jitter(CZandoBrush& brush, CRandom& random) {
  const auto offset = [&random] { return random.Between(-4, 4) * 0.0004; };
  Transform placed = brush.BMatrix();
  placed.Translate(offset(), offset(), offset());
  brush.SetBMatrix(placed);
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
    for (CZandoBrush& brush : level) GetParam().change(brush, random);
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
      for (const auto& [rebuild, plainRebuild] :
           {std::pair(&RebuildQuick, &literal::RebuildQuick),
            std::pair(&RebuildOptimal, &literal::RebuildOptimal)}) {
        literal::Tree plain;
        CStepCounter progress;
        rebuild(world, &progress, takeWater);
        EXPECT_EQ(progress.steps, plainRebuild(plain, level.Head(), water));
        ExpectSame(world, plain);
      }
      if (GetParam().options.water == 0) break;
    }
  }
}

TEST_P(CsgDifferential, EveryInsertedBrushLeavesTheTreeOfThePlainAlgorithm) {
  for (std::int32_t seed = kSizes + 1; seed <= kSizes + 3; ++seed) {
    const CBrushList level = Level(seed);
    CConstructiveBsp world;
    literal::Tree plain;
    for (const CZandoBrush& brush : level) {
      SCOPED_TRACE(::testing::Message() << "seed " << seed << " brush " << brush.BBid);
      InsertBrush(world, brush, brush.BBid);
      literal::InsertBrush(plain, brush, brush.BBid);
      ExpectSame(world, plain);
      if (HasFailure()) return;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Levels, CsgDifferential, ::testing::ValuesIn(kKinds),
                         [](const auto& testInfo) { return std::string(testInfo.param.name); });

/// All faces of a level as they are, chained and hidden at random.
TEST(CsgDifferentialLists, NodeTreesEqualThePlainOnesAlsoWithChainsAndHiddenPolygons) {
  for (std::uint64_t seed = 1; seed <= 200; ++seed) {
    const bool drums = seed % 4 == 0;
    CBrushList level = RandomLevel(seed, {.layout = drums ? Layout::CoarseGrid : Layout::General,
                                          .brushes = 1 + static_cast<std::int32_t>(seed % 13),
                                          .extent = 128,
                                          .turned = drums ? 0 : 30});
    CRandom random(seed);
    CConstructiveBsp tree;
    CNodeList list;
    literal::Tree plain;
    literal::List plainList;
    for (CZandoBrush& brush : level) {
      if (drums) DrumSome(brush, random);
      for (const CZandoPoly& face : brush.WorldPolys()) {
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
    SCOPED_TRACE(seed);
    EXPECT_EQ(progress.steps, literal::BuildNodeTree(plain, plainList));
    ExpectSame(tree, plain);
  }
}

}  // namespace
}  // namespace zando::testing
