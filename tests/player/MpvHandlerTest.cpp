// The handler that plays with mpv, through the player and through the program.
#include <gtest/gtest.h>
#include <httplib.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <thread>

#include "Program.h"
#include "TestVm.h"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

bool happens(const std::function<bool()>& event) {
  for (const auto end = Clock::now() + std::chrono::seconds(20); Clock::now() < end; ::usleep(2000)) {
    if (event()) return true;
  }
  return false;
}

std::string number(uint32_t value) { return {reinterpret_cast<const char*>(&value), sizeof value}; }

std::string silence(uint32_t seconds) {
  constexpr uint32_t kRate = 8000;  // one byte each
  const uint32_t size = seconds * kRate;
  return "RIFF" + number(size + 36) + "WAVEfmt " + number(16) + number(0x10001) + number(kRate) +
         number(kRate) + number(0x80001) + "data" + number(size) + std::string(size, '\x80');
}

// Serves "/2" and "/2/more", tracks of two seconds, and the like; and "/text".
class TrackServer {
 public:
  TrackServer() {
    server_.Get(R"(/(\d+).*)", [](const httplib::Request& request, httplib::Response& response) {
      response.set_header("Accept-Ranges", "bytes");
      response.set_content(silence(static_cast<uint32_t>(std::stoul(request.matches[1]))), "audio/mpeg");
    });
    server_.Get("/text", [](const httplib::Request&, httplib::Response& response) {
      response.set_content("not a track", "audio/mpeg");
    });
  }
  ~TrackServer() { server_.stop(); }

  std::string url(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(port_) + path;
  }

 private:
  httplib::Server server_;
  const int port_ = server_.bind_to_any_port("127.0.0.1");
  const std::jthread thread_{[this] { server_.listen_after_bind(); }};
};

std::string content(const fs::path& file) {
  std::ifstream stream(file);
  return {std::istreambuf_iterator<char>(stream), {}};
}

struct Mpv {
  pid_t id = 0;
  std::string commandLine;  // empty: it is not there, or over
};

// The mpv that a process has started.
Mpv mpvOf(pid_t parent) {
  for (const auto& thread : fs::directory_iterator("/proc/" + std::to_string(parent) + "/task")) {
    for (const std::string& child : wordsOf(content(thread.path() / "children"))) {
      const std::string commandLine = content("/proc/" + child + "/cmdline");
      if (commandLine.starts_with("mpv")) return {std::stoi(child), commandLine};
    }
  }
  return {};
}

class MpvHandler : public testing::Test {
 protected:
  void SetUp() override {
    player_.handler().open({"--ao=null", "--vo=null"});
    const std::string failure = player_.handler().failure();
    if (failure.starts_with("Cannot run program")) GTEST_SKIP() << failure;
    ASSERT_EQ(failure, "");
  }

  int load(const std::string& uri) { return player_->SetDataSource(0, uri.c_str(), nullptr, "audio/mpeg"); }
  int queue(const std::string& uri) { return player_->SetNextDataSource(0, uri.c_str(), nullptr, ""); }
  bool reaches(int state) const {
    return happens([&] { return answer(&TarqDmrPlayerInterface::GetState) == state; });
  }
  int position() const { return answer(&TarqDmrPlayerInterface::GetCurrentPosition); }
  int duration() const { return answer(&TarqDmrPlayerInterface::GetTrackDuration); }
  int answer(int (TarqDmrPlayerInterface::*ask)(unsigned int, int*)) const {
    int value = -1;
    EXPECT_EQ((player_.object()->*ask)(0, &value), 0);
    return value;
  }
  std::string actions() const {
    char* actions = nullptr;
    EXPECT_EQ(player_->GetAction(0, &actions), 0);
    return PlayerOf::taken(actions);
  }

  // In this order: the server ignores SIGPIPE, and the VM wants to be the last that decides on it.
  struct Stage {
    TrackServer server;
    PlayerOf player{"com.orsa.tarq.dlna.MpvRendererHandler"};
  };
  static Stage& stage() {
    static Stage theStage;
    return theStage;
  }
  TrackServer& server_ = stage().server;
  PlayerOf& player_ = stage().player;
};

enum State { kStopped, kPlaying, kPaused };

TEST_F(MpvHandler, PlaysTheNextSourceAfterTheLastSound) {
  EXPECT_EQ(player_->Start(0, "1"), 10) << "there is nothing to play";
  const std::string first = server_.url("/2"), second = server_.url("/2/more");
  const auto begin = Clock::now();
  EXPECT_TRUE(load(first) == 0 && queue(server_.url("/1")) == 0 && player_->Start(0, "1") == 0);
  EXPECT_EQ(queue(second), 0) << "instead of the other one";
  EXPECT_TRUE(happens([&] { return duration() == 2000; }));
  EXPECT_EQ(actions(), "Play,Stop,Pause,Seek,Next");
  EXPECT_TRUE(happens([&] { return player_.handler().currentSource() == second; }));
  EXPECT_EQ(player_.handler().currentTrack(), 2);
  EXPECT_EQ(answer(&TarqDmrPlayerInterface::GetState), kPlaying);
  EXPECT_TRUE(happens([&] { return duration() == 2000 && position() > 0; }))
      << "equal durations are known, too";
  EXPECT_EQ(actions(), "Play,Stop,Pause,Seek");
  EXPECT_TRUE(reaches(kStopped));
  EXPECT_GT(Clock::now() - begin, std::chrono::milliseconds(3800));
  EXPECT_EQ(player_.handler().failure(), "");
  EXPECT_EQ(actions(), "Play");
}

