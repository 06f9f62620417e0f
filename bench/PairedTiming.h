#ifndef PAIRED_TIMING_H_
#define PAIRED_TIMING_H_

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

inline double median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

// Returns: microseconds for one run of `work`, the mean of `repeats`.
template <class Work>
double microsecondsOf(Work& work, int repeats) {
  const auto begin = std::chrono::steady_clock::now();
  for (int i = 0; i < repeats; ++i) work();
  return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - begin).count() /
         repeats;
}

// Times `baseline` and `work` alternately, so that a change in the machine's load affects both. Reports both
// medians in microseconds and their ratio. `repeats`: runs of each between two readings of the clock.
template <class Baseline, class Work>
void timeAgainstBaseline(benchmark::State& state, Baseline baseline, Work work, int repeats = 1) {
  std::vector<double> baselineTimes;
  std::vector<double> workTimes;
  for (auto _ : state) {
    baselineTimes.push_back(microsecondsOf(baseline, repeats));
    workTimes.push_back(microsecondsOf(work, repeats));
  }
  state.counters["baseline_us"] = median(baselineTimes);
  state.counters["measured_us"] = median(workTimes);
  state.counters["ratio"] = median(workTimes) / median(baselineTimes);
}

#endif  // PAIRED_TIMING_H_
