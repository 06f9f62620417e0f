// Eight control points that ask the media renderer on a network, either for its position ten times a second,
// which is timed, or for anything at random, without a pause.
//   tarq-renderer-load INTERFACE ADDRESS position|random SECONDS
#include <curl/curl.h>
#include <libgupnp/gupnp.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr int kControlPoints = 8;
constexpr milliseconds kInterval(100);

// Addresses for control, by the name of the service.
using ControlUrls = std::map<std::string, std::string>;

struct Call {
  const char* service;
  const char* action;
  const char* arguments;
};

constexpr Call kPosition = {"AVTransport", "GetPositionInfo", ""};

// Two sources that are accepted without a server, and one whose server is not there.
constexpr Call kCalls[] = {
    kPosition,
    {"AVTransport", "GetMediaInfo", ""},
    {"AVTransport", "Play", "<Speed>1</Speed>"},
    {"AVTransport", "Play", "<Speed>2</Speed>"},
    {"AVTransport", "Pause", ""},
    {"AVTransport", "Stop", ""},
    {"AVTransport", "Next", ""},
    {"AVTransport", "Seek", "<Unit>REL_TIME</Unit><Target>0:00:01</Target>"},
    {"AVTransport", "SetAVTransportURI",
     "<CurrentURI>http://media.example/a.mp4</CurrentURI><CurrentURIMetaData></CurrentURIMetaData>"},
    {"AVTransport", "SetAVTransportURI",
     "<CurrentURI>http://10.9.0.2:1/a</CurrentURI><CurrentURIMetaData></CurrentURIMetaData>"},
    {"AVTransport", "SetNextAVTransportURI",
     "<NextURI>http://media.example/b.mp4</NextURI><NextURIMetaData></NextURIMetaData>"},
    {"RenderingControl", "SetVolume", "<Channel>Master</Channel><DesiredVolume>33</DesiredVolume>"},
    {"RenderingControl", "SetVolume", "<Channel>Master</Channel><DesiredVolume>loud</DesiredVolume>"},
    {"RenderingControl", "SetMute", "<Channel>Master</Channel><DesiredMute>1</DesiredMute>"},
    {"RenderingControl", "SelectPreset", "<PresetName>FactoryDefaults</PresetName>"},
};

// Its server does not answer.
constexpr Call kSlowCall = {
    "AVTransport", "SetAVTransportURI",
    "<CurrentURI>http://10.9.0.3/a</CurrentURI><CurrentURIMetaData></CurrentURIMetaData>"};

void found(GUPnPControlPoint*, GUPnPServiceProxy* proxy, gpointer urls) {
  const auto info = GUPNP_SERVICE_INFO(proxy);
  const std::string type = gupnp_service_info_get_service_type(info);
  const size_t end = type.rfind(':');
  const size_t begin = type.rfind(':', end - 1) + 1;
  gchar* url = gupnp_service_info_get_control_url(info);
  static_cast<ControlUrls*>(urls)->emplace(type.substr(begin, end - begin), url);
  g_free(url);
}

ControlUrls findRenderer(const char* interfaceName, const char* ownAddress) {
  ControlUrls urls;
  GInetAddress* address = g_inet_address_new_from_string(ownAddress);
  GUPnPContext* context = gupnp_context_new_full(interfaceName, address, 0, GSSDP_UDA_VERSION_1_0, nullptr);
  std::vector<GUPnPControlPoint*> points;
  for (const char* type :
       {"urn:schemas-upnp-org:service:AVTransport:1", "urn:schemas-upnp-org:service:RenderingControl:1"}) {
    points.push_back(gupnp_control_point_new(context, type));
    g_signal_connect(points.back(), "service-proxy-available", G_CALLBACK(found), &urls);
    gssdp_resource_browser_set_active(GSSDP_RESOURCE_BROWSER(points.back()), TRUE);
  }
  const guint ticks = g_timeout_add(
      100, [](gpointer) -> gboolean { return TRUE; }, nullptr);
  const Clock::time_point end = Clock::now() + std::chrono::seconds(20);
  while (urls.size() < points.size() && Clock::now() < end) g_main_context_iteration(nullptr, TRUE);
  g_source_remove(ticks);
  for (GUPnPControlPoint* point : points) g_object_unref(point);
  g_object_unref(context);
  g_object_unref(address);
  return urls;
}

size_t drop(char*, size_t size, size_t count, void*) { return size * count; }

class ControlPoint {
 public:
  explicit ControlPoint(const ControlUrls& urls) : urls_(urls), curl_(curl_easy_init()) {
    curl_easy_setopt(curl_, CURLOPT_WRITEFUNCTION, drop);
    curl_easy_setopt(curl_, CURLOPT_NOSIGNAL, 1L);
  }
  ~ControlPoint() { curl_easy_cleanup(curl_); }
  ControlPoint(const ControlPoint&) = delete;
  ControlPoint& operator=(const ControlPoint&) = delete;

