// What servers do to a probe, and how a probe ends that is cancelled.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <netdb.h>

#include <atomic>
#include <chrono>
#include <future>
#include <mutex>
#include <regex>
#include <string>
#include <vector>

#include "Checker.h"
#include "Didl.h"
#include "HeldResources.h"
#include "LogCapture.h"
#include "RawHttpServer.h"
#include "TestRows.h"

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Connection = RawHttpServer::Connection;

static std::mutex stuckLookup;  // while it is locked, whoever looks up "stuck.invalid" waits

// Takes the place of the C library's function in this program, libcurl included: no name server is asked.
extern "C" int getaddrinfo(const char* node, const char* service, const addrinfo* hints, addrinfo** result) {
  const std::string_view name = node != nullptr ? node : "";
  if (name == "stuck.invalid") const std::lock_guard wait(stuckLookup);
  if (name.ends_with(".invalid")) return EAI_NONAME;
  static const auto real = reinterpret_cast<decltype(&getaddrinfo)>(dlsym(RTLD_NEXT, "getaddrinfo"));
  return real(node, service, hints, result);
}

namespace {

// Who connects waits: the queue has one place, which is taken.
class DeafListener : public LoopbackListener {
 public:
  DeafListener() : LoopbackListener(0), taken_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    connect(taken_, address(), sizeof(sockaddr_in));
  }
  ~DeafListener() { close(taken_); }

 private:
  int taken_;
};

// A probed item. A name is only asked for where a literal address offers an element behind it.
struct Item {
  explicit Item(std::string address) : url(std::move(address)) {
    if (url.find(".invalid") != url.npos) metadata = didlText({resElement("http-get:*:audio/mpeg:*", url)});
  }
  int check(TarqResourceCheckerInterface& checker) const {
    return metadata.empty() ? checker.CheckResource(url.c_str(), nullptr)
                            : checker.CheckResource("http://127.0.0.1/", metadata.c_str());
  }

  std::string url;
  std::string metadata;
};

// What the check makes of a server, after the code of the client where it failed.
std::string outcomeOf(const std::string& url) {
  const auto checker = newChecker(2);
  LogCapture log;
  std::string outcome = outcomeOf(*checker, Item(url).check(*checker));
  std::smatch failed;
  for (const std::string& line : log.take())
    if (std::regex_search(line, failed, std::regex("FAILED .(\\d+)")))
      outcome = failed[1].str() + " " + outcome;
  return outcome;
}

using Answer = RawHttpServer::Answer;

Answer sending(const std::string& text) {
  return [text](Connection& client) { client.send(text); };
}
Answer resetting(const std::string& text) {
  return [text](Connection& client) {
    client.send(text);
    std::this_thread::sleep_for(20ms);  // a reset overtakes what was not read yet
    client.resetOnClose();
  };
}
// `text`, and then `more` again and again.
Answer endless(const std::string& text, const std::string& more, std::chrono::milliseconds pause = 0ms) {
  return [text, more, pause](Connection& client) {
    client.send(text);
    while (client.send(more) && (pause == 0ms || !client.closedWithin(pause))) {
    }
  };
}

const std::string kOk = "HTTP/1.1 200 OK\r\n";
const std::string kMp3 = kOk + "Content-Type: audio/mpeg\r\n";
const std::string kFeatures = "CONTENTfeatures.DLNA.org:";
const std::string kInterim = "HTTP/1.1 100 Continue\r\nContent-Type: video/mp4\r\n\r\n";

constexpr const char* kAccepted = "0 -1 audio/mpeg [] - MP3";
constexpr const char* kInvalid = "2105 55108";
constexpr const char* kLost = "2106 55108";

