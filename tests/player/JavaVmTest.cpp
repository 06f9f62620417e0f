// The built plug-in's player in a real Java VM.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <regex>
#include <thread>

#include "HandlerMethods.h"
#include "LogCapture.h"
#include "TestVm.h"

namespace {

using testing::ElementsAre;

constexpr unsigned int kId = 0x80000005u;  // negative in Java
constexpr int kAnswer = static_cast<int>(kId);
constexpr const char* kText = "\xF0\x9F\x98\x80\xFF";  // an emoji, and a byte that is no UTF-8
constexpr const char* kNone = nullptr;
constexpr const char* kActions = "\xC3\xA9\xEF\xBF\xBD";
constexpr long long kTrigger = -81985529216486896;  // more than 32 bits
#define SHOWN "\xF0\x9F\x98\x80\xEF\xBF\xBD"

int number;
unsigned int volume;
bool flag;
char* text;

// Called by slot number: the host's order of the operations is the contract.
template <class... Arguments>
int call(void* player, int slot, Arguments... arguments) {
  return callSlot<int>(player, slot, kId, arguments...);
}

using P = void*;

struct EchoCase {
  const char* echo;  // what the handler saw; "#" is the id
  int (*call)(P player);
  const char* stored = "";  // which out parameter holds the answer; none: the answer is the result
};

std::string stored() {
  std::string out = number == kAnswer ? "number" : volume == kId ? "volume" : flag ? "flag" : "";
  return text == nullptr ? out : out + PlayerOf::taken(text);
}

const EchoCase kEchoes[] = {
    {"setDataSource[#, " SHOWN ", null, t]", [](P p) { return call(p, 4, kText, kNone, "t"); }},
    {"setNextDataSource[#, u, " SHOWN ", t]", [](P p) { return call(p, 5, "u", kText, "t"); }},
    {"start[#, 1/2]", [](P p) { return call(p, 6, "1/2"); }},
    {"stop[#]", [](P p) { return call(p, 7); }},
    {"pause[#]", [](P p) { return call(p, 8); }},
    {"seekTo[#, -9]", [](P p) { return call(p, 9, -9); }},
    {"next[#]", [](P p) { return call(p, 10); }},
    {"getCurrentPosition[#]", [](P p) { return call(p, 11, &number); }, "number"},
    {"getState[#]", [](P p) { return call(p, 12, &number); }, "number"},
    {"setVolume[#, LF, 7, -1]", [](P p) { return call(p, 13, "LF", 7u, 0xFFFFFFFFu); }},
    {"getVolume[#, LF, -9]", [](P p) { return call(p, 14, "LF", -9, &volume); }, "volume"},
    {"setMute[#, LF, true]", [](P p) { return call(p, 17, "LF", true); }},
    {"getMute[#, LF]", [](P p) { return call(p, 18, "LF", &flag); }, "flag"},
    {"getPlaySpeedList[#]", [](P p) { return call(p, 19, &text); }, "1\xEF\xBF\xBD\xF0\x9F\x98\x80"},
    {"getAction[#]", [](P p) { return call(p, 20, &text); }, kActions},
    {"updateAudioSelection[#, -1, s]", [](P p) { return call(p, 21, 0xFFFFFFFFu, "s"); }},
    {"updateVideoSelection[#, -1, s]", [](P p) { return call(p, 22, 0xFFFFFFFFu, "s"); }},
    {"prepareForConnection[#, ]", [](P p) { return call(p, 23, ""); }},
    {"connectionComplete[#]", [](P p) { return call(p, 24); }},
    {"setBreakAuxStreamPlaylist[#, -9, null, b]", [](P p) { return call(p, 25, -9, kNone, "b"); }},
    {"setBreakAuxStreamTrigger[#, 9, -81985529216486896]", [](P p) { return call(p, 26, 9u, kTrigger); }},
    {"getTrackDuration[#]", [](P p) { return call(p, 27, &number); }, "number"},
};
static_assert(std::size(kEchoes) == kHandlerMethods.size());

TEST(Player, ReachesTheHandlerFromAttachedAndForeignThreads) {
  const PlayerOf player("EchoHandler");
  const auto echoAll = [&](bool foreign) {
    for (const EchoCase& row : kEchoes) {
      number = 0, volume = 0, flag = false, text = nullptr;
      int result = -1;
      const auto callRow = [&] { result = row.call(player.object()); };
      foreign ? std::thread(callRow).join() : callRow();
      const std::string seen = player.ask("toString");
      EXPECT_EQ(std::regex_replace(seen, std::regex("-2147483643"), "#"), row.echo);
      EXPECT_EQ(result, *row.stored == '\0' ? kAnswer : 0) << row.echo;
      EXPECT_EQ(stored(), row.stored) << row.echo;
    }
  };
  echoAll(false);
  echoAll(true);
  EXPECT_EQ(call(player.object(), 15, "LF", 1, 2), 2);
  EXPECT_EQ(call(player.object(), 16, "LF", 1, &number), 2);
}

TEST(Player, SurvivesHandlersThatFail) {
  LogCapture log;
  const PlayerOf player("EchoHandler");
  int state = 77;
  EXPECT_EQ(player->GetState(13, &state), 0);
  EXPECT_EQ(state, 0);
  EXPECT_EQ(player->GetAction(13, &text), 9);
  EXPECT_EQ(player->GetAction(0, &text), 9) << "null is no text";
  EXPECT_EQ(player->PrepareForConnection(0, nullptr), 5);
  EXPECT_EQ(player->Stop(0), 0);
  EXPECT_THAT(log.take(), ElementsAre());
}

TEST(Player, LeavesNoThreadInTheVm) {
  const PlayerOf player("EchoHandler");
  const std::string before = player.ask("liveThreads");
  std::atomic<int> failures = 0;
  const auto callOften = [&] {
    for (int i = 0; i < 625; ++i) {
      int state = 0;
      char* action = nullptr;
      if (player->SetDataSource(3, kText, kText, "t") != 3) ++failures;
      if (player->GetAction(3, &action) != 0 || PlayerOf::taken(action) != kActions) ++failures;
      if (player->GetState(3, &state) != 0 || state != 3) ++failures;
    }
  };
  std::vector<std::thread> threads;
  for (int i = 0; i < 8; ++i) threads.emplace_back(callOften);
  callOften();
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(failures, 0);
  EXPECT_EQ(player.ask("liveThreads"), before);
}

}  // namespace
