#ifndef TARQ_FORGOTTEN_SOCKETS_H_
#define TARQ_FORGOTTEN_SOCKETS_H_

#include <gio/gio.h>

#include <list>

// libsoup 3.2 forgets a reference of each socket that it accepts: 100 MiB a day with a control point that asks for the
// position four times a second. This releases them. A socket that is not forgotten, as by a later libsoup, is gone
// before this looks.
// Threads: the main loop's.
class ForgottenSockets {
 public:
  ForgottenSockets();
  ~ForgottenSockets();
  ForgottenSockets(const ForgottenSockets&) = delete;
  ForgottenSockets& operator=(const ForgottenSockets&) = delete;

  void watch(GSocket* accepted);

 private:
  class Watched;

  static gboolean release(gpointer self);

  std::list<Watched> watched_;
  const guint timer_;
};

#endif  // TARQ_FORGOTTEN_SOCKETS_H_
