// One player operation, forwarded to the Java handler. Baseline: the JNI calls that it needs at least.
#include <benchmark/benchmark.h>

#include <string>
#include <thread>

#include "JavaHandler.h"
#include "JavaVm.h"
#include "LoadedPlugin.h"
#include "PairedTiming.h"

namespace {

constexpr const char* kHandler = "com.orsa.tarq.dlna.TarqRendererHandler";

JNIEnv& environment() {
  static const JavaVm vm({RENDERER_JAR});
  return vm.env();
}

TarqDmrPlayerInterface* playerWithHandler() {
  auto* made = LoadedPlugin::instance().symbol<TarqDmrPlayerInterface*()>("GetPlayer")();
  made->AddCb(&environment(), JavaHandler(environment(), kHandler).object());
  return made;
}

TarqDmrPlayerInterface& player() {
  static TarqDmrPlayerInterface* const shared = playerWithHandler();
  return *shared;
}

void bareCall(JNIEnv& env, jobject handler) {
  const jclass handlerClass = env.GetObjectClass(handler);
  const jmethodID method = env.GetMethodID(handlerClass, "stop", "(I)I");
  benchmark::DoNotOptimize(env.CallIntMethod(handler, method, jint{0}));
  env.DeleteLocalRef(handlerClass);
}

void attachedThread(benchmark::State& state) {
  const JavaHandler handler(environment(), kHandler);
  TarqDmrPlayerInterface& target = player();
  timeAgainstBaseline(
      state, [&] { bareCall(environment(), handler.object()); },
      [&] { benchmark::DoNotOptimize(target.Stop(0)); }, 100);
}
BENCHMARK(attachedThread)->UseRealTime();

// Every call attaches the thread to the VM and detaches it.
void foreignThread(benchmark::State& state) {
  TarqDmrPlayerInterface& target = player();
  std::thread([&] {
    for (auto _ : state) benchmark::DoNotOptimize(target.Stop(0));
  }).join();
}
BENCHMARK(foreignThread)->UseRealTime();

void longString(benchmark::State& state) {
  TarqDmrPlayerInterface& target = player();
  const std::string metadata(static_cast<size_t>(state.range(0)), 'm');
  for (auto _ : state)
    benchmark::DoNotOptimize(target.SetDataSource(0, "http://192.168.0.2/1", metadata.c_str(), "audio/mpeg"));
}
BENCHMARK(longString)->Arg(4096)->UseRealTime();

}  // namespace
