#ifndef TARQ_DMR_ORDERED_WORKERS_H_
#define TARQ_DMR_ORDERED_WORKERS_H_

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

// Does numbered pieces of work on several threads and hands them over in the order of their numbers.
// Threads: `run` from the thread that made the object, which does its share of the work.
class OrderedWorkers {
 public:
  using Step = std::function<void(size_t number)>;

  // `work` is called on any thread, also at once, and must not throw; `deliver` on the caller's thread.
  // `capacity`: no number reaches it.
  OrderedWorkers(int threads, size_t capacity, Step work, Step deliver);
  ~OrderedWorkers();
  OrderedWorkers(const OrderedWorkers&) = delete;
  OrderedWorkers& operator=(const OrderedWorkers&) = delete;

  // Works off the numbers from `begin` to before `end`. Returns when all are delivered.
  void run(size_t begin, size_t end);

 private:
  void help();
  bool workOne();
  void callHelpers(size_t count);
  void awaitHelpers();

  const Step work_;
  const Step deliver_;
  std::vector<std::atomic<bool>> done_;
  std::atomic<size_t> next_{0};
  size_t end_ = 0;

  std::mutex mutex_;  // guards what follows
  std::condition_variable called_;
  std::condition_variable idle_;
  size_t wanted_ = 0;  // helpers called that have not begun
  size_t busy_ = 0;    // helpers called that have not ended
  bool stop_ = false;

  std::vector<std::thread> helpers_;
};

#endif  // TARQ_DMR_ORDERED_WORKERS_H_
