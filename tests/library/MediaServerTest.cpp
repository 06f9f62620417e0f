// A survey of a real media server, minidlna, on another machine.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "Network.h"
#include "Program.h"
#include "TestRows.h"

namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

// minidlna with a few files, made when it starts.
class MediaServer {
 public:
  MediaServer() {
    EXPECT_NE(::mkdtemp(folder_.data()), nullptr);
    const std::string make =
        "cd " + folder_ +
        " && mkdir media db && cp " TARQ_SOURCES
        "/desktop/renderer/icons/*.jpg media && encode() { mpv --no-config --really-quiet \"$@\"; } && "
        "encode --o=media/a.mp3 av://lavfi:sine=duration=1 && "
        "encode --o=media/b.flac av://lavfi:sine=duration=1 && "
        "encode --o=media/c.mpg --ovc=mpeg2video av://lavfi:testsrc=duration=1:size=320x240 && "
        "encode --o=media/d.mkv --ovc=mpeg4 av://lavfi:testsrc=duration=1:size=320x240";
    if (std::system(make.c_str()) != 0) ADD_FAILURE() << "no media could be made";
    std::ofstream(folder_ + "/conf")
        << "media_dir=" << folder_ << "/media\ndb_dir=" << folder_ << "/db\nlog_dir=" << folder_
        << "/db\nport=8200\ninotify=no\nnetwork_interface=v0\nfriendly_name=Library\n";
    child_ = startProgram({"--net=" + Network::otherMachine, "minidlnad", "-S", "-f", folder_ + "/conf", "-P",
                           folder_ + "/db/pid"},
                          in_.descriptor(), out_.descriptor(), out_.descriptor(), "nsenter");
    EXPECT_TRUE(becomesTrue([&] { return survey({}).out.find("6 items") != std::string::npos; }))
        << out_.content();
  }
  ~MediaServer() {
    ::kill(child_, SIGTERM);
    waitFor(child_);
    fs::remove_all(folder_);
  }

  // The folders as they are, so that each file is there once.
  Outcome survey(const std::vector<std::string>& options) const {
    std::vector<std::string> words = {"survey", kUrl, "--container", "64"};
    words.insert(words.end(), options.begin(), options.end());
    return runProgram(words);
  }

  static constexpr const char* kUrl = "http://10.9.0.1:8200/rootDesc.xml";

 private:
  std::string folder_ = fs::temp_directory_path() / "tarq-test-XXXXXX";
  MemoryFile in_;
  MemoryFile out_;
  pid_t child_;
};

class RealServer : public testing::Test {
 protected:
  static void SetUpTestSuite() { server = std::make_unique<MediaServer>(); }
  static void TearDownTestSuite() { server.reset(); }

  static inline std::unique_ptr<MediaServer> server;
};

TEST_F(RealServer, IsSurveyedAsItIsChecked) {
  const MemoryFile ndjson;
  const Outcome survey = server->survey({"--regions", "0,1,16", "--probe", "--ndjson", ndjson.path()});
  EXPECT_EQ(survey.exitCode, 0) << survey.err;
  EXPECT_EQ(survey.out.find("Problems"), std::string::npos) << survey.out;
  const std::vector<std::string> lines = linesOf(ndjson.content());
  const std::vector<std::string> checks = linesOf(runProgram({"check", "--batch", ndjson.path()}).out);
  ASSERT_EQ(lines.size(), 3 * 6U);
  ASSERT_EQ(checks.size(), lines.size());
  for (size_t i = 0; i < lines.size(); ++i) {
    const std::string result = lines[i].substr(lines[i].rfind("\"result\":") + 9);
    const std::string id = lines[i].substr(1, lines[i].find(",\"title\"") - 1);
    EXPECT_EQ(result.substr(0, result.size() - 2) + "," + id + "}", checks[i]);
  }
}

TEST_F(RealServer, IsFoundByName) {
  EXPECT_THAT(runProgram({"servers", "--interface", "v1", "--timeout", "2", "--json"}).out,
              AllOf(StartsWith(R"([{"name":"Library","address":"10.9.0.1","model":)"),
                    HasSubstr(R"(,"url":"http://10.9.0.1:8200/rootDesc.xml"}])")));
  EXPECT_THAT(runProgram({"survey", "LIBRARY", "--limit", "1"}).out, HasSubstr("Library"));
  const Outcome none = runProgram({"survey", "attic", "--interface", "v1"});
  EXPECT_EQ(none.exitCode, 2);
  EXPECT_EQ(none.err, "tarq-dmr: no media server has \"attic\" in its name; found: Library\n");
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (!Network::make()) {
    std::puts("no network namespace can be made here");
    return 0;
  }
  return RUN_ALL_TESTS();
}
