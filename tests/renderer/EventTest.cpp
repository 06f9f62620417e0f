// What is announced, and what subscribers are told.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libgupnp/gupnp.h>

#include <set>

#include "ControlPoint.h"
#include "TestRows.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class Subscriber {
 public:
  explicit Subscriber(const std::string& service)
      : server_([this](RawHttpServer::Connection& client) { take(client); }, kOwnAddress) {
    EXPECT_EQ(subscription(service, server_.url()).send().status, 200);
    EXPECT_TRUE(becomesTrue([this] { return !events().empty(); }));
  }

  // Each event's LastChange, or all its properties when it has none.
  std::vector<std::string> events() {
    const std::lock_guard lock(mutex_);
    return events_;
  }
  bool hears(const std::string& words) {
    return becomesTrue([&] { return events().back().find(words) != std::string::npos; });
  }

 private:
  void take(RawHttpServer::Connection& client) {
    const HttpAnswer properties{200, "", client.body()};
    const std::string change = properties.value("LastChange");
    {
      const std::lock_guard lock(mutex_);
      events_.push_back(change.empty() ? client.body() : change);
    }
    client.send("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
  }

  std::mutex mutex_;
  std::vector<std::string> events_;
  RawHttpServer server_;
};

const struct {
  const char* name;
  std::vector<const char*> told;
  const char* untold;
} kFirstEvents[] = {
    {"AVTransport",
     {"<TransportState val=\"STOPPED\"/>", "<NextAVTransportURI val=\"\"/>",
      "<CurrentTransportActions val=\"Play\"/>", "<CurrentTrackDuration val=\"0:10:00\"/>"},
     "TimePosition"},
    {"RenderingControl", {"<Volume channel=\"Master\" val=\"44\"/>", "<Mute channel=\"Master\""}, "LF"},
    {"ConnectionManager",
     {"<CurrentConnectionIDs>0</CurrentConnectionIDs>", "<SourceProtocolInfo>", "http-get:*:audio/mpeg:"},
     "LastChange"},
};

TEST_ROWS(Event, TellsEverythingFirst, kFirstEvents) {
  bringInto("STOPPED");
  setVolume(44);
  const std::string first = Subscriber(row.name).events().front();
  for (const char* words : row.told) EXPECT_THAT(first, HasSubstr(words));
  EXPECT_THAT(first, Not(HasSubstr(row.untold)));
}

TEST(Event, TellsOnlyWhatIsNew) {
  bringInto("STOPPED");
  Subscriber subscriber("AVTransport");
  avt("Play Speed=1");
  EXPECT_TRUE(subscriber.hears("<TransportState val=\"PLAYING\""));
  EXPECT_THAT(subscriber.events().back(), Not(HasSubstr("AVTransportURI")));
  ::usleep(300'000);  // events are at least 0.2 s apart
  avt("Seek Unit=REL_TIME Target=0:01:00");
  EXPECT_TRUE(subscriber.hears("<TransportState val=\"TRANSITIONING\""));
  EXPECT_TRUE(subscriber.hears("<TransportState val=\"PLAYING\""));
}

TEST(Event, CollectsChangesAndTellsTheLast) {
  setVolume(100);
  Subscriber subscriber("RenderingControl");
  const auto begun = std::chrono::steady_clock::now();
  for (int volume = 0; volume < 60; ++volume) setVolume(volume);
  EXPECT_TRUE(subscriber.hears("<Volume channel=\"Master\" val=\"59\"/>"));
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begun;
  EXPECT_LE(static_cast<double>(subscriber.events().size()), took.count() / 0.2 + 2);
  EXPECT_THAT(subscriber.events().back(), Not(HasSubstr("Mute")));
}

TEST(Event, SilentSubscribersHoldNobodyUp) {
  const RawHttpServer silent([](auto& client) { client.closedWithin(std::chrono::seconds(20)); },
                             kOwnAddress);
  for (int i = 0; i < 8; ++i) EXPECT_EQ(subscription("RenderingControl", silent.url()).send().status, 200);
  Subscriber subscriber("RenderingControl");
  for (const int volume : {11, 12, 13}) {
    const auto begun = std::chrono::steady_clock::now();
    setVolume(volume);
    EXPECT_TRUE(subscriber.hears("val=\"" + std::to_string(volume) + "\""));
    EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(1));
  }
}

// What is announced: unique service names, by the notice that told them.
struct Announcements {
  std::set<std::string> here;
  std::set<std::string> gone;
};

