// `check --batch` of 20,000 items and the baseline that only reads the same lines: processor time, elapsed
// time and memory of whole processes, run alternately.
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
  double elapsedSeconds;
  long peakKib;
};

struct Program {
  const char* name;
  std::vector<std::string> commandLine;
  std::vector<Usage> runs;

  double median(double Usage::*value) const {
    std::vector<double> values;
    for (const Usage& each : runs) values.push_back(each.*value);
    std::ranges::nth_element(values, values.begin() + kRuns / 2);
    return values[kRuns / 2];
  }
};

double secondsOf(const timeval& time) {
  return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
}

// The strings stay the caller's; the null pointer at the end is what execv wants.
std::vector<char*> argumentsOf(std::vector<std::string>& commandLine) {
  std::vector<char*> arguments;
  for (std::string& argument : commandLine) arguments.push_back(argument.data());
  arguments.push_back(nullptr);
  return arguments;
}

// Returns: the process id; its standard output is discarded.
pid_t start(std::vector<std::string> commandLine) {
  const std::vector<char*> arguments = argumentsOf(commandLine);
  const pid_t child = ::fork();
  if (child != 0) return child;
  ::dup2(::open("/dev/null", O_WRONLY), STDOUT_FILENO);
  ::execv(arguments[0], arguments.data());
  ::_exit(127);
}

Usage run(const Program& program) {
  const auto begin = std::chrono::steady_clock::now();
  const pid_t child = start(program.commandLine);
  int status = -1;
  rusage used{};
  if (::wait4(child, &status, 0, &used) != child || status != 0) {
    std::fprintf(stderr, "%s failed\n", program.name);
    std::exit(1);
  }
  const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - begin;
  return {secondsOf(used.ru_utime) + secondsOf(used.ru_stime), elapsed.count(), used.ru_maxrss};
}

// Videos, music and photos with 1 to 14 `res` elements, for which no server is asked.
std::string writeItems(const std::filesystem::path& path, int count) {
  std::ofstream file(path);
  for (int i = 0; i < count; ++i) {
    const BenchKind& kind = kBenchKinds[static_cast<size_t>(i) % std::size(kBenchKinds)];
    file << nlohmann::json{{"uri", "item" + std::to_string(i)}, {"metadata", benchItem(kind, 1 + i % 14)}}
         << '\n';
  }
  return path;
}

std::vector<std::string> batch(const std::string& file, const char* jobs) {
  return {TARQ_DMR_PATH, "check", "--batch", file, "--jobs", jobs};
}

void print(const Program& program) {
  std::printf("%-18s %10.3f %10.3f %12ld\n", program.name, program.median(&Usage::cpuSeconds),
              program.median(&Usage::elapsedSeconds), program.runs.back().peakKib);
}

}  // namespace

int main() {
  const auto folder = std::filesystem::temp_directory_path() / ("tarq-batch-" + std::to_string(::getpid()));
  std::filesystem::create_directory(folder);
  const std::string all = writeItems(folder / "all", kItems);
  const std::string tenth = writeItems(folder / "tenth", kItems / 10);

  Program programs[] = {{"baseline", {BASELINE_PATH, all}, {}},
                        {"one job", batch(all, "1"), {}},
                        {"two jobs", batch(all, "2"), {}},
                        {"one job, a tenth", batch(tenth, "1"), {}}};
  for (int i = 0; i < kRuns; ++i) {
    for (Program& program : programs) program.runs.push_back(run(program));
  }
  std::filesystem::remove_all(folder);

  std::printf("%d items, medians of %d alternate runs\n%-18s %10s %10s %12s\n", kItems, kRuns, "", "CPU s",
              "elapsed s", "peak KiB");
  for (const Program& program : programs) print(program);
  std::printf("items per CPU second, one job to baseline: %.2f; elapsed, one job to two: %.2f\n",
              programs[0].median(&Usage::cpuSeconds) / programs[1].median(&Usage::cpuSeconds),
              programs[1].median(&Usage::elapsedSeconds) / programs[2].median(&Usage::elapsedSeconds));
  return 0;
}
