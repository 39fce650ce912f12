#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <QImage>
#include <QPainter>

#include "bench_level.h"
#include "document/brush_edits.h"
#include "document/zando_doc.h"
#include "paint/painter_dc.h"
#include "views/camera.h"
#include "views/wireframe.h"

namespace zando::bench {
namespace {

constexpr ScreenPoint kClient{1920, 1080};

/// One frame of a view, from an erased picture to the last handle.
void DrawFrame(QImage& image, CZANDODoc& document, CCamera& camera, ViewKind kind, double zoom) {
  image.fill(Qt::black);
  QPainter painter(&image);
  CPainterDC dc(painter, image.size());
  dc.ResetClip();
  camera.BuildViewMatrix();
  camera.BeginDraw(kind, zoom);
  const ViewDrawing drawing{dc, camera};
  DrawGrid(drawing, document);
  DrawBrushes(drawing, document);
  DrawEntities(drawing, document);
  DrawCurrentBrush(drawing, document);
}

/// Moves the camera from frame to frame as a drag does: to the right and back.
void Pan(benchmark::State& state, ViewKind kind, const Vector& from, double zoom) {
  CZANDODoc document;
  const CBrushList level = MakeLevel(Kind::FreelyTurned, static_cast<std::int32_t>(state.range(0)));
  for (const CZandoBrush& brush : level) AddBrush(document, brush);
  QImage image(kClient.x, kClient.y, QImage::Format_RGB32);
  CCamera camera;
  camera.SetViewport(0, 0, kClient.x, kClient.y);
  camera.Position = from;
  std::int32_t frame = 0;
  for (auto step : state) {
    camera.Pan(frame++ % 60 < 30 ? 8.0 : -8.0, 0.0, 0.0);
    DrawFrame(image, document, camera, kind, zoom);
    benchmark::DoNotOptimize(image.constBits());
  }
  state.counters["frames/s"] =
      benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  state.counters["peak MiB"] = static_cast<double>(usage.ru_maxrss) / 1024.0;
}

/// The levels of bench_level.h reach from the origin to about 180 times the cube root of their
/// brushes: 2,857 map units for 4,000.
constexpr Vector kMiddle{1400.0, 1400.0, 1400.0};

void TopWholeLevel(benchmark::State& state) { Pan(state, ViewKind::Top, kMiddle, 0.33); }
void TopCloseUp(benchmark::State& state) { Pan(state, ViewKind::Top, kMiddle, 1.0); }
void WireframeWholeLevel(benchmark::State& state) {
  Pan(state, ViewKind::Wireframe, {1400.0, 1400.0, -2600.0}, 0.1);
}
void WireframeInside(benchmark::State& state) { Pan(state, ViewKind::Wireframe, kMiddle, 0.1); }

BENCHMARK(TopWholeLevel)->Arg(1000)->Arg(4000)->Unit(benchmark::kMillisecond);
BENCHMARK(TopCloseUp)->Arg(1000)->Arg(4000)->Unit(benchmark::kMillisecond);
BENCHMARK(WireframeWholeLevel)->Arg(1000)->Arg(4000)->Unit(benchmark::kMillisecond);
BENCHMARK(WireframeInside)->Arg(1000)->Arg(4000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zando::bench
