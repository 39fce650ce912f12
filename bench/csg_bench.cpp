#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <algorithm>
#include <cstdint>
#include <tuple>
#include <vector>

#include "bench_level.h"
#include "csg/csg_world.h"
#include "csg/literal_csg.h"
#include "csg/node_tree_builder.h"

// Arguments are the kind of level (0 on the grid, 1 freely turned) and the number of brushes.

namespace zando::bench {
namespace {

using ::benchmark::State;

/// Of the whole process so far: run one benchmark alone to learn its own.
double PeakMegabytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

CBrushList LevelOf(const State& state) {
  return MakeLevel(static_cast<Kind>(state.range(0)), static_cast<std::int32_t>(state.range(1)));
}

using Rebuild = void (*)(CConstructiveBsp&, CProgress*, WaterBrushes);

void RunRebuild(State& state, Rebuild rebuild) {
  const CBrushList level = LevelOf(state);
  std::int32_t nodes = 0;
  std::int32_t visible = 0;
  for (auto _ : state) {
    CConstructiveBsp world;
    world.brushList = level.Head();
    rebuild(world, nullptr, WaterBrushes::Build);
    state.PauseTiming();
    world.CountStats();
    nodes = world.nodes;
    visible = world.visible;
    state.ResumeTiming();
  }
  state.counters["nodes"] = nodes;
  state.counters["visible"] = visible;
  state.counters["peak_MiB"] = PeakMegabytes();
  state.counters["neighbours"] = MeanNeighbours(level);
}

using LiteralRebuild = std::int32_t (*)(literal::Tree&, const CZandoBrush*, bool);

void RunLiteralRebuild(State& state, LiteralRebuild rebuild) {
  const CBrushList level = LevelOf(state);
  for (auto _ : state) {
    literal::Tree world;
    benchmark::DoNotOptimize(rebuild(world, level.Head(), true));
  }
}

/// The visible polygons of a rebuilt level, in the order of brushes and their faces.
std::vector<CZandoPoly> VisiblePolygons(const CBrushList& level) {
  CConstructiveBsp world;
  world.brushList = level.Head();
  RebuildOptimal(world, nullptr, WaterBrushes::Build);
  std::vector<const CBspNode*> nodes;
  WalkBackFrontNode(world.root, [&nodes](const CBspNode* node) { nodes.push_back(node); });
  std::stable_sort(nodes.begin(), nodes.end(), [](const CBspNode* a, const CBspNode* b) {
    return std::tie(a->nBid, a->nPolNum) < std::tie(b->nBid, b->nPolNum);
  });
  std::vector<CZandoPoly> polygons;
  polygons.reserve(nodes.size());
  for (const CBspNode* node : nodes) polygons.push_back(node->polygon);
  return polygons;
}

/// Squares behind one another, none of which cuts another: the tree becomes one chain.
std::vector<CZandoPoly> ParallelSquares(std::int64_t count) {
  std::vector<CZandoPoly> squares(static_cast<std::size_t>(count));
  for (std::size_t i = 0; i < squares.size(); ++i) {
    const auto x = static_cast<double>(i);
    squares[i].Append({x, 0.0, 0.0});
    squares[i].Append({x, 64.0, 0.0});
    squares[i].Append({x, 64.0, 64.0});
    squares[i].Append({x, 0.0, 64.0});
  }
  return squares;
}

void BuildTrees(State& state, const std::vector<CZandoPoly>& polygons) {
  for (auto _ : state) {
    state.PauseTiming();
    CConstructiveBsp tree;
    CNodeList list;
    for (const CZandoPoly& polygon : polygons) {
      CBspNode* node = tree.NewNode();
      node->TakePolygon(polygon);
      list.Append(node);
    }
    state.ResumeTiming();
    BuildNodeTree(tree, list, nullptr);
    benchmark::DoNotOptimize(tree.root);
  }
  state.counters["polygons"] = static_cast<double>(polygons.size());
}

void BuildLiteralTrees(State& state, const std::vector<CZandoPoly>& polygons) {
  for (auto _ : state) {
    state.PauseTiming();
    literal::Tree tree;
    literal::List list;
    for (const CZandoPoly& polygon : polygons) {
      list.push_back(tree.NewNode());
      list.back()->TakePolygon(polygon);
    }
    state.ResumeTiming();
    benchmark::DoNotOptimize(literal::BuildNodeTree(tree, list));
  }
  state.counters["polygons"] = static_cast<double>(polygons.size());
}

void Optimal(State& state) { RunRebuild(state, RebuildOptimal); }
void OptimalLiteral(State& state) { RunLiteralRebuild(state, literal::RebuildOptimal); }
void Quick(State& state) { RunRebuild(state, RebuildQuick); }
void QuickLiteral(State& state) { RunLiteralRebuild(state, literal::RebuildQuick); }

void NodeTree(State& state) { BuildTrees(state, VisiblePolygons(LevelOf(state))); }
void NodeTreeLiteral(State& state) { BuildLiteralTrees(state, VisiblePolygons(LevelOf(state))); }

void SquareChain(State& state) { BuildTrees(state, ParallelSquares(state.range(0))); }
void SquareChainLiteral(State& state) { BuildLiteralTrees(state, ParallelSquares(state.range(0))); }

constexpr std::int64_t kOnGrid = static_cast<std::int64_t>(Kind::OnGrid);
constexpr std::int64_t kFreelyTurned = static_cast<std::int64_t>(Kind::FreelyTurned);

// The literal versions run on sizes on which they end in a time that one wants to wait for.
BENCHMARK(Optimal)
    ->ArgsProduct({{kOnGrid, kFreelyTurned}, {10, 100, 1000, 4000}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(OptimalLiteral)
    ->ArgsProduct({{kOnGrid, kFreelyTurned}, {10, 100}})
    ->Args({kOnGrid, 300})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Quick)
    ->ArgsProduct({{kOnGrid, kFreelyTurned}, {10, 100, 1000, 4000}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(QuickLiteral)
    ->ArgsProduct({{kOnGrid, kFreelyTurned}, {10, 100, 1000}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(NodeTree)
    ->ArgsProduct({{kOnGrid, kFreelyTurned}, {10, 100, 1000, 4000}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(NodeTreeLiteral)
    ->ArgsProduct({{kOnGrid, kFreelyTurned}, {10, 100}})
    ->Args({kOnGrid, 300})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(SquareChain)->RangeMultiplier(10)->Range(100, 100000)->Unit(benchmark::kMillisecond);
BENCHMARK(SquareChainLiteral)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zando::bench
