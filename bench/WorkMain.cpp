// Repeats one kind of work a given number of times, for a profiler or an instruction counter. The difference
// between two repetition counts is the cost of the work alone, without the start of the program.
#include <android/log.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "AvChoice.h"
#include "BareWalk.h"
#include "BenchItems.h"
#include "Checker.h"
#include "WholeCheck.h"

namespace {

const char* sinkProtocolInfo() {
  return TarqDmrPluginManager::GetInstance()->GetParams()->GetSinkProtocolInfo();
}

size_t work(std::string_view what, const std::string& item) {
  if (what == "check") return static_cast<size_t>(wholeCheck(item));
  if (what == "walk") return bareWalk(item);
  static const std::string sink = sinkProtocolInfo();
  return what == "av" ? avChoice(item, sink.c_str()) : static_cast<size_t>(*sinkProtocolInfo());
}

}  // namespace

int main(int argc, char** argv) {
  const auto* kind = argc == 5 ? std::ranges::find(kBenchKinds, argv[2], &BenchKind::name) : nullptr;
  if (kind == nullptr || kind == std::end(kBenchKinds)) {
    std::fputs("usage: tarq-work check|walk|av|sink video|music|photo RES_COUNT REPETITIONS\n", stderr);
    return 2;
  }
  newChecker(2);
  __android_log_set_minimum_priority(ANDROID_LOG_SILENT);
  const std::string item = benchItem(*kind, std::atoi(argv[3]));
  size_t sum = 0;
  for (long i = std::atol(argv[4]); i > 0; --i) sum += work(argv[1], item);
  std::printf("%zu\n", sum);
  return 0;
}
