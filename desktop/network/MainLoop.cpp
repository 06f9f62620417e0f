#include "MainLoop.h"

#include <android/log.h>
#include <glib-unix.h>

#include <csignal>

namespace {

gboolean quit(gpointer loop) {
  g_main_loop_quit(static_cast<GMainLoop*>(loop));
  return G_SOURCE_REMOVE;  // a second signal ends the program
}

gboolean runJob(gpointer job) {
  (*static_cast<MainLoop::Job*>(job))();
  return G_SOURCE_REMOVE;
}

// What GLib and GUPnP complain of goes where libtarq's log goes, and is shown by the same option.
void passOn(const gchar* domain, GLogLevelFlags level, const gchar* message, gpointer) {
  const bool isError = (level & (G_LOG_LEVEL_ERROR | G_LOG_LEVEL_CRITICAL)) != 0;
  const bool isWarning = (level & G_LOG_LEVEL_WARNING) != 0;
  const int priority = isError ? ANDROID_LOG_ERROR : isWarning ? ANDROID_LOG_WARN : ANDROID_LOG_DEBUG;
  __android_log_write(priority, domain, message);
}

}  // namespace

MainLoop::MainLoop() : loop_(g_main_loop_new(nullptr, FALSE)) { g_log_set_default_handler(passOn, nullptr); }

MainLoop::~MainLoop() { g_main_loop_unref(loop_); }

void MainLoop::run() {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction previous {};
    sigaction(signal, nullptr, &previous);
    if (previous.sa_handler != SIG_IGN) g_unix_signal_add(signal, quit, loop_);  // nohup
  }
  g_main_loop_run(loop_);
}

void MainLoop::runFor(std::chrono::milliseconds time) {
  postAfter(time, [this] { g_main_loop_quit(loop_); });
  g_main_loop_run(loop_);
}

void MainLoop::postAfter(std::chrono::milliseconds delay, Job job) {
  g_timeout_add_full(G_PRIORITY_DEFAULT, static_cast<guint>(delay.count()), runJob, new Job(std::move(job)),
                     [](gpointer done) { delete static_cast<Job*>(done); });
}
