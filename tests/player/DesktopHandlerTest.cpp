// The desktop handler, used through the player.
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "TestVm.h"

namespace {

class DesktopHandler : public testing::Test {
 protected:
  // And the actions that it allows.
  std::string state() const {
    static const std::string names[] = {"stopped: ", "playing: ", "paused: "};
    char* actions = nullptr;
    EXPECT_EQ(player_->GetAction(0, &actions), 0);
    return names[answer(&TarqDmrPlayerInterface::GetState)] + PlayerOf::taken(actions);
  }
  int position() const { return answer(&TarqDmrPlayerInterface::GetCurrentPosition); }
  int answer(int (TarqDmrPlayerInterface::*ask)(unsigned int, int*)) const {
    int value = -1;
    EXPECT_EQ((player_.object()->*ask)(0, &value), 0);
    return value;
  }
  int load(const char* uri, int durationMs) {
    const int result = player_->SetDataSource(0, uri, nullptr, "audio/mpeg");
    player_.handler().setTrackDuration(durationMs);
    return result;
  }
  static void wait(int ms) { std::this_thread::sleep_for(std::chrono::milliseconds(ms)); }

  PlayerOf player_{"com.orsa.tarq.dlna.DesktopRendererHandler"};
};

TEST_F(DesktopHandler, MovesBetweenItsStates) {
  EXPECT_EQ(player_->Start(0, "1"), 10) << "there is nothing to play";
  EXPECT_EQ(load("u", 60000), 0);
  EXPECT_TRUE(player_->Pause(0) == 10 && player_->SeekTo(0, 1) == 10 && player_->Start(0, "3") == 9);
  EXPECT_EQ(state(), "stopped: Play");
  EXPECT_EQ(player_->Start(0, "1"), 0);
  EXPECT_EQ(state(), "playing: Play,Stop,Pause,Seek");
  for (const int target : {60001, -1, 30000}) EXPECT_EQ(player_->SeekTo(0, target), target == 30000 ? 0 : 9);
  EXPECT_EQ(player_->Pause(0), 0);
  EXPECT_EQ(state(), "paused: Play,Stop,Seek");
  const int paused = position();
  EXPECT_GE(paused, 30000);
  wait(30);
  EXPECT_EQ(position(), paused);
  EXPECT_EQ(player_->Start(0, "4"), 0);
  wait(30);
  EXPECT_GE(position(), paused + 120);
  EXPECT_EQ(player_->Stop(0), 0);
  EXPECT_EQ(position(), 0);
}

TEST_F(DesktopHandler, TakesTheNextSourceAtTheEnd) {
  EXPECT_EQ(load("u", 400), 0);
  EXPECT_EQ(player_->SetNextDataSource(0, "v", nullptr, ""), 0);
  EXPECT_EQ(player_->Start(0, "1"), 0);
  EXPECT_EQ(state(), "playing: Play,Stop,Pause,Seek,Next");
  wait(420);
  EXPECT_EQ(state(), "playing: Play,Stop,Pause,Seek");
  EXPECT_EQ(answer(&TarqDmrPlayerInterface::GetTrackDuration), 0) << "nothing is known about the next one";
  player_.handler().setTrackDuration(1);
  wait(5);
  EXPECT_EQ(state(), "stopped: Play");
}

TEST_F(DesktopHandler, KeepsVolumeAndMuteOfEachChannel) {
  EXPECT_EQ(player_->SetVolume(0, "LF", 30, 0), 0);
  for (const char* channel : {"LF", "Nowhere"}) EXPECT_EQ(player_->SetVolume(0, channel, 101, 0), 9);
  unsigned int left = 0, right = 0;
  EXPECT_TRUE(player_->GetVolume(0, "LF", 0, &left) == 0 && player_->GetVolume(0, "RF", 0, &right) == 0);
  EXPECT_TRUE(left == 30 && right == 100);
  bool mute = false;
  EXPECT_TRUE(player_->SetMute(0, "Master", true) == 0 && player_->GetMute(0, "Master", mute) == 0 && mute);
}

TEST_F(DesktopHandler, LeavesThePlayingToAProgram) {
  ASSERT_TRUE(player_.handler().setProgram("sh -c 'sleep 60' {uri}"));
  for (const char* uri : {"-1", "file:///a", "httpx://a", "http:a"}) EXPECT_EQ(load(uri, 0), 9) << uri;
  EXPECT_EQ(load("HTTP://a", 1), 0);
  EXPECT_EQ(player_->Start(0, "1"), 0);
  wait(20);
  EXPECT_EQ(state(), "playing: Stop") << "the program decides when the track is over";
  EXPECT_TRUE(player_->Pause(0) == 2 && player_->Stop(0) == 0);
  EXPECT_EQ(state(), "stopped: Play");
}

}  // namespace
