#ifndef TARQ_DMR_SIGNAL_THREAD_H_
#define TARQ_DMR_SIGNAL_THREAD_H_

#include <atomic>
#include <csignal>
#include <functional>
#include <thread>

// Waits for SIGINT and SIGTERM on a thread of its own, so that the first one takes effect at once although the others
// wait for input or a server. A second one ends the process, whatever it does.
// Threads: those that start while the object lives do not take the signals.
// Errors: without a thread the signals end the process as usual.
class SignalThread {
 public:
  using Step = std::function<void(int signal)>;

  explicit SignalThread(Step onSignal);
  ~SignalThread();
  SignalThread(const SignalThread&) = delete;
  SignalThread& operator=(const SignalThread&) = delete;

 private:
  void wait();

  const Step onSignal_;
  sigset_t signals_;
  sigset_t previous_;
  std::atomic<bool> stop_{false};
  std::thread thread_;
};

#endif  // TARQ_DMR_SIGNAL_THREAD_H_
