#include "OrderedWorkers.h"

#include <algorithm>
#include <system_error>
#include <utility>

OrderedWorkers::OrderedWorkers(int threads, size_t capacity, Step work, Step deliver)
    : work_(std::move(work)), deliver_(std::move(deliver)), done_(capacity) {
  try {
    for (int i = 1; i < threads; ++i) helpers_.emplace_back([this] { help(); });
  } catch (const std::system_error&) {
    // The system allows no more threads: fewer do the same work.
  }
}

OrderedWorkers::~OrderedWorkers() {
  next_ = end_;  // after a failed delivery nobody waits for the rest
  {
    const std::lock_guard lock(mutex_);
    stop_ = true;
  }
  called_.notify_all();
  for (std::thread& helper : helpers_) helper.join();
}

void OrderedWorkers::run(size_t begin, size_t end) {
  for (size_t i = begin; i < end; ++i) done_[i] = false;
  next_ = delivered_ = begin;
  end_ = end;
  callHelpers(std::min(helpers_.size(), end - begin - 1));
  while (workOnce()) deliverDone();
  awaitHelpers();
  deliverDone();
}

bool OrderedWorkers::workOnce() {
  const size_t number = next_++;
  if (number >= end_) return false;
  work_(number);
  done_[number] = true;
  return true;
}

void OrderedWorkers::deliverDone() {
  for (; delivered_ < end_ && done_[delivered_]; ++delivered_) deliver_(delivered_);
}

void OrderedWorkers::callHelpers(size_t count) {
  if (count == 0) return;
  {
    const std::lock_guard lock(mutex_);
    wanted_ = busy_ = count;
  }
  for (size_t i = 0; i < count; ++i) called_.notify_one();
}

void OrderedWorkers::awaitHelpers() {
  std::unique_lock lock(mutex_);
  busy_ -= std::exchange(wanted_, 0);  // those that have not begun would find nothing to do
  idle_.wait(lock, [this] { return busy_ == 0; });
}

void OrderedWorkers::help() {
  std::unique_lock lock(mutex_);
  for (;;) {
    called_.wait(lock, [this] { return wanted_ > 0 || stop_; });
    if (stop_) return;
    --wanted_;
    lock.unlock();
    while (workOnce()) {
    }
    lock.lock();
    if (--busy_ == 0) idle_.notify_one();
  }
}
