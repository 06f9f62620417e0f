// The sink text of each region.
#include <android/log.h>
#include <benchmark/benchmark.h>

#include "LoadedPlugin.h"

namespace {

void sinkText(benchmark::State& state) {
  LoadedPlugin::instance();
  __android_log_set_minimum_priority(ANDROID_LOG_SILENT);
  TarqDmrParamsInterface* params = TarqDmrPluginManager::GetInstance()->GetParams();
  params->SetCurrentRegion(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(params->GetSinkProtocolInfo());
}

BENCHMARK(sinkText)->Arg(0)->Arg(1)->Arg(2)->Arg(16);

}  // namespace
