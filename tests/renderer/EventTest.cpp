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

TEST(Event, SaysGoodbyeForAllThatItAnnounced) {
  GInetAddress* address = g_inet_address_new_from_string(kOwnAddress);
  GUPnPContext* context = gupnp_context_new_full("v1", address, 0, GSSDP_UDA_VERSION_1_0, nullptr);
  GSSDPResourceBrowser* browser = gssdp_resource_browser_new(GSSDP_CLIENT(context), GSSDP_ALL_RESOURCES);
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
  const auto comesTrue = [](auto condition) {
    return becomesTrue([&] {
      while (g_main_context_iteration(nullptr, FALSE)) continue;
      return condition();
    });
  };
  EXPECT_TRUE(comesTrue([&] { return seen.here.size() == 6; }));
  EXPECT_EQ(program.end(SIGTERM), 0);
  EXPECT_TRUE(comesTrue([&] { return seen.gone == seen.here; }));
  g_object_unref(browser);
  g_object_unref(context);
  g_object_unref(address);
}

}  // namespace
