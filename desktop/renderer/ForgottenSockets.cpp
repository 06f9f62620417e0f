#include "ForgottenSockets.h"

namespace {

constexpr guint kIntervalS = 2;

}  // namespace

class ForgottenSockets::Watched {
 public:
  explicit Watched(GSocket* socket) { g_weak_ref_init(&socket_, socket); }
  ~Watched() { g_weak_ref_clear(&socket_); }
  Watched(const Watched&) = delete;
  Watched& operator=(const Watched&) = delete;

  // Returns: whether it is gone.
  bool release() {
    gpointer socket = g_weak_ref_get(&socket_);
    if (socket == nullptr) return true;
    const bool isHeld = G_OBJECT(socket)->ref_count > 2;  // one of them is that of this function
    const bool isForgotten = !isHeld && g_socket_is_closed(G_SOCKET(socket)) != FALSE;
    if (isForgotten) g_object_unref(socket);
    g_object_unref(socket);
    return isForgotten;
  }

 private:
  GWeakRef socket_;
};

ForgottenSockets::ForgottenSockets() : timer_(g_timeout_add_seconds(kIntervalS, release, this)) {}

ForgottenSockets::~ForgottenSockets() { g_source_remove(timer_); }

void ForgottenSockets::watch(GSocket* accepted) { watched_.emplace_back(accepted); }

gboolean ForgottenSockets::release(gpointer self) {
  static_cast<ForgottenSockets*>(self)->watched_.remove_if([](Watched& each) { return each.release(); });
  return G_SOURCE_CONTINUE;
}
