#include "UpnpDevice.h"

#include <libgupnp/gupnp.h>

#include <string_view>

#include "AccessAcl.h"
#include "CommandError.h"
#include "HttpGuard.h"
#include "Page.h"

namespace {

template <class Object>
struct Unref {
  void operator()(Object* object) const { g_object_unref(object); }
};
template <class Object>
using Owner = std::unique_ptr<Object, Unref<Object>>;

// Source: UPnP Device Architecture 1.0, 3.2.1: "urn:...:service:NAME:1#Action".
bool isForService(GUPnPServiceAction* action, const Service& service) {
  const Owner<SoupServerMessage> message(gupnp_service_action_get_message(action));
  SoupMessageHeaders* headers = soup_server_message_get_request_headers(message.get());
  const char* header = soup_message_headers_get_one(headers, "SOAPACTION");
  std::string_view name = header == nullptr ? "" : header;
  if (name.starts_with('"')) name.remove_prefix(1);
  return name.substr(0, name.find('#')) == service.type();  // GUPnP has cut the header there
}

// Returns: none when the action has no such argument.
std::optional<std::string> inputString(GUPnPServiceAction* action, const char* name) {
  GValue value = G_VALUE_INIT;
  g_value_init(&value, G_TYPE_STRING);
  gupnp_service_action_get_value(action, name, &value);
  const char* string = g_value_get_string(&value);
  auto copy = string == nullptr ? std::nullopt : std::optional<std::string>(string);
  g_value_unset(&value);
  return copy;
}

void readInputs(GUPnPServiceAction* from, ActionCall& call) {
  const auto inputs = call.action().inputs();
  if (gupnp_service_action_get_argument_count(from) != inputs.size()) throw ActionError{402};
  for (const Argument& input : inputs) {
    const std::optional<std::string> value = inputString(from, input.name);
    if (!value) throw ActionError{402};
    call.setInput(input, *value);
  }
}

void setString(GUPnPServiceAction* action, const char* name, const std::string& string) {
  GValue value = G_VALUE_INIT;
  g_value_init(&value, G_TYPE_STRING);
  g_value_set_string(&value, string.c_str());
  gupnp_service_action_set_value(action, name, &value);
  g_value_unset(&value);
}

void sendAnswer(GUPnPServiceAction* action, const PendingAction& pending) {
  const ActionCall& call = pending.call;
  if (pending.error) {
    const auto code = static_cast<guint>(pending.error->code);
    return gupnp_service_action_return_error(action, code, errorWords(pending).c_str());
  }
  for (const Argument& output : call.action().outputs())
    setString(action, output.name, call.output(output.name));
  gupnp_service_action_return_success(action);
}

void fillCaller(GUPnPServiceAction* action, PendingAction& pending) {
  const Owner<SoupServerMessage> message(gupnp_service_action_get_message(action));
  const char* host = soup_server_message_get_remote_host(message.get());
  const char* agent =
      soup_message_headers_get_one(soup_server_message_get_request_headers(message.get()), "User-Agent");
  if (host != nullptr) pending.address = host;
  if (agent != nullptr) pending.agent = agent;
}

}  // namespace

std::string errorWords(const PendingAction& refused) {
  const ActionError& error = *refused.error;
  return error.words.empty() ? describeUpnpError(refused.call.service(), error.code) : error.words;
}

struct UpnpDevice::Parts {
  // What GUPnP's signals carry. `action`: null for what concerns a whole service.
  struct Target {
    UpnpDeviceOwner& owner;
    const Service& service;
    const Action* action;
  };
  struct ServiceObject {
    const Service* service;
    Owner<GUPnPService> object;
  };

  explicit Parts(UpnpDeviceOwner& deviceOwner) : owner(deviceOwner) {}

  void connect(const Service& service);
  gpointer newTarget(const Service& service, const Action* action);
  static void invoked(GUPnPService*, GUPnPServiceAction* action, gpointer user);
  static void queried(GUPnPService*, const char* variable, GValue* value, gpointer user);

