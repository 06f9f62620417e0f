#ifndef TARQ_MAIN_LOOP_H_
#define TARQ_MAIN_LOOP_H_

#include <glib.h>

#include <chrono>
#include <functional>

// The loop in which GUPnP works. One exists in the process.
// Threads: `post` and `postAfter` from any; jobs run on the thread of `run`.
class MainLoop {
 public:
  using Job = std::function<void()>;

  MainLoop();
  ~MainLoop();
  MainLoop(const MainLoop&) = delete;
  MainLoop& operator=(const MainLoop&) = delete;

  void run();  // until SIGINT or SIGTERM
  void runFor(std::chrono::milliseconds time);
  void post(Job job) { postAfter(std::chrono::milliseconds(0), std::move(job)); }
  void postAfter(std::chrono::milliseconds delay, Job job);

 private:
  GMainLoop* const loop_;
};

#endif  // TARQ_MAIN_LOOP_H_
