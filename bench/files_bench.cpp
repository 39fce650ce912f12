#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

#include "bench_level.h"
#include "document/document_file.h"
#include "formats/map_writer.h"

// Arguments are the kind of level (0 on the grid, 1 freely turned) and the number of brushes.

namespace zando::bench {
namespace {

using ::benchmark::State;

void FillDocument(CZANDODoc& document, const State& state) {
  FillDocument(document, static_cast<Kind>(state.range(0)),
               static_cast<std::int32_t>(state.range(1)));
}

void CountBytes(State& state, std::size_t bytes) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
  state.counters["bytes"] = static_cast<double>(bytes);
}

void ExportMapText(State& state) {
  CZANDODoc document;
  FillDocument(document, state);
  std::size_t bytes = 0;
  MapExportReport report;
  for (auto _ : state) bytes = WriteMap(document.GetLevel(), "base.wad", &report).size();
  CountBytes(state, bytes);
  state.counters["cells"] = report.brushes;
}

void Load(State& state) {
  CZANDODoc document;
  FillDocument(document, state);
  const std::string text = WriteDocument(document);
  for (auto _ : state) {
    const auto loaded = ReadDocument(text);
    if (!loaded) state.SkipWithError(loaded.Error().c_str());
  }
  CountBytes(state, text.size());
}

void Save(State& state) {
  CZANDODoc document;
  FillDocument(document, state);
  std::size_t bytes = 0;
  for (auto _ : state) bytes = WriteDocument(document).size();
  CountBytes(state, bytes);
}

void AllLevels(benchmark::internal::Benchmark* b) {
  constexpr auto onGrid = static_cast<std::int64_t>(Kind::OnGrid);
  constexpr auto freelyTurned = static_cast<std::int64_t>(Kind::FreelyTurned);
  b->ArgsProduct({{onGrid, freelyTurned}, {10, 100, 1000, 4000}})->Unit(benchmark::kMillisecond);
}

BENCHMARK(ExportMapText)->Apply(AllLevels);
BENCHMARK(Load)->Apply(AllLevels);
BENCHMARK(Save)->Apply(AllLevels);

}  // namespace
}  // namespace zando::bench