  UpnpDeviceOwner& owner;
  Owner<GUPnPContext> context;
  std::unique_ptr<HttpGuard> guard;
  std::unique_ptr<Page> page;
  std::vector<std::unique_ptr<Target>> targets;
  std::vector<ServiceObject> services;
  Owner<GUPnPRootDevice> device;  // gone first: it says goodbye
};

// GUPnP answers an action that has no handler of its own with 401.
void UpnpDevice::Parts::connect(const Service& service) {
  GUPnPServiceInfo* found =
      gupnp_device_info_get_service(GUPNP_DEVICE_INFO(device.get()), service.type().c_str());
  services.push_back({&service, Owner<GUPnPService>(GUPNP_SERVICE(found))});
  for (const Action& action : service.actions) {
    const std::string signal = std::string("action-invoked::") + action.name;
    g_signal_connect(found, signal.c_str(), G_CALLBACK(invoked), newTarget(service, &action));
  }
  g_signal_connect(found, "query-variable", G_CALLBACK(queried), newTarget(service, nullptr));
}

gpointer UpnpDevice::Parts::newTarget(const Service& service, const Action* action) {
  targets.push_back(std::unique_ptr<Target>(new Target{owner, service, action}));
  return targets.back().get();
}

void UpnpDevice::Parts::invoked(GUPnPService*, GUPnPServiceAction* action, gpointer user) {
  const auto& [owner, service, row] = *static_cast<Target*>(user);
  auto pending = std::make_unique<PendingAction>(service, *row);
  pending->send = [action](const PendingAction& done) { sendAnswer(action, done); };
  fillCaller(action, *pending);
  try {
    if (!isForService(action, service)) throw ActionError{401};
    readInputs(action, pending->call);
  } catch (const ActionError& error) {
    pending->error = error;
    pending->send(*pending);
    return owner.refused(*pending);
  }
  owner.act(std::move(pending));
}

void UpnpDevice::Parts::queried(GUPnPService*, const char* variable, GValue* value, gpointer user) {
  const auto target = static_cast<Target*>(user);
  g_value_init(value, G_TYPE_STRING);
  g_value_set_string(value, target->owner.eventedValue(target->service, variable).c_str());
}

UpnpDevice::UpnpDevice(const NetworkInterface& interface, int port, const std::string& folder,
                       AccessLists& access, UpnpDeviceOwner& owner)
    : parts_(std::make_unique<Parts>(owner)) {
  GError* error = nullptr;
  const auto check = [&error](const std::string& what) {
    if (error == nullptr) return;
    const std::string words = what + ": " + error->message;
    g_error_free(error);
    throw CommandError(words);
  };
  const std::string place = interface.address + ":" + std::to_string(port);
  const Owner<GInetAddress> address(g_inet_address_new_from_string(interface.address.c_str()));
  parts_->context.reset(gupnp_context_new_full(interface.name.c_str(), address.get(),
                                               static_cast<guint16>(port), GSSDP_UDA_VERSION_1_0, &error));
  check("cannot be a renderer at " + place);
  const Owner<GUPnPAcl> acl(newAccessAcl(access));
  gupnp_context_set_acl(parts_->context.get(), acl.get());
  parts_->guard = std::make_unique<HttpGuard>(gupnp_context_get_server(parts_->context.get()), place);
  parts_->page = std::make_unique<Page>(parts_->context.get(),
                                        [&owner](int64_t after) { return owner.pageData(after); });
  parts_->device.reset(gupnp_root_device_new(parts_->context.get(), "device.xml", folder.c_str(), &error));
  check("cannot offer the renderer's description");
  for (const Service* service : kServices) parts_->connect(*service);
}

UpnpDevice::~UpnpDevice() = default;

void UpnpDevice::announce() { gupnp_root_device_set_available(parts_->device.get(), TRUE); }

void UpnpDevice::notify(const Service& service, const std::string& variable, const std::string& value) {
  for (const auto& each : parts_->services) {
    if (each.service != &service) continue;
    gupnp_service_notify(each.object.get(), variable.c_str(), G_TYPE_STRING, value.c_str(), nullptr);
  }
}

std::string UpnpDevice::descriptionUrl() const {
  return gupnp_device_info_get_location(GUPNP_DEVICE_INFO(parts_->device.get()));
}
