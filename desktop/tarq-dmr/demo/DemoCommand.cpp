#include "DemoCommand.h"

#include <chrono>
#include <cstdio>
#include <span>
#include <string>
#include <thread>

#include "CommaList.h"
#include "CommandError.h"
#include "DemoServer.h"
#include "PlayerSession.h"
#include "ResultText.h"
#include "TextOutput.h"

namespace {

// One `res` of the item in the demo: a file of the server and how the metadata describes it.
struct DemoRes {
  DemoFile file;
  const char* what;
  const char* attributes;
};

constexpr DemoRes kThumbnail = {
    {"/media/41/thumbnail.jpg", 200, "image/jpeg", "DLNA.ORG_PN=JPEG_TN;DLNA.ORG_OP=01;DLNA.ORG_CI=1"},
    "the thumbnail",
    R"(size="6120" resolution="160x120")"};
constexpr DemoRes kConverted = {
    {"/media/41/converted.mpg", 200, "video/mpeg",
     "DLNA.ORG_PN=MPEG_PS_NTSC;DLNA.ORG_OP=10;DLNA.ORG_CI=1;DLNA.ORG_FLAGS=01700000000000000000000000000000"},
    "converted by the server",
    R"(duration="0:42:07.000" resolution="720x480" bitrate="786432")"};
constexpr DemoRes kOriginal = {
    {"/media/41/original.mp4", 200, "video/mp4",
     "DLNA.ORG_PN=AVC_MP4_HP_HD_AAC;DLNA.ORG_OP=01;DLNA.ORG_CI=0;DLNA.ORG_FLAGS="
     "01700000000000000000000000000000"},
    "the original",
    R"(size="1874203118" duration="0:42:07.000" resolution="1920x1080" bitrate="741520")"};
constexpr DemoRes kBusy = {
    {"/media/42/converted.mpg", 503, "video/mpeg", "DLNA.ORG_PN=MPEG_PS_NTSC;DLNA.ORG_OP=01;DLNA.ORG_CI=0"},
    "the server is too busy to send it",
    R"(size="52428800" duration="0:01:30.000" resolution="720x480")"};

constexpr DemoRes kClip = {
    {"/clips/bell.mp3", 200, "audio/mpeg", "DLNA.ORG_PN=MP3;DLNA.ORG_OP=01;DLNA.ORG_CI=0"},
    "a short clip",
    R"(size="25600" duration="0:00:02.000")"};

constexpr DemoRes kVideoItem[] = {kThumbnail, kConverted, kOriginal};

std::string didlLite(const DemoServer& server, std::span<const DemoRes> resources) {
  std::string didl =
      R"(<DIDL-Lite xmlns="urn:schemas-upnp-org:metadata-1-0/DIDL-Lite/")"
      R"( xmlns:dc="http://purl.org/dc/elements/1.1/" xmlns:upnp="urn:schemas-upnp-org:metadata-1-0/upnp/">)"
      R"(<item id="64$41" parentID="64" restricted="1"><dc:title>Harbour at Dawn</dc:title>)"
      R"(<upnp:class>object.item.videoItem</upnp:class>)";
  for (const DemoRes& res : resources) {
    didl += std::string("<res protocolInfo=\"http-get:*:") + res.file.contentType + ":" +
            res.file.contentFeatures + "\" " + res.attributes + ">" + server.url(res.file.path) + "</res>";
  }
  return didl + "</item></DIDL-Lite>";
}

bool same(const char* value, const std::string& expected) { return value != nullptr && value == expected; }

void note(const std::string& label, const std::string& value) { printRow(label, 15, value.c_str()); }

void noteResult(int code) { note("result " + std::to_string(code), describe(code)); }

// The request of one control point, shown step by step.
class Demo {
 public:
  explicit Demo(TarqDmrPluginManager& host) : host_(host), params_(*host.GetParams()) {}

  int run();

 private:
  void showPlugin();
  void showSink();
  void showItem();
  void checkItem();
  void showProbe();
  void checkQuickly();
  void checkBusyItem();
  void playClip();

  void step(const char* title) { std::printf("\n%d. %s\n", ++step_, title); }
  void expect(bool met, const char* what);

