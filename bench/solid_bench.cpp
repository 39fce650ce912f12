#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>
#include <vector>

#include "bench_level.h"
#include "depth_buffer.h"
#include "document/zando_doc.h"
#include "paint/painter_dc.h"
#include "views/camera.h"
#include "views/solid_renderer.h"

namespace {
std::int64_t allocations = 0;
}  // namespace

void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(std::max<std::size_t>(size, 1))) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }

namespace zando::bench {
namespace {

constexpr std::int32_t kBrushes = 1000;

/// A level with its optimal world. Each polygon's tag is its index.
struct Level {
  CZANDODoc document;
  std::vector<const CBspNode*> polygons{nullptr};
};

/// Made once.
Level& LevelOf(Kind kind) {
  static std::array<std::unique_ptr<Level>, 2> levels;
  auto& level = levels[static_cast<std::size_t>(kind)];
  if (level != nullptr) return *level;
  level = std::make_unique<Level>();
  FillDocument(level->document, kind, kBrushes);
  WalkBackFrontNode(level->document.GetLevel().World.root, [&level](CBspNode* node) {
    node->polygon.tag = static_cast<std::uint32_t>(level->polygons.size());
    level->polygons.push_back(node);
  });
  return *level;
}

/// Where to look from, as parts of the cube that the level fills, and by which angles.
struct Eye {
  Vector place;
  double yaw;
  double pitch;
};
constexpr Eye kEyes[] = {
    {{0.5, 0.5, -0.6}, 0.0, 0.0},          // outside, all of the level across the picture
    {{-0.3, 1.2, -0.3}, -1024.0, -700.0},  // outside, from a corner
    {{0.05, 0.5, 0.05}, -1024.0, 0.0},     // just inside, along the diagonal
    {{0.5, 0.5, 0.5}, 3000.0, 100.0},      // in the middle
};

struct Scene {
  Level& level;
  CCamera camera;
};

/// From the arguments: kind of level, width, eye.
Scene MakeScene(const benchmark::State& state) {
  const auto kind = static_cast<Kind>(state.range(0));
  const auto width = static_cast<std::int32_t>(state.range(1));
  const Eye& eye = kEyes[state.range(2)];
  Scene scene{LevelOf(kind), {}};
  scene.camera.SetViewport(0, 0, width, width * 9 / 16);
  scene.camera.Position = eye.place * (kind == Kind::OnGrid ? 2150.0 : 1800.0);
  scene.camera.Yaw = eye.yaw;
  scene.camera.Pitch = eye.pitch;
  scene.camera.BuildViewMatrix();
  return scene;
}

void SolidFrame(benchmark::State& state) {
  const Scene scene = MakeScene(state);
  CSolidRenderer renderer;
  renderer.SetViewport(scene.camera.Width(), scene.camera.Height(),
                       scene.level.document.Textures().GetPalette().colors);
  QImage image(scene.camera.Width(), scene.camera.Height(), QImage::Format_RGB32);
  QPainter painter(&image);
  CPainterDC dc(painter, image.size());
  const auto draw = [&] {
    renderer.Render(scene.camera, scene.level.document.GetLevel().World, RenderMode::Solid);
    renderer.Present(dc);
  };
  draw();
  const std::int64_t before = allocations;
  for (auto step : state) draw();
  state.counters["allocations"] = benchmark::Counter(static_cast<double>(allocations - before),
                                                     benchmark::Counter::kAvgIterations);
  state.counters["polygons"] = renderer.DrawnPolygons();
  state.counters["spans"] = static_cast<double>(renderer.Spans().Spans().size());
  state.counters["full"] = renderer.Spans().ScreenFull() ? 1.0 : 0.0;
}

/// The walk, scan conversion and the clearing of the picture: no filling, no copy.
void SolidSpansOnly(benchmark::State& state) {
  const Scene scene = MakeScene(state);
  CSolidRenderer renderer;
  renderer.SetViewport(scene.camera.Width(), scene.camera.Height(), ColorTable{});
  for (auto step : state) {
    renderer.Render(scene.camera, scene.level.document.GetLevel().World, RenderMode::Textured);
  }
}

/// In parts of a million, the pixels of the spans for which the depth buffer has a polygon of
/// another plane. Faces of two brushes can fill the same place; either may show.
double Differing(const CSpanBuffer& spans, const std::vector<std::uint32_t>& tags,
                 const std::vector<const CBspNode*>& polygons) {
  std::int64_t covered = 0;
  std::int64_t differing = 0;
  for (const Span& span : spans.Spans()) {
    const auto row = tags.begin() + std::ptrdiff_t{span.y} * spans.Width();
    const CBspNode* shown = polygons[span.color];
    differing += std::count_if(row + span.x0, row + span.x1, [&](std::uint32_t tag) {
      if (tag == span.color) return false;
      const CBspNode* other = polygons[tag];
      return other == nullptr || Dot(other->plane.normal, shown->plane.normal) < 1.0 - 1e-9 ||
             ClassifyPoint(other->plane, shown->polygon[0]) != PointClass::On;
    });
    covered += span.x1 - span.x0;
  }
  return 1e6 * static_cast<double>(differing) / static_cast<double>(covered);
}

/// The same polygons pixel by pixel, with a depth for each pixel. Tags of 32 bits, not shown.
void DepthBufferFrame(benchmark::State& state) {
  const Scene scene = MakeScene(state);
  testing::CDepthBuffer depths(scene.camera.Width(), scene.camera.Height());
  for (auto step : state) depths.Draw(scene.camera, scene.level.document.GetLevel().World);
  CSolidRenderer renderer;
  renderer.SetViewport(scene.camera.Width(), scene.camera.Height(), ColorTable{});
  renderer.Render(scene.camera, scene.level.document.GetLevel().World, RenderMode::Textured);
  state.counters["differing_ppm"] =
      Differing(renderer.Spans(), depths.Tags(), scene.level.polygons);
}

void FillSurface(benchmark::State& state) {
  const auto width = static_cast<std::int32_t>(state.range(0));
  CSurface surface;
  surface.Create(width, width * 9 / 16, ColorTable{});
  for (auto step : state) {
    std::ranges::fill(surface.Pixels(), std::uint8_t{0});
    benchmark::DoNotOptimize(surface.Pixels().data());
    benchmark::ClobberMemory();
  }
}

void PresentSurface(benchmark::State& state) {
  const auto width = static_cast<std::int32_t>(state.range(0));
  CSurface surface;
  surface.Create(width, width * 9 / 16, BuiltInPalette().colors);
  QImage image(width, width * 9 / 16, QImage::Format_RGB32);
  QPainter painter(&image);
  CPainterDC dc(painter, image.size());
  for (auto step : state) surface.Present(dc, {0, 0});
}

void Scenes(benchmark::internal::Benchmark* benchmark) {
  benchmark->ArgNames({"kind", "width", "eye"})->Unit(benchmark::kMillisecond);
  benchmark->ArgsProduct({{0, 1}, {1920, 3840}, {0, 1, 2, 3}});
}

BENCHMARK(FillSurface)->Arg(1920)->Arg(3840)->Unit(benchmark::kMillisecond);
BENCHMARK(PresentSurface)->Arg(1920)->Arg(3840)->Unit(benchmark::kMillisecond);
BENCHMARK(SolidFrame)->Apply(Scenes);
BENCHMARK(SolidSpansOnly)->Apply(Scenes);
BENCHMARK(DepthBufferFrame)->Apply(Scenes);

}  // namespace
}  // namespace zando::bench
