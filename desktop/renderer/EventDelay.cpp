#include "EventDelay.h"

struct TarqEventDelay {
  GObject parent;
};
struct TarqEventDelayClass {
  GObjectClass parent;
};

namespace {

constexpr guint kDelayMs = 50;

gchar** noProxy() {
  const gchar* const direct[] = {"direct://", nullptr};
  return g_strdupv(const_cast<gchar**>(direct));
}

void freeStrings(gpointer strings) { g_strfreev(static_cast<gchar**>(strings)); }

gboolean finish(gpointer task) {
  g_task_return_pointer(G_TASK(task), noProxy(), freeStrings);
  g_object_unref(task);
  return G_SOURCE_REMOVE;
}

gboolean isSupported(GProxyResolver*) { return TRUE; }

gchar** lookup(GProxyResolver*, const gchar*, GCancellable*, GError**) { return noProxy(); }

void lookupAsync(GProxyResolver* self, const gchar*, GCancellable* cancellable, GAsyncReadyCallback callback,
                 gpointer user) {
  g_timeout_add(kDelayMs, finish, g_task_new(self, cancellable, callback, user));
}

gchar** lookupFinish(GProxyResolver*, GAsyncResult* result, GError** error) {
  return static_cast<gchar**>(g_task_propagate_pointer(G_TASK(result), error));
}

void fillInterface(GProxyResolverInterface* table) {
  table->is_supported = isSupported;
  table->lookup = lookup;
  table->lookup_async = lookupAsync;
  table->lookup_finish = lookupFinish;
}

}  // namespace

G_DEFINE_TYPE_WITH_CODE(TarqEventDelay, tarq_event_delay, G_TYPE_OBJECT,
                        G_IMPLEMENT_INTERFACE(G_TYPE_PROXY_RESOLVER, fillInterface))

static void tarq_event_delay_class_init(TarqEventDelayClass*) {}

static void tarq_event_delay_init(TarqEventDelay*) {}

GProxyResolver* newEventDelay() {
  return G_PROXY_RESOLVER(g_object_new(tarq_event_delay_get_type(), nullptr));
}