struct OddServer {
  const char* name;
  Answer answer;
  const char* outcome;
};
// clang-format off
const OddServer kOddServers[] = {
    {"Choices", sending("HTTP/1.1 300 X\r\nContent-Type: a/b\r\n\r\n"), "55108"},
    {"Moved", sending("HTTP/1.1 301 X\r\nLocation: /again\r\n\r\n"), "55108"},
    {"Forbidden", sending("HTTP/1.1 403 X\r\nContent-Length: 9\r\n\r\nForbidden"), "55200"},
    {"Failed", sending("HTTP/1.1 500 X\r\n\r\n"), "55108"},
    {"Busy", sending("HTTP/1.1 503 X\r\n\r\n"), "55107"},

    {"NoType", sending(kOk + "\r\n"), "55106"},
    {"FoldedType", sending(kOk + "content-TYPE:\r\n audio/mpeg\r\n\r\n"), kAccepted},
    {"NoReason", sending("HTTP/1.1 200\r\nContent-Type: audio/mpeg\r\n\r\n"), kAccepted},
    {"StatusLineAsHeader", sending(kMp3 + "HTTP/1.1: x\r\n\r\n"), kAccepted},
    {"LineFeedsAlone", sending("HTTP/1.1 200 OK\nContent-Type: audio/mpeg\n\n"), kAccepted},
    {"Body", sending(kMp3 + "Content-Length: 5\r\n\r\nbody!"), kAccepted},
    {"EndlessBody", endless(kMp3 + "\r\n", std::string(1000, 'x')), kAccepted},
    {"FeaturesFolded", sending(kMp3 + kFeatures + "A;\r\n\t B=1 \r\n \r\nX: 1\r\n\t2\r\n\r\n"),
     "0 -1 audio/mpeg [A; B=1] - MP3"},
    {"FeaturesTwice", sending(kMp3 + kFeatures + "*\r\ncontentfeatures.dlna.org: x\r\n y\r\n\r\n"),
     "0 -1 audio/mpeg [*] - MP3"},
    {"FeaturesOfForeignBytes", sending(kMp3 + kFeatures + "\xFF\x80=\xC3\r\n\r\n"),
     "0 -1 audio/mpeg [\xFF\x80=\xC3] - MP3"},
    {"HeadersUpToTheLimit", sending(kMp3 + repeated("X: y\r\n", 50'000) + "\r\n"), kAccepted},
    {"FiftyInterimAnswers", sending(repeated(kInterim, 50) + kMp3 + "\r\n"), kAccepted},
    {"TypeOfAnInterimAnswer", sending(kInterim + kOk + "\r\n"), "55106"},

    {"IcyStatus", sending("ICY 200 OK\r\nContent-Type: audio/mpeg\r\n\r\n"), kInvalid},
    {"NoStatusLine", sending("hello, this is no HTTP answer at all\r\n"), kInvalid},
    {"NoStatus", sending("HTTP/nothing\r\n\r\n"), kInvalid},
    {"StatusOfTwoDigits", sending("HTTP/2 20\r\n\r\n"), kInvalid},
    {"StatusOfFourDigits", sending("HTTP/2 2000\r\n\r\n"), kInvalid},
    {"ZeroByte", sending(kOk + std::string("Content-Type: audio/\0mpeg\r\n\r\n", 28)), kInvalid},
    {"CarriageReturnInType", sending(kOk + "Content-Type: audio/\rmpeg\r\n\r\n"), kInvalid},
    {"EscapeInFoldedFeatures", sending(kMp3 + kFeatures + "A\r\n \x1B[2J\r\n\r\n"), kInvalid},
    {"EndlessHeaders", endless(kOk, "X: " + std::string(1000, 'x') + "\r\n"), kInvalid},
    {"EndlessHeaderLine", sending(kOk + "X: " + std::string(400'000, 'y')), kInvalid},
    {"EndlessInterimAnswers", endless("", kInterim), kInvalid},

    {"ClosesAtOnce", sending(""), kLost},
    {"ResetsAtOnce", resetting(""), kLost},
    {"HalfAStatusLine", sending("HTTP/1.1 2"), kLost},
    {"NoBlankLine", sending(kMp3), kLost},
};
// clang-format on

TEST_ROWS(OddServer, EndsInAResult, kOddServers) {
  RawHttpServer server(row.answer);
  EXPECT_EQ(outcomeOf(server.url()), row.outcome);
}

TEST(Probe, FailsWhereNobodyListens) {
  std::string nobody;
  { nobody = LoopbackListener().url("/"); }
  EXPECT_EQ(outcomeOf(nobody), "2103 55202");
  EXPECT_EQ(outcomeOf("http://nobody.invalid/"), "2104 55201");
}

// All at once, because each takes the whole time.
TEST(Probe, EndsAtTheTimeLimit) {
  const std::lock_guard stuck(stuckLookup);
  const DeafListener deaf;
  RawHttpServer silence(endless("", "", 60s));
  RawHttpServer silenceInTheHeaders(endless(kMp3, "", 60s));
  RawHttpServer byteEveryHalfSecond(endless(kMp3, "X", 500ms));
  RawHttpServer interimAnswersForEver(endless("", kInterim, 100ms));
  const auto expectLimit = [](const std::string& url, std::chrono::seconds limit) {
    return std::async(std::launch::async, [url, limit, checker = newChecker()] {
      const Clock::time_point begin = Clock::now();
      EXPECT_EQ(Item(url).check(*checker), 55204) << url;
      const Clock::duration taken = Clock::now() - begin;
      EXPECT_TRUE(taken >= limit - 100ms && taken <= limit + 4s) << url << ": " << taken.count() << " ns";
    });
  };
  const std::future<void> running[] = {expectLimit(silence.url(), 15s),
                                       expectLimit(silenceInTheHeaders.url(), 15s),
                                       expectLimit(byteEveryHalfSecond.url(), 15s),
                                       expectLimit(interimAnswersForEver.url(), 15s),
                                       expectLimit(deaf.url("/"), 5s),
                                       expectLimit("http://stuck.invalid/", 5s)};
}

// The result, and how long `Cancel` and the end of the check took after it was called.
std::pair<int, Clock::duration> cancelProbe(const Item& item, std::chrono::microseconds delay) {
  const auto checker = newChecker();
  std::atomic<bool> begun = false;
  auto result = std::async(std::launch::async, [&] {
    begun = true;
    begun.notify_one();
    return item.check(*checker);
  });
  begun.wait(false);
  std::this_thread::sleep_for(delay);
  const Clock::time_point begin = Clock::now();
  checker->Cancel();
  const int code = result.get();
  return {code, Clock::now() - begin};
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
  cancelProbe(Item("http://nobody.invalid/"), 0us);
  const auto before = heldWhenQuiet();
  {
    const std::lock_guard stuck(stuckLookup);
    const DeafListener deaf;
    RawHttpServer silent(endless("", "", 60s));
    RawHttpServer slow([](Connection& client) { client.closedWithin(10ms) || client.send(kOk + "\r\n"); });
    const Item items[] = {Item(silent.url()), Item(slow.url()), Item(deaf.url("/")),
                          Item("http://stuck.invalid/")};
    int cancelled = 0;
    for (int i = 0; i < kTries; ++i) {
      const std::chrono::microseconds delay(i * i / 31);  // up to 32 ms
      const auto [result, taken] = cancelProbe(items[i % 4], delay);
      const bool refused = result == 55204 && i % 4 == 3 && i > 4 * 31;
      EXPECT_TRUE(refused || result == 5 || result == 55203 || result == 55106) << i << ": " << result;
      EXPECT_LT(taken, kLimit) << taken.count() << " ns";
      cancelled += result == 55203;
    }
    EXPECT_GT(cancelled, kTries / 2);
    EXPECT_EQ(outcomeOf("http://stuck.invalid/"), "2109 55204") << "after too many lookups that hang";
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
