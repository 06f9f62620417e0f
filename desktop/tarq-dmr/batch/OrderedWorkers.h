#ifndef TARQ_DMR_ORDERED_WORKERS_H_
#define TARQ_DMR_ORDERED_WORKERS_H_

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

// Does numbered work on several threads and delivers the results in the order of the numbers. The
// threads stay from one run to the next: on a busy machine a new thread may not start before its work
// is done by others.
// Threads: `run` on the thread that made the object, which does its share of the work.
class OrderedWorkers {
 public:
  using Step = std::function<void(size_t number)>;

  // `work` runs on any thread and must not throw; `deliver` runs on the caller's. Numbers
  // are below `capacity`.
  OrderedWorkers(int threads, size_t capacity, Step work, Step deliver);
  ~OrderedWorkers();
  OrderedWorkers(const OrderedWorkers&) = delete;
  OrderedWorkers& operator=(const OrderedWorkers&) = delete;

  // Runs every number in [begin, end), which is not empty. Returns when all are delivered.
  // Errors: what `deliver` throws; the object can only be destroyed then.
  void run(size_t begin, size_t end);

 private:
  void help();
  bool workOnce();
  void deliverDone();
  void callHelpers(size_t count);
  void awaitHelpers();

  const Step work_;
  const Step deliver_;
  std::vector<std::atomic<bool>> done_;
  std::atomic<size_t> next_{0};
  size_t end_ = 0;
  size_t delivered_ = 0;

  std::mutex mutex_;  // guards `wanted_`, `busy_` and `stop_`
  std::condition_variable called_;
  std::condition_variable idle_;
  size_t wanted_ = 0;  // helpers called that have not begun
  size_t busy_ = 0;    // helpers called that have not ended
  bool stop_ = false;

  std::vector<std::thread> helpers_;
};

#endif  // TARQ_DMR_ORDERED_WORKERS_H_
