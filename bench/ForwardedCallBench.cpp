// What one forwarded call costs beside the JNI work that it cannot do without.
#include <benchmark/benchmark.h>

#include <thread>

#include "Beside.h"
#include "JavaHandler.h"
#include "JavaVm.h"
#include "LoadedPlugin.h"

namespace {

constexpr const char* kHandler = "com.orsa.tarq.dlna.TarqRendererHandler";

JNIEnv& environment() {
  static const JavaVm vm({RENDERER_JAR});
  return vm.env();
}

TarqDmrPlayerInterface& player() {
  static TarqDmrPlayerInterface* const registered = [] {
    auto* made = LoadedPlugin::instance().symbol<TarqDmrPlayerInterface*()>("GetPlayer")();
    made->AddCb(&environment(), JavaHandler(environment(), kHandler).object());
    return made;
  }();
  return *registered;
}

void forwardedCall(benchmark::State& state) {
  JNIEnv& env = environment();
  const JavaHandler handler(env, kHandler);
  const auto bareCall = [&] {
    const jclass handlerClass = env.GetObjectClass(handler.object());
    const jmethodID method = env.GetMethodID(handlerClass, "stop", "(I)I");
    benchmark::DoNotOptimize(env.CallIntMethod(handler.object(), method, jint{0}));
    env.DeleteLocalRef(handlerClass);
  };
  TarqDmrPlayerInterface& target = player();
  measureBeside(
      state, bareCall, [&] { benchmark::DoNotOptimize(target.Stop(0)); }, 100);
}
BENCHMARK(forwardedCall)->UseRealTime();

// Attaches and detaches the thread for every call.
void foreignCall(benchmark::State& state) {
  TarqDmrPlayerInterface& target = player();
  std::thread([&] {
    for (auto _ : state) benchmark::DoNotOptimize(target.Stop(0));
  }).join();
}
BENCHMARK(foreignCall)->UseRealTime();

void textCall(benchmark::State& state) {
  TarqDmrPlayerInterface& target = player();
  const std::string metadata(static_cast<size_t>(state.range(0)), 'm');
  for (auto _ : state)
    benchmark::DoNotOptimize(target.SetDataSource(0, "http://192.168.0.2/1", metadata.c_str(), "audio/mpeg"));
}
BENCHMARK(textCall)->Arg(4096)->UseRealTime();

}  // namespace
