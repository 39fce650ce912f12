#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <limits>
#include <ostream>
#include <string>
#include <tuple>
#include <utility>

#include "csg/csg_world.h"
#include "csg/leaf_tree_builder.h"
#include "csg/literal_csg.h"
#include "csg/node_tree_builder.h"
#include "document/document_file.h"
#include "geometry/axes.h"
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

/// Bit for bit; whatever is not a number is the same.
bool SameNumber(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) ||
         (std::isnan(a) && std::isnan(b));
}

bool SameVector(const Vector& a, const Vector& b) {
  return SameNumber(a.x, b.x) && SameNumber(a.y, b.y) && SameNumber(a.z, b.z);
}

/// All but the colour: any flat colour will do.
bool SameMember(const CBspNode& a, const CBspNode& b) {
  const auto verticesA = a.polygon.Vertices();
  const auto verticesB = b.polygon.Vertices();
  return a.nValid == b.nValid && a.nLeaf == b.nLeaf && a.nBid == b.nBid && a.nPolNum == b.nPolNum &&
         a.pBrush == b.pBrush && SameVector(a.plane.normal, b.plane.normal) &&
         SameNumber(a.plane.d, b.plane.d) && a.polygon.tag >= 4 && a.polygon.tag <= 253 &&
         std::equal(verticesA.begin(), verticesA.end(), verticesB.begin(), verticesB.end(),
                    SameVector);
}

/// Where two trees differ first; empty when they are the same.
std::string Difference(const CBspNode* a, const CBspNode* b, const std::string& path) {
  if (a == nullptr && b == nullptr) return {};
  const CBspNode* memberA = a;
  const CBspNode* memberB = b;
  const auto next = a != nullptr && a->nLeaf != 0 ? &CBspNode::link : &CBspNode::chain;
  for (int i = 0; memberA != nullptr || memberB != nullptr; ++i) {
    const bool both = memberA != nullptr && memberB != nullptr;
    if (!both || !SameMember(*memberA, *memberB)) return path + " member " + std::to_string(i);
    memberA = memberA->*next;
    memberB = memberB->*next;
  }
  const std::string front = Difference(a->front, b->front, path + "f");
  return front.empty() ? Difference(a->back, b->back, path + "b") : front;
}

void ExpectSame(CConstructiveBsp& world, literal::Tree& plain) {
  // Before anything walks it: what differs may be no tree at all.
  ASSERT_EQ(Difference(world.root, plain.root, "root "), "");
  world.CountStats();
  plain.CountStats();
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

/// Moves vertices, each polygon's by itself, so that faces are not quite flat or not at all.
void Bend(CZandoBrush& brush, CRandom& random) {
  const double most = 0.002 * std::pow(10000.0, random.Real(0.0, 1.0));
  for (std::size_t i = 0; i < brush.Polys().size(); ++i) {
    for (Vector& v : brush.EditPoly(i).Vertices()) {
      if (random.Percent(50)) continue;
      const auto offset = [&] { return random.Percent(50) ? random.Real(-most, most) : 0.0; };
      v = v + Vector{offset(), offset(), offset()};
    }
  }
}

/// Makes a face into one that no tool makes, or leaves it: few vertices, the same one twice,
/// coordinates beyond all bounds.
void BreakFace(CZandoPoly& face, CRandom& random) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr double kOdd[] = {std::numeric_limits<double>::quiet_NaN(),
                             kInfinity,
                             -kInfinity,
                             1e308,
                             -1e155,
                             1e13,
                             40000.0};
  const auto vertex = [&]() -> Vector& { return face[random.Between(0, face.count - 1)]; };
  const std::int32_t kind = random.Between(0, 9);
  if (kind == 0) face.count = random.Between(0, 2);
  if (kind == 1) vertex() = vertex();
  if (kind == 2)
    vertex().*kCoordinates[std::size_t(random.Between(0, 2))] = kOdd[random.Between(0, 6)];
}

void Break(CZandoBrush& brush, CRandom& random) {
  for (std::size_t i = 0; i < brush.Polys().size(); ++i) BreakFace(brush.EditPoly(i), random);
}

constexpr std::int32_t kUnknownOperation = 2;

void LeaveSomeOut(CZandoBrush& brush, CRandom& random) {
  if (random.Percent(20)) brush.BFlags |= BF_ENTITY;
  if (random.Percent(20)) brush.BFlags &= ~BF_SHOWN;
  if (random.Percent(10)) brush.TranT = kUnknownOperation;
  if (random.Percent(10)) Place(brush, [](Placement& own) { own.Scl.y = 0.0; });  // no volume
}

