#include "SignalThread.h"

#include <system_error>
#include <utility>

SignalThread::SignalThread(Step onSignal) : onSignal_(std::move(onSignal)) {
  sigemptyset(&signals_);
  sigaddset(&signals_, SIGINT);
  sigaddset(&signals_, SIGTERM);
  ::pthread_sigmask(SIG_BLOCK, &signals_, &previous_);
  try {
    thread_ = std::thread([this] { wait(); });
  } catch (const std::system_error&) {
    ::pthread_sigmask(SIG_SETMASK, &previous_, nullptr);
  }
}

SignalThread::~SignalThread() {
  if (!thread_.joinable()) return;
  stop_ = true;
  ::pthread_kill(thread_.native_handle(), SIGINT);
  thread_.join();
  ::pthread_sigmask(SIG_SETMASK, &previous_, nullptr);
}

void SignalThread::wait() {
  int signal = 0;
  ::sigwait(&signals_, &signal);
  if (stop_) return;
  ::pthread_sigmask(SIG_UNBLOCK, &signals_, nullptr);
  onSignal_(signal);
}
