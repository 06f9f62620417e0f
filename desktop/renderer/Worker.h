#ifndef TARQ_WORKER_H_
#define TARQ_WORKER_H_

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

// A thread that runs jobs one after the other, in the order in which they came.
// Threads: any for `post`.
class Worker {
 public:
  using Job = std::function<void()>;

  // `idle` is called on the thread a few times a second, also between jobs.
  explicit Worker(Job idle = {});
  ~Worker();  // runs what was posted, then ends
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

  void post(Job job);

 private:
  using Clock = std::chrono::steady_clock;

  void run(const std::stop_token& end);
  // Waits for a job.
  // Returns: none when it has to end; an empty job when it is time for the idle one.
  std::optional<Job> next(const std::stop_token& end, Clock::time_point nextIdle);

  const Job idle_;
  std::mutex mutex_;
  std::condition_variable_any posted_;
  std::deque<Job> jobs_;  // under mutex_
  std::jthread thread_;
};

#endif  // TARQ_WORKER_H_
