// The sink protocolInfo of each region.
#include <benchmark/benchmark.h>

#include "LoadedPlugin.h"

namespace {

void sinkProtocolInfo(benchmark::State& state) {
  LoadedPlugin::instance();
  TarqDmrParamsInterface* params = TarqDmrPluginManager::GetInstance()->GetParams();
  params->SetCurrentRegion(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(params->GetSinkProtocolInfo());
}
BENCHMARK(sinkProtocolInfo)->Arg(0)->Arg(1)->Arg(2)->Arg(16);

}  // namespace
