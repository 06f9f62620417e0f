// One piece of work, done a given number of times: what a profiler or an instruction counter is pointed at.
// The difference of two repetition counts is the cost of the work alone.
#include <android/log.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "BareWalk.h"
#include "BenchItems.h"
#include "Checker.h"

namespace {

size_t check(const std::string& metadata) {
  const auto checker = std::unique_ptr<TarqResourceCheckerInterface>(
      TarqDmrPluginManager::GetInstance()->GetParams()->CreateResourceChecker());
  // No URL: what is chosen is not asked for, and the texts are not searched for a quick acceptance.
  if (checker->CheckResource("item", metadata.c_str()) != 0) std::abort();
  return static_cast<size_t>(checker->GetResource()->resIndex);
}

size_t sinkText() {
  return static_cast<size_t>(*TarqDmrPluginManager::GetInstance()->GetParams()->GetSinkProtocolInfo());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) {
    std::fputs("usage: tarq-work check|walk|sink video|music|photo COUNT REPETITIONS\n", stderr);
    return 2;
  }
  const std::string_view what = argv[1];
  const int count = std::atoi(argv[3]);
  const long repetitions = std::atol(argv[4]);
  newChecker(2);
  __android_log_set_minimum_priority(ANDROID_LOG_SILENT);
  for (const BenchKind& kind : kBenchKinds) {
    if (kind.name != argv[2]) continue;
    const std::string item = benchItem(kind, count);
    size_t seen = 0;
    for (long i = 0; i < repetitions; ++i) {
      seen += what == "check" ? check(item) : what == "walk" ? bareWalk(item) : sinkText();
    }
    std::printf("%zu\n", seen);
  }
  return 0;
}
