#include <android/log.h>
#include <benchmark/benchmark.h>

// Silent, because otherwise the log would be most of what is measured.
int main(int argc, char** argv) {
  __android_log_set_minimum_priority(ANDROID_LOG_SILENT);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
