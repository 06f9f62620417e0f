// What servers do to a probe, and how a probe ends that is cancelled.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <netdb.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <future>
#include <list>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "Checker.h"
#include "DidlText.h"
#include "HeldResources.h"
#include "RawHttpServer.h"
#include "VondHspClient.h"

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Connection = RawHttpServer::Connection;

namespace {

// While it lives, whoever looks up "stuck.invalid" waits.
class StuckLookup {
 public:
  StuckLookup() { set(true); }
  ~StuckLookup() { set(false); }
  static void wait() { stuck_.wait(true); }

 private:
  static void set(bool stuck) {
    stuck_ = stuck;
    stuck_.notify_all();
  }
  static inline std::atomic<bool> stuck_ = false;
};

}  // namespace

// Takes the place of the C library's function in this program, libcurl included: no name server is asked.
extern "C" int getaddrinfo(const char* node, const char* service, const addrinfo* hints, addrinfo** result) {
  const std::string_view name = node != nullptr ? node : "";
  if (name == "stuck.invalid") StuckLookup::wait();
  if (name.ends_with(".invalid")) return EAI_NONAME;
  static const auto real = reinterpret_cast<decltype(&getaddrinfo)>(dlsym(RTLD_NEXT, "getaddrinfo"));
  return real(node, service, hints, result);
}

namespace {

// Who connects waits: the queue has one place, which is taken.
class DeafListener : public LoopbackListener {
 public:
  DeafListener() : LoopbackListener(0), taken_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    getsockname(fd(), reinterpret_cast<sockaddr*>(&address), &size);
    connect(taken_, reinterpret_cast<sockaddr*>(&address), size);
  }
  ~DeafListener() { close(taken_); }

 private:
  int taken_;
};

