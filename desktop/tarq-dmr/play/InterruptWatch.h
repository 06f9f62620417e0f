#ifndef TARQ_DMR_INTERRUPT_WATCH_H_
#define TARQ_DMR_INTERRUPT_WATCH_H_

#include <csignal>
#include <functional>
#include <iterator>
#include <thread>

// While it exists, SIGINT, SIGTERM and SIGHUP do not end the process: the first asks for a stop, the second calls
// `hurry`. If that does not help within a second, because something hangs, the process ends there, with the exit
// code 128 + the number of the signal. A signal that was ignored before (nohup) stays ignored.
// Threads: one watch at a time; `hurry` is called on a thread of its own.
class InterruptWatch {
 public:
  explicit InterruptWatch(std::function<void()> hurry);
  ~InterruptWatch();
  InterruptWatch(const InterruptWatch&) = delete;
  InterruptWatch& operator=(const InterruptWatch&) = delete;

  bool interrupted() const;

 private:
  static constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

  void watch();

  std::function<void()> hurry_;
  struct sigaction previous_[std::size(kSignals)];
  std::thread thread_;
};

#endif  // TARQ_DMR_INTERRUPT_WATCH_H_