const Kind kKinds[] = {
    {"GeneralPosition", {.brushes = 60, .extent = 256, .maxSize = 128}},
    {"CoarseGrid", {.layout = Layout::CoarseGrid, .brushes = 60, .water = 20}},
    {"Tapered", {.brushes = 50, .extent = 256, .maxSize = 128, .tapered = 70, .water = 20}},
    {"TaperedOnGrid", {.layout = Layout::CoarseGrid, .brushes = 50, .tapered = 50}},
    {"Turned", {.brushes = 30, .extent = 160, .maxSize = 128, .tapered = 30, .turned = 70}},
    {"FarApart", {.brushes = 90, .extent = 640, .maxSize = 160, .tapered = 20, .turned = 20}},
    {"FarApartOnGrid", {.layout = Layout::CoarseGrid, .brushes = 90, .extent = 640, .turned = 10}},
    {"Shapes", {.brushes = 30, .turned = 20, .shaped = 60}},
    {"ShapesOnGrid", {.layout = Layout::CoarseGrid, .brushes = 30, .turned = 10, .shaped = 50}},
    {"Drums", {.layout = Layout::CoarseGrid, .brushes = 18, .extent = 160}, DrumSome},
    {"NearlyCoincident", {.layout = Layout::CoarseGrid, .brushes = 40}, Jitter},
    {"Bent", {.brushes = 25, .maxSize = 192}, Bend},
    {"BentOnGrid", {.layout = Layout::CoarseGrid, .brushes = 25, .turned = 20}, Bend},
    {"Broken", {.layout = Layout::CoarseGrid, .brushes = 25, .extent = 192}, Break},
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

TEST(CsgDifferentialFiles, BentFacesOfEditedFilesGiveThePlainTree) {
  for (const char* name : {"endless_tree", "endless_tree_whole_boxes", "other_splitter"}) {
    const auto level =
        LoadDocumentFile(std::string(ZANDO_SOURCE_DIR "/tests/data/bent/") + name + ".3dz");
    ASSERT_TRUE(level) << level.Error();
    CConstructiveBsp world;
    world.brushList = level->document->GetLevel().BrushList.Head();
    literal::Tree plain;
    RebuildOptimal(world, nullptr, WaterBrushes::Build);
    literal::RebuildOptimal(plain, world.brushList, true);
    ExpectSame(world, plain);
  }
}

/// All faces of a level as they are, chained and hidden at random: the same for a seed.
CNodeList RandomList(std::uint64_t seed, CConstructiveBsp& tree) {
  const bool drums = seed % 4 == 0;
  CBrushList level = RandomLevel(seed, {.layout = drums ? Layout::CoarseGrid : Layout::General,
                                        .brushes = 1 + static_cast<std::int32_t>(seed % 13),
                                        .extent = 128,
                                        .turned = seed % 2 == 0 ? 0 : 30});
  CRandom random(seed);
  CNodeList list;
  for (CZandoBrush& brush : level) {
    if (drums) DrumSome(brush, random);
    if (seed % 8 < 2) Bend(brush, random);
    for (CZandoPoly face : brush.WorldPolys()) {
      if (seed % 8 > 4) BreakFace(face, random);
      CBspNode* node = tree.NewNode();
      node->TakePolygon(face);
      node->nValid = random.Percent(70) ? 1 : 0;
      if (!list.IsEmpty() && random.Percent(60)) {
        ChainEnd(list.tail)->chain = node;
      } else {
        list.Append(node);
      }
    }
  }
  return list;
}

literal::List Copy(const CNodeList& list, literal::Tree& tree) {
  literal::List copy;
  for (const CBspNode* head = list.head; head != nullptr; head = head->link) {
    for (const CBspNode* member = head; member != nullptr; member = member->chain) {
      CBspNode* twin = tree.NewNode();
      *twin = *member;
      twin->chain = twin->link = nullptr;
      if (member == head) {
        copy.push_back(twin);
      } else {
        ChainEnd(copy.back())->chain = twin;
      }
    }
  }
  return copy;
}

CBspNode* PlainLeafTree(CConstructiveBsp& tree, const CNodeList& list) {
  if (list.IsEmpty()) return nullptr;
  CBspNode* splitter = ChooseLeafSplitter(list);
  if (splitter == nullptr) {
    list.head->nLeaf = 1;
    return list.head;
  }
  const Partitioned sides = PartitionLeaf(tree, splitter, list);
  splitter->front = PlainLeafTree(tree, sides.front);
  splitter->back = PlainLeafTree(tree, sides.back);
  return splitter;
}

TEST(CsgDifferentialLists, TreesEqualThePlainOnesAlsoWithChainsAndHiddenPolygons) {
  for (std::uint64_t seed = 1; seed <= 400; ++seed) {
    SCOPED_TRACE(seed);
    CConstructiveBsp tree;
    const CNodeList list = RandomList(seed, tree);
    literal::Tree plain;
    const literal::List plainList = Copy(list, plain);
    CStepCounter progress;
    BuildNodeTree(tree, list, &progress);
    EXPECT_EQ(progress.steps, literal::BuildNodeTree(plain, plainList));
    ExpectSame(tree, plain);

    CConstructiveBsp leaves;
    CConstructiveBsp plainLeaves;
    BuildLeafTree(leaves, RandomList(seed, leaves));
    plainLeaves.root = PlainLeafTree(plainLeaves, RandomList(seed, plainLeaves));
    EXPECT_EQ(Difference(leaves.root, plainLeaves.root, "leaves"), "");
    EXPECT_EQ(leaves.refused, plainLeaves.refused);
  }
}

}  // namespace
}  // namespace zando::testing
