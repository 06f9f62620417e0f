// `check --batch` of 20,000 items beside a program that only reads the same lines: CPU time, time and memory
// of whole processes, run in turn.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "BenchItems.h"

namespace {

constexpr int kItems = 20000;
constexpr int kRuns = 7;

struct Usage {
  double cpuSeconds;
  double seconds;
  long peakKib;
};

double seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
}

Usage run(std::vector<std::string> words) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const auto begin = std::chrono::steady_clock::now();
  const pid_t child = ::fork();
  if (child == 0) {
    ::dup2(::open("/dev/null", O_WRONLY), STDOUT_FILENO);
    ::execv(arguments[0], arguments.data());
    ::_exit(127);
  }
  int status = -1;
  rusage used{};
  if (::wait4(child, &status, 0, &used) != child || status != 0) {
    std::fprintf(stderr, "%s failed\n", arguments[0]);
    std::exit(1);
  }
  const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - begin;
  return {seconds(used.ru_utime) + seconds(used.ru_stime), elapsed.count(), used.ru_maxrss};
}

// Videos, music and photos with 1 to 14 `res` elements, for which no server is asked.
void writeItems(const std::string& path, int count) {
  std::ofstream file(path);
  for (int i = 0; i < count; ++i) {
    const BenchKind& kind = kBenchKinds[static_cast<size_t>(i) % std::size(kBenchKinds)];
    file << nlohmann::json{{"uri", "item" + std::to_string(i)}, {"metadata", benchItem(kind, 1 + i % 14)}}
         << '\n';
  }
}

struct Program {
  const char* name;
  std::vector<std::string> words;
  std::vector<Usage> runs;

  double median(double Usage::*value) const {
    std::vector<double> values;
    for (const Usage& each : runs) values.push_back(each.*value);
    std::ranges::nth_element(values, values.begin() + kRuns / 2);
    return values[kRuns / 2];
  }
};

}  // namespace

int main() {
  const auto folder = std::filesystem::temp_directory_path() / ("tarq-batch-" + std::to_string(::getpid()));
  std::filesystem::create_directory(folder);
  const std::string all = folder / "all";
  const std::string tenth = folder / "tenth";
  writeItems(all, kItems);
  writeItems(tenth, kItems / 10);

  const auto batch = [](const std::string& file, const char* jobs) {
    return std::vector<std::string>{TARQ_DMR_PATH, "check", "--batch", file, "--jobs", jobs};
  };
  Program programs[] = {{"reading alone", {BASELINE_PATH, all}, {}},
                        {"one job", batch(all, "1"), {}},
                        {"two jobs", batch(all, "2"), {}},
                        {"one job, a tenth", batch(tenth, "1"), {}}};
  for (int i = 0; i < kRuns; ++i) {
    for (Program& program : programs) program.runs.push_back(run(program.words));
  }
  std::filesystem::remove_all(folder);

  std::printf("%d items, medians of %d runs in turn\n%-18s %10s %10s %12s\n", kItems, kRuns, "", "CPU s",
              "elapsed s", "peak KiB");
  for (const Program& program : programs) {
    std::printf("%-18s %10.3f %10.3f %12ld\n", program.name, program.median(&Usage::cpuSeconds),
                program.median(&Usage::seconds), program.runs.back().peakKib);
  }
  std::printf("items per CPU second against reading alone: %.2f times; two jobs against one: %.2f times\n",
              programs[0].median(&Usage::cpuSeconds) / programs[1].median(&Usage::cpuSeconds),
              programs[1].median(&Usage::seconds) / programs[2].median(&Usage::seconds));
  return 0;
}
