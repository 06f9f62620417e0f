// The built plug-in's player in a real Java VM.
#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include "LogCapture.h"
#include "PlayerOperations.h"
#include "TestRows.h"
#include "TestVm.h"

namespace {

constexpr int kAnswer = static_cast<int>(kId);

std::string stored() {
  std::string out = outs.string == nullptr ? "" : PlayerOf::taken(outs.string);
  if (outs.number == kAnswer) out += "number";
  if (outs.volume == kId) out += "volume";
  return outs.flag ? out + "flag" : out;
}

TEST_ROWS(Player, ReachesTheHandlerFromAttachedAndForeignThreads, kOperations) {
  const PlayerOf player("EchoHandler");
  int result = -1;
  const auto callRow = [&] { result = row.call(player.object()); };
  for (const bool foreign : {false, true}) {
    outs = {};
    foreign ? std::thread(callRow).join() : callRow();
    EXPECT_EQ(player.ask("toString"), row.name + std::string("[-2147483643") + row.arguments + "]");
    EXPECT_EQ(result, *row.stored == '\0' ? kAnswer : 0);
    EXPECT_EQ(stored(), row.stored);
  }
}

TEST(Player, HasNoVolumesInDecibels) {
  const PlayerOf player("EchoHandler");
  EXPECT_EQ(call(player.object(), 15, "LF", 1, 2), 2);
  EXPECT_EQ(call(player.object(), 16, "LF", 1, &outs.number), 2);
}

TEST(Player, SurvivesHandlersThatFail) {
  LogCapture log;
  const PlayerOf player("EchoHandler");
  testing::internal::CaptureStderr();
  int state = 77;
  EXPECT_EQ(player->GetState(13, &state), 0);
  EXPECT_EQ(state, 0);
  for (const unsigned int id : {13u, 0u}) EXPECT_EQ(player->GetAction(id, &outs.string), 9) << id;
  EXPECT_EQ(player->PrepareForConnection(0, nullptr), 5);
  EXPECT_EQ(player->Stop(0), 0);
  EXPECT_TRUE(log.take().empty());
  EXPECT_THAT(
      testing::internal::GetCapturedStderr(),
      testing::MatchesRegex("tarq-dmr: Java exception java.lang.IllegalStateException: as the test expects\n"
                            "  at EchoHandler.echo.*\n  at EchoHandler.getState[^\n]*\n"));
}

TEST(Player, LeavesNoThreadInTheVm) {
  const PlayerOf player("EchoHandler");
  const std::string before = player.ask("liveThreads");
  std::atomic<int> failures = 0;
  const auto callOften = [&] {
    for (int i = 0; i < 625; ++i) {
      char* action = nullptr;
      if (player->SetDataSource(3, kText, kText, "t") != 3 || player->GetAction(3, &action) != 0 ||
          PlayerOf::taken(action) != "\xC3\xA9\xEF\xBF\xBD")
        ++failures;
    }
  };
  std::vector<std::thread> threads;
  for (int i = 0; i < 8; ++i) threads.emplace_back(callOften);
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(failures, 0);
  EXPECT_EQ(player.ask("liveThreads"), before);
}

}  // namespace