TEST_F(MpvHandler, ObeysItsControls) {
  EXPECT_EQ(load(server_.url("/60")), 0);
  EXPECT_TRUE(player_->Pause(0) == 10 && player_->SeekTo(0, 1) == 10 && player_->Start(0, "2") == 9);
  EXPECT_TRUE(player_->Start(0, "1") == 0 && player_->SeekTo(0, 30000) == 0) << "before the source is loaded";
  EXPECT_TRUE(happens([&] { return duration() == 60000 && position() > 30100; }));
  EXPECT_TRUE(player_->SeekTo(0, 60001) == 9 && player_->SeekTo(0, -1) == 9);
  EXPECT_TRUE(player_->Pause(0) == 0 && player_->SeekTo(0, 10000) == 0 && reaches(kPaused));
  EXPECT_EQ(actions(), "Play,Stop,Seek");
  ::usleep(200000);
  EXPECT_NEAR(position(), 10000, 500);
  EXPECT_TRUE(player_->Start(0, "1") == 0 && happens([&] { return position() > 10100; }));
  EXPECT_TRUE(player_->SetVolume(0, "Master", 33, 0) == 0 && player_->SetMute(0, "Master", true) == 0);
  EXPECT_TRUE(player_->SetVolume(0, "LF", 1, 0) == 9 && player_->SetVolume(0, "Master", 101, 0) == 9);
  unsigned int volume = 0;
  bool mute = false;
  EXPECT_TRUE(happens([&] {
    return player_->GetVolume(0, "Master", 0, &volume) == 0 && volume == 33 &&
           player_->GetMute(0, "Master", mute) == 0 && mute;
  }));
  EXPECT_TRUE(player_->Stop(0) == 0 && position() == 0 && duration() == 0 && reaches(kStopped));
}

const struct {
  const char* name;
  const char* path;
  const char* nextPath;
  const char* failure;  // null: mpv is killed
} kFailures[] = {
    {"Missing", "/missing", "/1", "loading failed"},
    {"NotATrack", "/text", "/1", "unrecognized file format"},
    {"Next", "/1", "/text", "unrecognized file format"},
    {"Mpv", "/60", "/1", nullptr},
};

TEST_F(MpvHandler, SaysWhyATrackFailedAndPlaysTheNext) {
  for (const auto& row : kFailures) {
    SCOPED_TRACE(row.name);
    EXPECT_TRUE(load(server_.url(row.path)) == 0 && queue(server_.url(row.nextPath)) == 0);
    EXPECT_EQ(player_->Start(0, "1"), 0);
    if (row.failure == nullptr) ::kill(mpvOf(::getpid()).id, SIGKILL);
    EXPECT_TRUE(reaches(kStopped));
    EXPECT_EQ(player_.handler().failure(), row.failure ? row.failure : "mpv ended with exit status 137");
    EXPECT_TRUE(load(server_.url("/60")) == 0 && player_->Start(0, "1") == 0);
    EXPECT_TRUE(happens([&] { return position() > 0; }));
    EXPECT_EQ(player_.handler().failure(), "");
  }
}

TEST_F(MpvHandler, OpensNothingOfThisMachine) {
  for (const char* uri : {"file:///etc/hostname", "/etc/hostname", "edl://a", "av://lavfi:sine", "http:/a"}) {
    EXPECT_TRUE(load(uri) == 9 && queue(uri) == 9) << uri;
  }
  EXPECT_TRUE(load("") == 0 && load("HTTPS://a") == 0 && queue("") == 0);
}

TEST_F(MpvHandler, IsGoneWithTheProgram) {
  const MemoryFile none, out, err;
  const pid_t program = startProgram({"play", server_.url("/60"), "--region", "1", "--player", "mpv",
                                      "--mpv-option=--ao=null", "--mpv-option=--vo=null"},
                                     none.descriptor(), out.descriptor(), err.descriptor());
  EXPECT_TRUE(happens([&] { return out.content().find(" / 0:01:00") != std::string::npos; }))
      << err.content();
  const Mpv mpv = mpvOf(program);
  const std::string socket =
      mpv.commandLine.substr(mpv.commandLine.find("/", mpv.commandLine.find("ipc-server")));
  EXPECT_FALSE(fs::exists(fs::path(socket.c_str()).parent_path())) << socket;
  ::kill(program, SIGKILL);
  waitFor(program);
  EXPECT_TRUE(happens([&] { return content("/proc/" + std::to_string(mpv.id) + "/cmdline").empty(); }));
}

}  // namespace
