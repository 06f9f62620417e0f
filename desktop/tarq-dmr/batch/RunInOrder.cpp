#include "RunInOrder.h"

#include <algorithm>
#include <atomic>
#include <system_error>
#include <thread>
#include <vector>

namespace {

// One call of runInOrder.
class OrderedRun {
 public:
  OrderedRun(size_t begin, size_t end, const NumberedStep& work, const NumberedStep& deliver)
      : work_(work), deliver_(deliver), end_(end), next_(begin), delivered_(begin), done_(end) {}
  ~OrderedRun() { next_ = end_; }  // after a failed delivery nobody waits for the rest

  void startHelpers(size_t count);
  void run();

 private:
  bool workOnce();
  void deliverDone();

  const NumberedStep& work_;
  const NumberedStep& deliver_;
  const size_t end_;
  std::atomic<size_t> next_;
  size_t delivered_;
  std::vector<std::atomic<bool>> done_;
  std::vector<std::jthread> helpers_;  // last: they use all of the above
};

void OrderedRun::startHelpers(size_t count) {
  try {
    for (; count > 0; --count) {
      helpers_.emplace_back([this] {
        while (workOnce()) {
        }
      });
    }
  } catch (const std::system_error&) {
    // The system allows no more threads: fewer do the same work.
  }
}

void OrderedRun::run() {
  while (workOnce()) deliverDone();
  helpers_.clear();  // waits for them
  deliverDone();
}

bool OrderedRun::workOnce() {
  const size_t number = next_++;
  if (number >= end_) return false;
  work_(number);
  done_[number] = true;
  return true;
}

void OrderedRun::deliverDone() {
  for (; delivered_ < end_ && done_[delivered_]; ++delivered_) deliver_(delivered_);
}

}  // namespace

void runInOrder(size_t begin, size_t end, int jobs, const NumberedStep& work, const NumberedStep& deliver) {
  if (begin == end) return;
  OrderedRun run(begin, end, work, deliver);
  run.startHelpers(std::min(static_cast<size_t>(jobs), end - begin) - 1);
  run.run();
}
