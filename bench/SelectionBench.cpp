// One selection, from the metadata's text to the chosen index, beside a bare walk of the same text.
#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <pugixml.hpp>
#include <string>

#include "BenchItems.h"
#include "TarqCdsAccess.h"
#include "TarqDlnaResSelection.h"

namespace {

void selectFromText(benchmark::State& state) {
  const std::string text = videoItem(static_cast<int>(state.range(0)));
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
  state.SetComplexityN(state.range(0));
}

void walkOnly(benchmark::State& state) {
  const std::string text = videoItem(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const auto copy = std::make_unique_for_overwrite<char[]>(text.size());
    std::memcpy(copy.get(), text.data(), text.size());
    pugi::xml_document document;
    document.load_buffer_inplace(copy.get(), text.size());
    for (const pugi::xml_node res : document.first_child().first_child().children("res")) {
      for (const char* name : {"protocolInfo", "resolution", "size", "duration"}) {
        benchmark::DoNotOptimize(res.attribute(name).value());
      }
      benchmark::DoNotOptimize(res.child_value());
    }
  }
  state.SetComplexityN(state.range(0));
}

void resCounts(benchmark::internal::Benchmark* bench) {
  for (const int count : {1, 4, 16, 64, 256}) bench->Arg(count);
  bench->Complexity(benchmark::oN);
}

BENCHMARK(walkOnly)->Apply(resCounts);
BENCHMARK(selectFromText)->Apply(resCounts);

}  // namespace
