#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <random>
#include <string>

#include "cli/script.h"
#include "formats/map_writer.h"

namespace zando {
namespace {

constexpr std::array kPrimitives{
    "box x=96 y=64 z=80",
    "box style=hollow x=120 y=96 z=120 wall=8",
    "spheroid x=128 y=96 z=128",
    "spheroid style=hollow x=128 y=128 z=128 wall=12",
    "cylinder x=64 z=64 y=160 stripes=8",
    "cylinder style=ring x=96 z=96 y=128 stripes=8 wall=8",
    "staircase height=128 length=160 width=64",
    "ramp height=96 length=128 width=64",
};
constexpr std::array kYaws{0, 0, 30, 45, 90};

/// All kinds in turn, scattered through a cube of 3,200 and turned; every tenth one carves.
std::string ScriptOf(std::int64_t primitives, const std::string& ending) {
  std::minstd_rand random(1);
  const auto coordinate = [&random] {
    return ' ' + std::to_string(static_cast<std::int64_t>(random() % 3201) - 1600);
  };
  std::string script;
  for (std::int64_t i = 0; i < primitives; ++i) {
    script += kPrimitives[static_cast<std::size_t>(i) % kPrimitives.size()];
    script += "\nposition" + coordinate() + coordinate() + coordinate();
    script += "\nrotate " + std::to_string(kYaws[random() % kYaws.size()]) + " 0 0";
    script += i % 10 == 9 ? "\nsubtract\n" : "\nadd\n";
  }
  return script + ending;
}

void Script(benchmark::State& state, const std::string& ending) {
  const std::string script = ScriptOf(state.range(0), ending);
  for (auto _ : state) {
    CZANDODoc document;
    benchmark::DoNotOptimize(RunScript(document, script, "bench"));
  }
}

/// A spheroid of so many stripes each way, carved out of a box: as many cells as it has faces.
void ExportCarvedSpheroid(benchmark::State& state) {
  const std::string stripes = std::to_string(state.range(0));
  CZANDODoc document;
  const ScriptResult carved =
      RunScript(document,
                "box x=400 y=400 z=400\nadd\nspheroid horizontal=" + stripes +
                    " vertical=" + stripes + "\nsubtract\n",
                "bench");
  if (!carved.error.empty()) state.SkipWithError(carved.error.c_str());
  for (auto _ : state) benchmark::DoNotOptimize(WriteMap(document.GetLevel(), ""));
}

BENCHMARK(ExportCarvedSpheroid)->Arg(20)->Arg(40)->Arg(80)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Script, AsAdded, "")->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Script, Optimal, "rebuild optimal")->Arg(1000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zando
