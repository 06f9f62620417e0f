// One whole check that asks no server. Baseline: a bare walk of the same document.
#include <benchmark/benchmark.h>

#include "BareWalk.h"
#include "BenchItems.h"
#include "Checker.h"
#include "PairedTiming.h"
#include "WholeCheck.h"

namespace {

void checkMetadata(benchmark::State& state, const BenchKind& kind) {
  const std::string item = benchItem(kind, static_cast<int>(state.range(0)));
  newChecker(1);
  timeAgainstBaseline(
      state, [&] { benchmark::DoNotOptimize(bareWalk(item)); },
      [&] { benchmark::DoNotOptimize(wholeCheck(item)); });
}

BENCHMARK_CAPTURE(checkMetadata, video, kBenchKinds[0])->RangeMultiplier(4)->Range(1, 256);
BENCHMARK_CAPTURE(checkMetadata, music, kBenchKinds[1])->RangeMultiplier(4)->Range(1, 256);
BENCHMARK_CAPTURE(checkMetadata, photo, kBenchKinds[2])->RangeMultiplier(4)->Range(1, 256);

}  // namespace
