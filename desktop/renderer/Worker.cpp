#include "Worker.h"

#include <utility>

namespace {

constexpr auto kIdleInterval = std::chrono::milliseconds(250);

}  // namespace

Worker::Worker(Job idle)
    : idle_(std::move(idle)), thread_([this](const std::stop_token& end) { run(end); }) {}

Worker::~Worker() {
  thread_.request_stop();
  thread_.join();
}

void Worker::post(Job job) {
  {
    const std::lock_guard lock(mutex_);
    jobs_.push_back(std::move(job));
  }
  posted_.notify_one();
}

void Worker::run(const std::stop_token& end) {
  Clock::time_point nextIdle = Clock::now() + kIdleInterval;
  while (const std::optional<Job> job = next(end, nextIdle)) {
    if (*job) (*job)();
    if (Clock::now() < nextIdle) continue;
    if (idle_) idle_();
    nextIdle = Clock::now() + kIdleInterval;
  }
}

std::optional<Worker::Job> Worker::next(const std::stop_token& end, Clock::time_point nextIdle) {
  std::unique_lock lock(mutex_);
  posted_.wait_until(lock, end, nextIdle, [this] { return !jobs_.empty(); });
  if (jobs_.empty()) return end.stop_requested() ? std::nullopt : std::optional(Job());
  Job job = std::move(jobs_.front());
  jobs_.pop_front();
  return job;
}
