#ifndef BESIDE_H_
#define BESIDE_H_

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

// Times `work` and the `bare` work that it cannot do without in turn, so that both meet the machine in the
// same mood. Reports the medians in microseconds, and how many times the bare one the other takes. `block`:
// how often each is done between two looks at the clock.
template <class Bare, class Work>
void measureBeside(benchmark::State& state, Bare bare, Work work, int block = 1) {
  using Clock = std::chrono::steady_clock;
  std::vector<double> bareTimes;
  std::vector<double> workTimes;
  const auto time = [block](auto& what, std::vector<double>& times) {
    const Clock::time_point begin = Clock::now();
    for (int i = 0; i < block; ++i) what();
    times.push_back(std::chrono::duration<double, std::micro>(Clock::now() - begin).count() / block);
  };
  const auto median = [](std::vector<double>& times) {
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
  };
  for (auto _ : state) {
    time(bare, bareTimes);
    time(work, workTimes);
  }
  state.counters["bare_us"] = median(bareTimes);
  state.counters["work_us"] = median(workTimes);
  state.counters["times"] = median(workTimes) / median(bareTimes);
}

#endif  // BESIDE_H_
