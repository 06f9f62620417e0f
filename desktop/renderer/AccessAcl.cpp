#include "AccessAcl.h"

#include <fstream>
#include <memory>
#include <sstream>

struct TarqAcl {
  GObject parent;
  AccessLists* access;
};
struct TarqAclClass {
  GObjectClass parent;
};

namespace {

struct Question {
  AccessLists& access;
  AccessDevice device;
};

std::string text(const char* string) { return string == nullptr ? "" : string; }

// Returns: the hardware address of a neighbour that this machine has spoken to; otherwise the empty string.
std::string macOf(const std::string& address) {
  std::ifstream table("/proc/net/arp");
  std::string line;
  while (std::getline(table, line)) {
    std::istringstream fields(line);
    std::string ip;
    std::string type;
    std::string flags;
    std::string mac;
    if (fields >> ip >> type >> flags >> mac && ip == address) return mac;
  }
  return {};
}

void ask(GTask* task, gpointer, gpointer data, GCancellable*) {
  const auto question = static_cast<Question*>(data);
  question->device.mac = macOf(question->device.address);
  g_task_return_boolean(task, question->access.isAllowed(question->device));
}

void isAllowedAsync(GUPnPAcl* self, GUPnPDevice*, GUPnPService*, const char* path, const char* address,
                    const char* agent, GCancellable* cancellable, GAsyncReadyCallback callback,
                    gpointer user) {
  const auto acl = reinterpret_cast<TarqAcl*>(self);
  const auto question = new Question{*acl->access, {text(address), text(agent), text(path), {}}};
  GTask* task = g_task_new(self, cancellable, callback, user);
  g_task_set_task_data(task, question, [](gpointer data) { delete static_cast<Question*>(data); });
  const std::optional<bool> known = acl->access->known(question->device.address);
  known ? g_task_return_boolean(task, *known) : g_task_run_in_thread(task, ask);
  g_object_unref(task);
}

gboolean isAllowedFinish(GUPnPAcl*, GAsyncResult* result, GError** error) {
  return g_task_propagate_boolean(G_TASK(result), error);
}

// FALSE makes GUPnP ask asynchronously, whatever its documentation says.
gboolean canSync(GUPnPAcl*) { return FALSE; }

gboolean isAllowed(GUPnPAcl*, GUPnPDevice*, GUPnPService*, const char*, const char*, const char*) {
  return FALSE;
}

void fillInterface(GUPnPAclInterface* table) {
  table->is_allowed = isAllowed;
  table->is_allowed_async = isAllowedAsync;
  table->is_allowed_finish = isAllowedFinish;
  table->can_sync = canSync;
}

}  // namespace

G_DEFINE_TYPE_WITH_CODE(TarqAcl, tarq_acl, G_TYPE_OBJECT,
                        G_IMPLEMENT_INTERFACE(GUPNP_TYPE_ACL, fillInterface))

static void tarq_acl_class_init(TarqAclClass*) {}

static void tarq_acl_init(TarqAcl*) {}

GUPnPAcl* newAccessAcl(AccessLists& access) {
  const auto acl = static_cast<TarqAcl*>(g_object_new(tarq_acl_get_type(), nullptr));
  acl->access = &access;
  return GUPNP_ACL(acl);
}
