#include "InterruptWatch.h"

#include <semaphore.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <utility>

namespace {

constexpr int kNone = 0;
constexpr time_t kPatienceSeconds = 1;

// For the signal handler; the semaphore is never destroyed, because a handler may run late.
std::atomic<int> lastSignal = kNone;
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler sets it");
sem_t wakeUps;  // one for each signal, and one for the end of the watch
std::atomic<bool> over = false;

void onSignal(int number) {
  const int savedErrno = errno;
  lastSignal = number;
  sem_post(&wakeUps);
  errno = savedErrno;
}

void waitForWakeUp() {
  while (sem_wait(&wakeUps) != 0) continue;  // it only fails when a signal interrupts it
}

void waitForWakeUp(time_t limitSeconds) {
  timespec limit{};
  clock_gettime(CLOCK_REALTIME, &limit);
  limit.tv_sec += limitSeconds;
  while (sem_timedwait(&wakeUps, &limit) != 0 && errno == EINTR) continue;
}

}  // namespace

InterruptWatch::InterruptWatch(std::function<void()> hurry) : hurry_(std::move(hurry)) {
  lastSignal = kNone;
  over = false;
  sem_init(&wakeUps, 0, 0);
  thread_ = std::thread([this] { watch(); });
  for (size_t i = 0; i < std::size(kSignals); ++i) {
    struct sigaction action {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART;
    sigaction(kSignals[i], nullptr, &previous_[i]);
    if (previous_[i].sa_handler != SIG_IGN) sigaction(kSignals[i], &action, nullptr);
  }
}

InterruptWatch::~InterruptWatch() {
  for (size_t i = 0; i < std::size(kSignals); ++i) sigaction(kSignals[i], &previous_[i], nullptr);
  over = true;
  sem_post(&wakeUps);
  thread_.join();
}

bool InterruptWatch::interrupted() const { return lastSignal != kNone; }

void InterruptWatch::watch() {
  waitForWakeUp();
  if (over) return;
  waitForWakeUp();
  if (over) return;
  hurry_();
  waitForWakeUp(kPatienceSeconds);
  if (over) return;
  std::puts("stopped");
  std::fflush(stdout);
  _exit(128 + lastSignal);
}