std::string repeated(const std::string& text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

// A probed item. A name is only asked for where a literal address offers an element behind it.
struct Item {
  explicit Item(std::string address) : url(std::move(address)) {
    if (url.find(".invalid") != url.npos)
      metadata = didlText({"<res protocolInfo='http-get:*:audio/mpeg:*'>" + url + "</res>"});
  }
  int check(TarqResourceCheckerInterface& checker) const {
    return metadata.empty() ? checker.CheckResource(url.c_str(), nullptr)
                            : checker.CheckResource("http://127.0.0.1/", metadata.c_str());
  }

  std::string url;
  std::string metadata;
};

// The first selection of the process ends before any other starts.
void holdFirstSelection() {
  newChecker()->CheckResource(nullptr, Item("http://a.invalid/").metadata.c_str());
}

// "code status type|features": what the client made of the answer.
std::string head(const std::string& url) {
  VondHspClient client(true);
  VondHspDlnaResponse response;
  const int code = client.Head(url.c_str(), VondHspDlnaRequest(), &response);
  client.Close();
  client.Close();
  const auto shown = [](const char* text) { return std::string(text != nullptr ? text : "-"); };
  return std::to_string(code) + " " + std::to_string(response.GetStatusCode()) + " " +
         shown(response.GetContentType()) + "|" + shown(response.GetContentFeatures());
}

struct OddServer {
  const char* name;
  std::string url;
  const char* outcome;              // of the client => of the check
  std::chrono::seconds limit = 0s;  // that ends it; 0: it ends by itself
};

class OddServers : public testing::Test {
 protected:
  std::string serving(RawHttpServer::Answer answer) { return servers_.emplace_back(std::move(answer)).url(); }
  std::string sending(std::string text) { return servers_.emplace_back(std::move(text)).url(); }

  // All at once, because the slowest take their time.
  void expectOutcomes(const std::vector<OddServer>& rows) {
    holdFirstSelection();
    std::vector<std::unique_ptr<TarqResourceCheckerInterface>> checkers;
    for (size_t i = 0; i < rows.size(); ++i) checkers.push_back(newChecker(2));  // no check may run yet
    std::vector<std::future<void>> running;
    for (size_t i = 0; i < rows.size(); ++i)
      running.push_back(std::async(std::launch::async, expectOutcome, rows[i], std::ref(*checkers[i])));
  }

 private:
  static void expectOutcome(const OddServer& row, TarqResourceCheckerInterface& checker) {
    const Clock::time_point begin = Clock::now();
    auto client = std::async(std::launch::async, head, row.url);
    const std::string checked = outcomeOf(checker, Item(row.url).check(checker));
    const std::string outcome = client.get() + " => " + checked;
    const Clock::duration taken = Clock::now() - begin;
    EXPECT_EQ(outcome, row.outcome) << row.name;
    EXPECT_GE(taken, row.limit - 100ms) << row.name;
    EXPECT_LE(taken, row.limit + 4s) << row.name;
  }

  std::list<RawHttpServer> servers_;
};

TEST_F(OddServers, EndInAResultWithinTheTimeLimit) {
  const StuckLookup stuck;
  const DeafListener deaf;
  std::string nobody;
  { nobody = LoopbackListener().url("/"); }
  const std::string ok = "HTTP/1.1 200 OK\r\n";
  const std::string mp3 = ok + "Content-Type: audio/mpeg\r\n";
  const std::string interim = "HTTP/1.1 100 Continue\r\nContent-Type: video/mp4\r\n\r\n";
  const auto reset = [](const std::string& text) {
    return [text](Connection& client) {
      client.send(text);
      std::this_thread::sleep_for(20ms);  // a reset overtakes what was not read yet
      client.resetOnClose();
    };
  };
  // `text`, and then `more` again and again.
  const auto endless = [](const std::string& text, const std::string& more, std::chrono::milliseconds pause) {
    return [text, more, pause](Connection& client) {
      client.send(text);
      while (client.send(more) && (pause == 0ms || !client.closedWithin(pause))) {
      }
    };
  };
  constexpr const char* kMp3 = "0 200 audio/mpeg|- => 0 -1 audio/mpeg [] - MP3";
  constexpr const char* kNoType = "0 200 -|- => 55106";
  constexpr const char* kInvalid = "2105 0 -|- => 55108";
  constexpr const char* kLost = "2106 0 -|- => 55108";
  constexpr const char* kTimedOut = "2109 0 -|- => 55204";
  // clang-format off
  expectOutcomes({
      {"NoContent", sending("HTTP/1.1 204 None\r\n\r\n"), "0 204 -|- => 55106"},
      {"Moved", sending("HTTP/1.1 301 X\r\nLocation: " + sending(mp3 + "\r\n") + "\r\n\r\n"),
       "0 301 -|- => 55108"},
      {"Unauthorized", sending("HTTP/1.1 401 X\r\nWWW-Authenticate: Basic\r\n\r\n"), "0 401 -|- => 55108"},
      {"Forbidden", sending("HTTP/1.1 403 X\r\nContent-Length: 9\r\n\r\nForbidden"), "0 403 -|- => 55200"},
      {"NotAllowed", sending("HTTP/1.1 405 X\r\nAllow: GET\r\n\r\n"), "0 405 -|- => 55108"},
      {"NotAcceptable", sending("HTTP/1.1 406 X\r\n\r\n"), "0 406 -|- => 55108"},
      {"Failed", sending("HTTP/1.1 500 X\r\n\r\n"), "0 500 -|- => 55108"},
      {"NotImplemented", sending("HTTP/1.1 501 X\r\n\r\n"), "0 501 -|- => 55108"},

      {"NoType", sending(ok + "\r\n"), kNoType},
      {"EmptyType", sending(ok + "Content-Type:\r\n\r\n"), "0 200 |- => 55106"},
      {"FoldedType", sending(ok + "content-TYPE:\r\n audio/mpeg\r\n\r\n"), kMp3},
      {"NoReason", sending("HTTP/1.1 200\r\nContent-Type: audio/mpeg\r\n\r\n"), kMp3},
      {"StatusLineAsHeader", sending("HTTP/1.1 200\r\nHTTP/1.1: x\r\nContent-Type: audio/mpeg\r\n\r\n"), kMp3},
      {"LineFeedsAlone", sending("HTTP/1.1 200 OK\nContent-Type: audio/mpeg\n\n"), kMp3},
      {"EmptyLength", sending(mp3 + "Content-Length: \r\n\r\n"), kMp3},
      {"NegativeLength", sending(mp3 + "Content-Length: -1\r\n\r\n"), kMp3},
      {"TwoLengths", sending(mp3 + "Content-Length: 5\r\nTransfer-Encoding: chunked\r\n\r\n"), kMp3},
      {"Body", sending(mp3 + "Content-Length: 5\r\n\r\nbody!"), kMp3},
      {"EndlessBody", serving(endless(mp3 + "\r\n", std::string(1000, 'x'), 0ms)), kMp3},
      {"FeaturesInAnyCase", sending(ok + "CONTENTfeatures.DLNA.org: DLNA.ORG_PN=MP3\r\n\r\n"),
       "0 200 -|DLNA.ORG_PN=MP3 => 55106"},
      {"FeaturesFolded",
       sending(mp3 +
               "contentFeatures.dlna.org:DLNA.ORG_PN=MP3;\r\n\t DLNA.ORG_OP=01 \r\n \r\nX: 1\r\n\t2\r\n\r\n"),
       "0 200 audio/mpeg|DLNA.ORG_PN=MP3; DLNA.ORG_OP=01 => "
       "0 -1 audio/mpeg [DLNA.ORG_PN=MP3; DLNA.ORG_OP=01] - MP3"},
      {"FeaturesTwice",
       sending(mp3 + "contentFeatures.dlna.org: *\r\nCONTENTFEATURES.DLNA.ORG: x\r\n y\r\n\r\n"),
       "0 200 audio/mpeg|* => 0 -1 audio/mpeg [*] - MP3"},
      {"FeaturesOfForeignBytes", sending(mp3 + "contentFeatures.dlna.org: \xFF\x80=\xC3\r\n\r\n"),
       "0 200 audio/mpeg|\xFF\x80=\xC3 => 0 -1 audio/mpeg [\xFF\x80=\xC3] - MP3"},
      {"HeadersUpToTheLimit", sending(mp3 + repeated("X: y\r\n", 50'000) + "\r\n"), kMp3},
      {"FiftyInterimAnswers", sending(repeated(interim, 50) + mp3 + "\r\n"), kMp3},
      {"TypeOfAnInterimAnswer", sending(interim + ok + "\r\n"), kNoType},

      {"IcyStatus", sending("ICY 200 OK\r\nContent-Type: audio/mpeg\r\n\r\n"), kInvalid},
      {"NoStatusLine", sending("hello, this is no HTTP answer at all\r\n"), kInvalid},
      {"NoStatus", sending("HTTP/nothing\r\n\r\n"), kInvalid},
      {"StatusOfTwoDigits", sending("HTTP/2 20\r\n\r\n"), kInvalid},
      {"StatusOfFourDigits", sending("HTTP/2 2000\r\n\r\n"), kInvalid},
      {"ZeroByte", sending(ok + std::string("Content-Type: audio/\0mpeg\r\n\r\n", 28)), kInvalid},
      {"EndlessHeaders", serving(endless(ok, "X: " + std::string(1000, 'x') + "\r\n", 0ms)), kInvalid},
      {"EndlessHeaderLine", sending(ok + "X: " + std::string(400'000, 'y')), kInvalid},
      {"EndlessInterimAnswers", serving(endless("", interim, 0ms)), kInvalid},

      {"ClosesAtOnce", sending(""), kLost},
      {"ResetsAtOnce", serving(reset("")), kLost},
      {"ResetsInTheHeaders", serving(reset(mp3)), kLost},
      {"HalfAStatusLine", sending("HTTP/1.1 2"), kLost},
      {"HalfAHeader", sending(ok + "Content-Type: audio/mp"), kLost},
      {"NoBlankLine", sending(mp3), kLost},
      {"InterimAnswerAlone", sending(interim), kLost},

      {"Silence", serving(endless("", "", 60s)), kTimedOut, 15s},
      {"SilenceInTheHeaders", serving(endless(mp3, "", 60s)), kTimedOut, 15s},
      {"AByteEveryHalfSecond", serving([mp3](Connection& client) { client.sendSlowly(mp3, 500ms); }),
       kTimedOut, 15s},
      {"InterimAnswersForEver", serving(endless("", interim, 100ms)), kTimedOut, 15s},
      {"NobodyListens", nobody, "2103 0 -|- => 55202"},
      {"NobodyAccepts", deaf.url("/"), kTimedOut, 5s},
      {"UnknownName", "http://nobody.invalid/", "2104 0 -|- => 55201"},
      {"StuckLookup", "http://stuck.invalid/", kTimedOut, 5s},
  });
  // clang-format on
}

struct CancelledProbe {
  int result;
  Clock::duration slowest;  // of `Cancel` and of the end of the check after its beginning
};

CancelledProbe cancelProbe(const Item& item, std::chrono::microseconds delay) {
  const auto checker = newChecker();
  std::atomic<bool> begun = false;
  Clock::time_point ended;
  auto result = std::async(std::launch::async, [&] {
    begun = true;
    begun.notify_one();
    const int code = item.check(*checker);
    ended = Clock::now();
    return code;
  });
  begun.wait(false);
  std::this_thread::sleep_for(delay);
  const Clock::time_point begin = Clock::now();
  checker->Cancel();
  const Clock::time_point cancelled = Clock::now();
  const int code = result.get();
  return {code, std::max(cancelled, ended) - begin};
}

// A look-up that nobody waits for any more takes a moment to end.
auto heldWhenQuiet() {
  auto held = heldBy("self");
  for (auto now = held;; held = now) {
    std::this_thread::sleep_for(300ms);
    now = heldBy("self");
    if (now == held) return held;
  }
}

TEST(Cancel, EndsAProbeAtAnyMomentAndLeavesNothing) {
  constexpr int kTries = 1'000;
  constexpr auto kLimit = TARQ_COSTS_COUNT ? 50ms : 500ms;
  holdFirstSelection();
  cancelProbe(Item("http://nobody.invalid/"), 0us);
  const auto before = heldWhenQuiet();
  {
    const StuckLookup stuck;
    const DeafListener deaf;
    RawHttpServer silent([](Connection& client) { client.closedWithin(60s); });
    RawHttpServer slow([](Connection& client) { client.sendSlowly("HTTP/1.1 200 OK\r\nX: 1\r\n\r\n", 1ms); });
    const Item items[] = {Item(silent.url()), Item(slow.url()), Item(deaf.url("/")),
                          Item("http://stuck.invalid/")};
    std::map<int, int> results;
    Clock::duration slowest{};
    std::mt19937 random(20'000);
    std::uniform_real_distribution<double> exponent(1, 4.5);  // 10 us to 32 ms
    for (int i = 0; i < kTries; ++i) {
      const Item& item = items[random() % std::size(items)];
      const auto delay = std::chrono::microseconds(std::lround(std::pow(10, exponent(random))));
      const CancelledProbe probe = cancelProbe(item, delay);
      ++results[probe.result];
      slowest = std::max(slowest, probe.slowest);
    }
    EXPECT_EQ(results[5] + results[55203] + results[55106], kTries);
    EXPECT_GT(results[55203], kTries / 2);
    EXPECT_LT(slowest, kLimit) << slowest.count() << " ns";
    EXPECT_TRUE(silent.allClosedWithin(2s) && slow.allClosedWithin(2s));
  }
  EXPECT_EQ(heldWhenQuiet(), before) << "descriptors, threads";
}

TEST(Cancel, BeforeACheckRefusesEveryProbe) {
  RawHttpServer server("HTTP/1.1 200 OK\r\n\r\n");
  const auto checker = newChecker();
  checker->Cancel();
  EXPECT_EQ(checker->CheckResource(server.url().c_str(), nullptr), 5);
  EXPECT_EQ(checker->CheckResource(server.url().c_str(), nullptr), 5);
  checker->Cancel();
  EXPECT_TRUE(server.requests().empty());
}

}  // namespace
