// The desktop handler, asked through the player.
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "TestVm.h"

namespace {

enum { kStopped, kPlaying, kPaused };

class DesktopHandler : public testing::Test {
 protected:
  int state() const { return answer(&TarqDmrPlayerInterface::GetState); }
  int position() const { return answer(&TarqDmrPlayerInterface::GetCurrentPosition); }
  int duration() const { return answer(&TarqDmrPlayerInterface::GetTrackDuration); }
  std::string actions() const {
    char* text = nullptr;
    EXPECT_EQ(player_->GetAction(0, &text), 0);
    return PlayerOf::taken(text);
  }
  unsigned int volume(const char* channel) const {
    unsigned int value = 0;
    EXPECT_EQ(player_->GetVolume(0, channel, 0, &value), 0);
    return value;
  }
  int load(const char* uri, int durationMs) {
    const int result = player_->SetDataSource(0, uri, nullptr, "audio/mpeg");
    player_.handler().setTrackDuration(durationMs);
    return result;
  }
  static void wait(int ms) { std::this_thread::sleep_for(std::chrono::milliseconds(ms)); }

  PlayerOf player_{"com.orsa.tarq.dlna.DesktopRendererHandler"};

 private:
  int answer(int (TarqDmrPlayerInterface::*ask)(unsigned int, int*)) const {
    int value = -1;
    EXPECT_EQ((player_.object()->*ask)(0, &value), 0);
    return value;
  }
};

TEST_F(DesktopHandler, MovesBetweenItsStates) {
  EXPECT_EQ(player_->Start(0, "1"), 10) << "there is nothing to play";
  EXPECT_EQ(actions(), "");
  EXPECT_EQ(load("u", 60000), 0);
  EXPECT_EQ(player_->Pause(0), 10);
  EXPECT_EQ(player_->SeekTo(0, 1), 10);
  EXPECT_EQ(player_->Start(0, "3"), 9);
  EXPECT_EQ(actions(), "Play");
  EXPECT_EQ(player_->Start(0, "1"), 0);
  EXPECT_EQ(state(), kPlaying);
  EXPECT_EQ(actions(), "Play,Stop,Pause,Seek");
  EXPECT_EQ(player_->SeekTo(0, 60001), 9);
  EXPECT_EQ(player_->SeekTo(0, -1), 9);
  EXPECT_EQ(player_->SeekTo(0, 30000), 0);
  EXPECT_EQ(player_->Pause(0), 0);
  EXPECT_EQ(state(), kPaused);
  EXPECT_EQ(actions(), "Play,Stop,Seek");
  const int paused = position();
  EXPECT_GE(paused, 30000);
  wait(30);
  EXPECT_EQ(position(), paused);
  EXPECT_EQ(player_->Start(0, "4"), 0);
  wait(30);
  EXPECT_GE(position(), paused + 120);
  EXPECT_EQ(player_->Stop(0), 0);
  EXPECT_EQ(state(), kStopped);
  EXPECT_EQ(position(), 0);
}

TEST_F(DesktopHandler, TakesTheNextSourceAtTheEnd) {
  EXPECT_EQ(load("u", 400), 0);
  EXPECT_EQ(player_->Next(0), 10);
  EXPECT_EQ(player_->SetNextDataSource(0, "v", nullptr, ""), 0);
  EXPECT_EQ(player_->Start(0, "1"), 0);
  EXPECT_EQ(actions(), "Play,Stop,Pause,Seek,Next");
  wait(420);
  EXPECT_EQ(state(), kPlaying);
  EXPECT_EQ(duration(), 0) << "of the next one nothing is known";
  EXPECT_EQ(actions(), "Play,Stop,Pause,Seek");
  player_.handler().setTrackDuration(1);
  wait(5);
  EXPECT_EQ(state(), kStopped);
}

TEST_F(DesktopHandler, KeepsVolumeAndMuteOfEachChannel) {
  EXPECT_EQ(player_->SetVolume(0, "LF", 30, 0), 0);
  EXPECT_EQ(player_->SetVolume(0, "LF", 101, 0), 9);
  EXPECT_EQ(player_->SetVolume(0, "Nowhere", 1, 0), 9);
  EXPECT_EQ(volume("LF"), 30u);
  EXPECT_EQ(volume("RF"), 100u);
  bool mute = false;
  EXPECT_EQ(player_->SetMute(0, "Master", true), 0);
  EXPECT_EQ(player_->GetMute(0, "Master", mute), 0);
  EXPECT_TRUE(mute);
}

TEST_F(DesktopHandler, LeavesThePlayingToAProgram) {
  ASSERT_TRUE(player_.handler().setProgram("/no/such/program {uri}"));
  EXPECT_EQ(load("u", 1), 0);
  EXPECT_EQ(player_->Start(0, "1"), 100);
  EXPECT_EQ(state(), kStopped);
  ASSERT_TRUE(player_.handler().setProgram("sleep {uri}"));
  EXPECT_EQ(load("-1", 0), 9) << "a program would take it for an option";
  EXPECT_EQ(load("60", 1), 0);
  EXPECT_EQ(player_->Start(0, "2"), 9);
  EXPECT_EQ(player_->Start(0, "1"), 0);
  wait(20);
  EXPECT_EQ(state(), kPlaying) << "the program decides when the track is over";
  EXPECT_EQ(player_->Pause(0), 2);
  EXPECT_EQ(player_->Stop(0), 0);
  EXPECT_EQ(state(), kStopped);
}

}  // namespace
