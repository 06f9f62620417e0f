#include "ServerSearch.h"

#include <libgupnp/gupnp.h>
#include <libxml/xmlerror.h>

#include <algorithm>
#include <map>
#include <memory>

#include "CommandError.h"
#include "HttpClient.h"
#include "MainLoop.h"
#include "NetworkInterface.h"

namespace {

constexpr int kUsualSeconds = 4;
constexpr const char* kMediaServer = "urn:schemas-upnp-org:device:MediaServer:1";

template <class Object>
struct Unref {
  void operator()(Object* object) const { g_object_unref(object); }
};
template <class Object>
using Owner = std::unique_ptr<Object, Unref<Object>>;

using ServersByUdn = std::map<std::string, MediaServer>;

std::string takeString(char* string) {
  const std::unique_ptr<char, void (*)(void*)> owner(string, g_free);
  return string == nullptr ? "" : string;
}

void found(GUPnPControlPoint*, GUPnPDeviceProxy* proxy, gpointer servers) {
  GUPnPDeviceInfo* const info = GUPNP_DEVICE_INFO(proxy);
  const char* const udn = gupnp_device_info_get_udn(info);
  const char* const url = gupnp_device_info_get_location(info);
  if (udn == nullptr || url == nullptr) return;
  (*static_cast<ServersByUdn*>(servers))[udn] = {takeString(gupnp_device_info_get_friendly_name(info)),
                                                 hostOf(url),
                                                 takeString(gupnp_device_info_get_model_name(info)), url};
}

Owner<GUPnPContext> newContext(const std::string& interfaceName) {
  const NetworkInterface interface =
      interfaceName.empty() ? findRoutedInterface() : findInterface(interfaceName);
  const Owner<GInetAddress> address(g_inet_address_new_from_string(interface.address.c_str()));
  GError* error = nullptr;
  Owner<GUPnPContext> context(
      gupnp_context_new_full(interface.name.c_str(), address.get(), 0, GSSDP_UDA_VERSION_1_0, &error));
  if (error == nullptr) return context;
  const std::string words = "cannot search on " + interface.name + ": " + error->message;
  g_error_free(error);
  throw CommandError(words);
}

// libxml2 would quote what is wrong with a description to the terminal.
void ignoreXmlError(void*, const char*, ...) {}

std::string lowerCase(std::string text) {
  std::ranges::transform(text, text.begin(), g_ascii_tolower);
  return text;
}

std::string namesOf(const std::vector<MediaServer>& servers) {
  std::string names;
  for (const MediaServer& server : servers) names += (names.empty() ? "" : ", ") + server.name;
  return names;
}

}  // namespace

std::vector<MediaServer> findServers(const std::string& interfaceName, int seconds) {
  xmlSetGenericErrorFunc(nullptr, ignoreXmlError);
  MainLoop loop;
  ServersByUdn byUdn;
  const Owner<GUPnPContext> context = newContext(interfaceName);
  const Owner<GUPnPControlPoint> search(gupnp_control_point_new(context.get(), kMediaServer));
  g_signal_connect(search.get(), "device-proxy-available", G_CALLBACK(found), &byUdn);
  gssdp_resource_browser_set_active(GSSDP_RESOURCE_BROWSER(search.get()), TRUE);
  loop.runFor(std::chrono::seconds(seconds));
  std::vector<MediaServer> servers;
  for (auto& [udn, server] : byUdn) servers.push_back(std::move(server));
  std::ranges::stable_sort(servers, {}, &MediaServer::name);
  return servers;
}

std::string findServer(const std::string& server, const std::string& interfaceName) {
  if (server.find("://") != server.npos) return server;
  const std::vector<MediaServer> all = findServers(interfaceName, kUsualSeconds);
  const std::string wanted = lowerCase(server);
  std::vector<MediaServer> named;
  std::vector<MediaServer> matching;
  for (const MediaServer& each : all) {
    const std::string name = lowerCase(each.name);
    if (name == wanted) named.push_back(each);
    if (name.find(wanted) != name.npos) matching.push_back(each);
  }
  if (named.size() == 1) return named.front().url;
  if (matching.size() == 1) return matching.front().url;
  if (matching.empty())
    throw CommandError("no media server has \"" + server + "\" in its name" +
                       (all.empty() ? ": none was found" : "; found: " + namesOf(all)));
  throw CommandError("more than one media server has \"" + server + "\" in its name: " + namesOf(matching));
}
