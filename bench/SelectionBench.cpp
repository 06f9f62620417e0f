// One selection, from the metadata's text to the chosen index; one whole check without a probe, beside a bare
// walk of the same text.
#include <android/log.h>
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "BareWalk.h"
#include "BenchItems.h"
#include "Beside.h"
#include "Checker.h"
#include "TarqCdsAccess.h"
#include "TarqDlnaResSelection.h"

namespace {

std::string itemOf(const benchmark::State& state) {
  return benchItem(kBenchKinds[state.range(0)], static_cast<int>(state.range(1)));
}

void selectFromText(benchmark::State& state) {
  const std::string text = itemOf(state);
  for (auto _ : state) {
    TARQ_Result* result = TARQ_Result_ParseCds(cdsText(text.c_str()));
    const TARQ_Object* object = TARQ_Result_GetObject(result, 0);
    const int count = TARQ_Object_NumOfProperties(object, cdsText("res"));
    const auto records = std::make_unique<TarqDlnaResMetadata[]>(static_cast<size_t>(count));
    int selected = -1;
    TarqDlnaResSelection(1).selectMediaResIndex(object, records.get(), count, &selected, 0);
    benchmark::DoNotOptimize(selected);
    TARQ_Result_DestroyResult(result);
  }
}

void wholeCheck(benchmark::State& state) {
  const std::string text = itemOf(state);
  __android_log_set_minimum_priority(ANDROID_LOG_SILENT);
  newChecker(1);
  measureBeside(
      state, [&] { benchmark::DoNotOptimize(bareWalk(text)); },
      [&] {
        const std::unique_ptr<TarqResourceCheckerInterface> checker(
            TarqDmrPluginManager::GetInstance()->GetParams()->CreateResourceChecker());
        if (checker->CheckResource("item", text.c_str()) != 0) std::abort();
        benchmark::DoNotOptimize(checker->GetResource());
      });
}

// Video, music and photo.
template <int Kind>
void resCounts(benchmark::internal::Benchmark* bench) {
  for (const int count : {1, 4, 16, 64, 256}) bench->Args({Kind, count});
}

BENCHMARK(selectFromText)->Name("selectFromText/video")->Apply(resCounts<0>);
BENCHMARK(wholeCheck)->Name("wholeCheck/video")->Apply(resCounts<0>);
BENCHMARK(wholeCheck)->Name("wholeCheck/music")->Apply(resCounts<1>);
BENCHMARK(wholeCheck)->Name("wholeCheck/photo")->Apply(resCounts<2>);

}  // namespace
