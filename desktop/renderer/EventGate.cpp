#include "EventGate.h"

#include <chrono>
#include <map>

namespace {

using Clock = std::chrono::steady_clock;
using Closed = std::map<std::string, Clock::time_point>;  // until when, by place

constexpr guint kDelayMs = 50;
constexpr auto kClosedFor = std::chrono::seconds(4);

}  // namespace

struct TarqEventGate {
  GObject parent;
  Closed* closed;
};
struct TarqEventGateClass {
  GObjectClass parent;
};

namespace {

Closed& closedOf(gpointer gate) { return *static_cast<TarqEventGate*>(gate)->closed; }

std::string placeOf(GUri* uri) {
  return std::string(g_uri_get_host(uri)) + ":" + std::to_string(g_uri_get_port(uri));
}

bool isClosed(GProxyResolver* gate, const gchar* text) {
  GUri* uri = g_uri_parse(text, G_URI_FLAGS_NONE, nullptr);
  if (uri == nullptr) return false;
  Closed& closed = closedOf(gate);
  std::erase_if(closed, [](const auto& each) { return each.second < Clock::now(); });
  const bool found = closed.contains(placeOf(uri));
  g_uri_unref(uri);
  return found;
}

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

void lookupAsync(GProxyResolver* self, const gchar* uri, GCancellable* cancellable,
                 GAsyncReadyCallback callback, gpointer user) {
  GTask* task = g_task_new(self, cancellable, callback, user);
  if (!isClosed(self, uri)) {
    g_timeout_add(kDelayMs, finish, task);
    return;
  }
  g_task_return_new_error(task, G_IO_ERROR, G_IO_ERROR_BUSY, "%s did not take the last event", uri);
  g_object_unref(task);
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

G_DEFINE_TYPE_WITH_CODE(TarqEventGate, tarq_event_gate, G_TYPE_OBJECT,
                        G_IMPLEMENT_INTERFACE(G_TYPE_PROXY_RESOLVER, fillInterface))

static void tarq_event_gate_finalize(GObject* object) {
  delete &closedOf(object);
  G_OBJECT_CLASS(tarq_event_gate_parent_class)->finalize(object);
}

static void tarq_event_gate_class_init(TarqEventGateClass* table) {
  G_OBJECT_CLASS(table)->finalize = tarq_event_gate_finalize;
}

static void tarq_event_gate_init(TarqEventGate* gate) { gate->closed = new Closed; }

EventGate::EventGate() : resolver_(G_PROXY_RESOLVER(g_object_new(tarq_event_gate_get_type(), nullptr))) {}

EventGate::~EventGate() { g_object_unref(resolver_); }

void EventGate::closeFor(GUri* subscriber) {
  closedOf(resolver_).emplace(placeOf(subscriber), Clock::now() + kClosedFor);
}

void EventGate::openFor(GUri* subscriber) { closedOf(resolver_).erase(placeOf(subscriber)); }