  TarqDmrPluginManager& host_;
  TarqDmrParamsInterface& params_;
  DemoServer server_{{kThumbnail.file, kConverted.file, kOriginal.file, kBusy.file, kClip.file}};
  int step_ = 0;
  int failures_ = 0;
};

int Demo::run() {
  showPlugin();
  showSink();
  showItem();
  checkItem();
  checkQuickly();
  checkBusyItem();
  playClip();
  if (failures_ == 0) {
    std::printf("\nAll %d steps passed.\n", step_);
  } else {
    std::printf("\n%d expectations failed.\n", failures_);
  }
  return failures_ == 0 ? kExitOk : kExitRefused;
}

void Demo::expect(bool met, const char* what) {
  if (met) return;
  ++failures_;
  std::printf("  FAILED: %s\n", what);
}

void Demo::showPlugin() {
  const PluginInfo& info = *host_.GetPluginInfo();
  step("The plug-in is loaded and says who it is");
  note("product", recordString(info.product));
  note("company", recordString(info.company));
  note("friendly name", host_.GetSpec()->GetDefaultFriendlyName());
  expect(info.product[0] != '\0', "the plug-in has a product name");
}

void Demo::showSink() {
  step("It says what it can play (region 1)");
  params_.SetCurrentRegion(1);
  const auto entries = splitCommas(params_.GetSinkProtocolInfo());
  note("entries", std::to_string(entries.size()));
  expect(!entries.empty(), "it can play something");
  if (!entries.empty()) note("the first", std::string(entries.front()));
}

void Demo::showItem() {
  step("A media server offers a video in several forms");
  note("server", server_.url("/"));
  for (size_t i = 0; i < std::size(kVideoItem); ++i) {
    note("res " + std::to_string(i), kVideoItem[i].what);
    note("", kVideoItem[i].file.path);
    note("", std::string(kVideoItem[i].file.contentType) + "  " + kVideoItem[i].attributes);
  }
}

void Demo::checkItem() {
  step("A control point asks to play it, naming the converted form");
  const std::string uri = server_.url(kConverted.file.path);
  note("uri", uri);
  const auto checker = newChecker(params_);
  const int code = checker->CheckResource(uri.c_str(), didlLite(server_, kVideoItem).c_str());
  showProbe();

  step("The result: what the player is to play");
  const TarqResourceInfo& resource = *checker->GetResource();
  expect(code == 0, "the video is accepted");
  if (code != 0) return noteResult(code);
  printResource(resource);
  expect(resource.resIndex == 2 && same(resource.uri, server_.url(kOriginal.file.path)),
         "the original is chosen");
  expect(same(resource.mimeType, kOriginal.file.contentType), "the MIME type is the server's");
  expect(same(resource.additionalInfo, kOriginal.file.contentFeatures),
         "the content features are the server's");
  expect(same(resource.operation, "01"), "seeking by bytes is possible");
}

void Demo::showProbe() {
  step("The plug-in has chosen a form and asks the server for it, as the server saw it");
  const std::vector<DemoRequest> requests = server_.takeRequests();
  for (const DemoRequest& request : requests) {
    note("request", request.line);
    for (const auto& [name, value] : request.headers) note("", std::string(name).append(": ").append(value));
  }
  expect(requests.size() == 1 && requests[0].line == std::string("HEAD ") + kOriginal.file.path,
         "the server saw one HEAD request for the original");
}

void Demo::checkQuickly() {
  step("Some content is recognised by its URI alone: the server is not asked");
  const std::string uri = server_.url("/clips/harbour.mp4");
  note("uri", uri);
  const auto checker = newChecker(params_);
  const int code = checker->CheckResource(uri.c_str(), "<DIDL-Lite/>");
  const size_t requests = server_.takeRequests().size();
  noteResult(code);
  if (code == 0) note("MIME type", checker->GetResource()->mimeType);
  note("requests", std::to_string(requests));
  expect(code == 0 && requests == 0, "it is accepted without a request");
}

void Demo::checkBusyItem() {
  step("Another video, but the server is busy");
  const std::string uri = server_.url(kBusy.file.path);
  note("uri", uri);
  const int code = newChecker(params_)->CheckResource(uri.c_str(), didlLite(server_, {&kBusy, 1}).c_str());
  noteResult(code);
  expect(code == kServerBusy, "it is refused because the server answered 503");
}

void Demo::playClip() {
  step("The player hands a clip to its Java handler, which plays it to the end");
  const std::string metadata = didlLite(server_, {&kClip, 1});
  const auto checker = newChecker(params_);
  const int code = checker->CheckResource(server_.url(kClip.file.path).c_str(), metadata.c_str());
  expect(code == 0, "the clip is accepted");
  if (code != 0) return noteResult(code);
  try {
    PlayerSession session(*host_.GetPlayer(), {});
    session.setSource(*checker->GetResource(), metadata.c_str());
    note("source", checker->GetResource()->uri);
    session.start();
    PlayMoment moment = session.moment();
    for (; moment.state != kStateStopped; moment = session.moment()) {
      note("state", describe(moment));
      std::this_thread::sleep_for(std::chrono::milliseconds(500));
    }
    note("state", describe(moment));
  } catch (const PlayerFailure& failure) {
    note("player", failure.words);
    expect(false, "the handler reports success");
  }
}

}  // namespace

int runDemo(const DemoOptions& options) { return Demo(openHost(options.host)).run(); }