// GUPnP's own side of a control point.
class GupnpContext {
 public:
  GupnpContext() {
    GInetAddress* address = g_inet_address_new_from_string(kOwnAddress);
    context_ = gupnp_context_new_full("v1", address, 0, GSSDP_UDA_VERSION_1_0, nullptr);
    g_object_unref(address);
  }
  ~GupnpContext() { g_object_unref(context_); }
  GupnpContext(const GupnpContext&) = delete;
  GupnpContext& operator=(const GupnpContext&) = delete;

  GUPnPContext* get() const { return context_; }

  // Runs the loop all the time: GUPnP may lose an event that it reads late.
  template <class Condition>
  static bool comesTrue(Condition condition) {
    const guint ticks = g_timeout_add(
        10, [](gpointer) -> gboolean { return G_SOURCE_CONTINUE; }, nullptr);
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!condition() && std::chrono::steady_clock::now() < end) g_main_context_iteration(nullptr, TRUE);
    g_source_remove(ticks);
    return condition();
  }

 private:
  GUPnPContext* context_;
};

TEST(Event, SaysGoodbyeForAllThatItAnnounced) {
  const GupnpContext context;
  GSSDPResourceBrowser* browser =
      gssdp_resource_browser_new(GSSDP_CLIENT(context.get()), GSSDP_ALL_RESOURCES);
  Announcements seen;
  RendererProgram program({"--port", std::to_string(kOtherPort)});
  const auto available = [](GSSDPResourceBrowser*, const char* usn, GList* locations, gpointer user) {
    const std::string location = static_cast<const char*>(locations->data);
    if (location.find(":52400/") != std::string::npos) static_cast<Announcements*>(user)->here.insert(usn);
  };
  const auto unavailable = [](GSSDPResourceBrowser*, const char* usn, gpointer user) {
    static_cast<Announcements*>(user)->gone.insert(usn);
  };
  g_signal_connect(browser, "resource-available", G_CALLBACK(+available), &seen);
  g_signal_connect(browser, "resource-unavailable", G_CALLBACK(+unavailable), &seen);
  gssdp_resource_browser_set_active(browser, TRUE);
  EXPECT_TRUE(context.comesTrue([&] { return seen.here.size() == 6; }));
  EXPECT_EQ(program.end(SIGTERM), 0);
  EXPECT_TRUE(context.comesTrue([&] { return seen.gone == seen.here; }));
  g_object_unref(browser);
}

void setVolume(GUPnPServiceProxy* rendering, guint volume) {
  GUPnPServiceProxyAction* action =
      gupnp_service_proxy_action_new("SetVolume", "InstanceID", G_TYPE_UINT, 0, "Channel", G_TYPE_STRING,
                                     "Master", "DesiredVolume", G_TYPE_UINT, volume, nullptr);
  EXPECT_NE(gupnp_service_proxy_call_action(rendering, action, nullptr, nullptr), nullptr);
  EXPECT_TRUE(gupnp_service_proxy_action_get_result(action, nullptr, nullptr));
  gupnp_service_proxy_action_unref(action);
}

TEST(Event, IsFoundControlledAndHeardByGupnp) {
  const GupnpContext context;
  GUPnPControlPoint* point =
      gupnp_control_point_new(context.get(), "urn:schemas-upnp-org:device:MediaRenderer:1");
  GUPnPServiceInfo* rendering = nullptr;
  const auto found = [](GUPnPControlPoint*, GUPnPDeviceProxy* device, gpointer user) {
    *static_cast<GUPnPServiceInfo**>(user) = gupnp_device_info_get_service(
        GUPNP_DEVICE_INFO(device), "urn:schemas-upnp-org:service:RenderingControl:1");
  };
  g_signal_connect(point, "device-proxy-available", G_CALLBACK(+found), static_cast<gpointer>(&rendering));
  gssdp_resource_browser_set_active(GSSDP_RESOURCE_BROWSER(point), TRUE);
  ASSERT_TRUE(context.comesTrue([&] { return rendering != nullptr; }));
  const auto proxy = GUPNP_SERVICE_PROXY(rendering);
  std::string heard;
  const auto hear = [](GUPnPServiceProxy*, const char*, GValue* value, gpointer user) {
    *static_cast<std::string*>(user) = g_value_get_string(value);
  };
  gupnp_service_proxy_add_notify(proxy, "LastChange", G_TYPE_STRING, hear, &heard);
  gupnp_service_proxy_set_subscribed(proxy, TRUE);
  EXPECT_TRUE(context.comesTrue([&] { return gupnp_service_proxy_get_subscribed(proxy); }));
  for (const guint volume : {71, 72}) {
    setVolume(proxy, volume);
    const std::string expected = "val=\"" + std::to_string(volume) + "\"";
    EXPECT_TRUE(context.comesTrue([&] { return heard.find(expected) != std::string::npos; })) << heard;
  }
  g_object_unref(rendering);
  g_object_unref(point);
}

}  // namespace
