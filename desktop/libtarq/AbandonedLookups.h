#ifndef ABANDONED_LOOKUPS_H_
#define ABANDONED_LOOKUPS_H_

#include <array>
#include <chrono>
#include <cstddef>
#include <mutex>

// Bounds the name lookups that nobody waits for any more. Each of them goes on in a thread of its own, which
// nothing can end, until the name server has answered or the system's time limit is over.
// Threads: any.
class AbandonedLookups {
 public:
  AbandonedLookups() noexcept { times_.fill(Clock::time_point::min()); }

  void add() noexcept {
    const std::lock_guard lock(mutex_);
    times_[oldest_] = Clock::now();
    oldest_ = (oldest_ + 1) % kLimit;
  }
  // Whether so many were abandoned lately that no other may begin.
  bool areTooMany() noexcept {
    const std::lock_guard lock(mutex_);
    return times_[oldest_] > Clock::now() - kLately;
  }

 private:
  using Clock = std::chrono::steady_clock;
  static constexpr size_t kLimit = 32;
  static constexpr std::chrono::seconds kLately{60};

  std::mutex mutex_;
  std::array<Clock::time_point, kLimit> times_;
  size_t oldest_ = 0;
};

#endif  // ABANDONED_LOOKUPS_H_