  // `limit`: it gives up then.
  // Returns: the HTTP status; 0 when there was no answer.
  long ask(const Call& call, milliseconds limit) {
    const std::string type = "urn:schemas-upnp-org:service:" + std::string(call.service) + ":1";
    const std::string body = "<s:Envelope xmlns:s=\"http://schemas.xmlsoap.org/soap/envelope/\"><s:Body><u:" +
                             std::string(call.action) + " xmlns:u=\"" + type +
                             "\"><InstanceID>0</InstanceID>" + call.arguments + "</u:" + call.action +
                             "></s:Body></s:Envelope>";
    curl_slist* headers = curl_slist_append(nullptr, "Content-Type: text/xml; charset=\"utf-8\"");
    headers = curl_slist_append(headers, ("SOAPACTION: \"" + type + "#" + call.action + "\"").c_str());
    curl_easy_setopt(curl_, CURLOPT_URL, urls_.at(call.service).c_str());
    curl_easy_setopt(curl_, CURLOPT_HTTPHEADER, headers);
    curl_easy_setopt(curl_, CURLOPT_POSTFIELDS, body.c_str());
    curl_easy_setopt(curl_, CURLOPT_TIMEOUT_MS, static_cast<long>(limit.count()));
    long status = 0;
    if (curl_easy_perform(curl_) == CURLE_OK) curl_easy_getinfo(curl_, CURLINFO_RESPONSE_CODE, &status);
    curl_slist_free_all(headers);
    return status;
  }

 private:
  const ControlUrls& urls_;
  CURL* const curl_;
};

struct Tally {
  std::vector<double> tookMs;  // of the answers that were done
  int refused = 0;
  int silent = 0;

  void add(long status, Clock::duration took) {
    if (status == 200) {
      tookMs.push_back(std::chrono::duration<double, std::milli>(took).count());
    } else {
      ++(status == 0 ? silent : refused);
    }
  }
};

Tally askForPosition(const ControlUrls& urls, Clock::time_point next, Clock::time_point end) {
  ControlPoint point(urls);
  Tally tally;
  for (; next < end; next += kInterval) {
    std::this_thread::sleep_until(next);
    const Clock::time_point begin = Clock::now();
    const long status = point.ask(kPosition, milliseconds(10'000));
    tally.add(status, Clock::now() - begin);
  }
  return tally;
}

// One call in eight is given up almost at once.
Tally askAtRandom(const ControlUrls& urls, unsigned seed, Clock::time_point end) {
  ControlPoint point(urls);
  std::minstd_rand random(seed);
  Tally tally;
  while (Clock::now() < end) {
    const Call& call = random() % 1000 == 0 ? kSlowCall : kCalls[random() % std::size(kCalls)];
    const Clock::time_point begin = Clock::now();
    const long status = point.ask(call, milliseconds(random() % 8 == 0 ? 3 : 10'000));
    tally.add(status, Clock::now() - begin);
  }
  return tally;
}

Tally total(const std::vector<Tally>& tallies) {
  Tally all;
  for (const Tally& each : tallies) {
    all.tookMs.insert(all.tookMs.end(), each.tookMs.begin(), each.tookMs.end());
    all.refused += each.refused;
    all.silent += each.silent;
  }
  std::ranges::sort(all.tookMs);
  return all;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) return 2;
  const bool atRandom = std::string_view(argv[3]) == "random";
  const ControlUrls urls = findRenderer(argv[1], argv[2]);
  if (urls.size() < 2) {
    std::fputs("no media renderer answers\n", stderr);
    return 1;
  }
  const Clock::time_point begin = Clock::now();
  const Clock::time_point end = begin + std::chrono::seconds(std::atoi(argv[4]));
  std::vector<Tally> tallies(kControlPoints);
  {
    std::vector<std::jthread> threads;
    for (int i = 0; i < kControlPoints; ++i) {
      threads.emplace_back([&, i] {
        Tally& tally = tallies[static_cast<size_t>(i)];
        const auto first = begin + i * kInterval / kControlPoints;
        tally =
            atRandom ? askAtRandom(urls, static_cast<unsigned>(i), end) : askForPosition(urls, first, end);
      });
    }
  }
  const Tally all = total(tallies);
  if (all.tookMs.empty()) return 1;
  const auto quantile = [&](size_t percent) { return all.tookMs[(all.tookMs.size() - 1) * percent / 100]; };
  std::printf("median %.2f ms, 99th percentile %.2f ms of %zu actions; %d refused, %d without an answer\n",
              quantile(50), quantile(99), all.tookMs.size(), all.refused, all.silent);
  return 0;
}
