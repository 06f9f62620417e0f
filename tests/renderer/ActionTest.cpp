// What the actions of a running renderer answer.
#include <gtest/gtest.h>

#include "ControlPoint.h"
#include "TestRows.h"

namespace {

struct Call {
  const char* name;
  const char* words;
  int error;
};
constexpr Call kCalls[] = {
    {"NoArguments", "AVTransport GetTransportInfo", 402},
    {"Missing", "AVTransport SetAVTransportURI InstanceID=0 CurrentURI=x", 402},
    {"TwiceAndMissing", "AVTransport SetAVTransportURI InstanceID=0 CurrentURI=x CurrentURI=x", 402},
    {"Surplus", "AVTransport GetTransportInfo InstanceID=0 Speed=1", 402},
    {"OtherName", "AVTransport GetTransportInfo instanceID=0", 402},
    {"OtherOrder", "RenderingControl SetVolume DesiredVolume=33 Channel=Master InstanceID=0", 0},
    {"UnknownAction", "AVTransport Record InstanceID=0", 401},
    {"ActionOfAnotherService", "RenderingControl GetTransportInfo InstanceID=0", 401},
    {"InstanceOfTransport", "AVTransport GetTransportInfo InstanceID=1", 718},
    {"InstanceOfRendering", "RenderingControl ListPresets InstanceID=1", 702},
    {"InstanceAboveInt", "AVTransport GetTransportInfo InstanceID=4294967295", 718},
    {"InstanceAboveItsType", "AVTransport GetTransportInfo InstanceID=4294967296", 402},
    {"InstanceNegative", "AVTransport GetTransportInfo InstanceID=-1", 402},
    {"InstanceEmpty", "AVTransport GetTransportInfo InstanceID=", 402},
    {"OtherConnection", "ConnectionManager GetCurrentConnectionInfo ConnectionID=-1", 706},
    {"UnknownPreset", "RenderingControl SelectPreset InstanceID=0 PresetName=x", 701},
    {"UnknownChannel", "RenderingControl GetMute InstanceID=0 Channel=X", 402},
    {"OtherPlayMode", "AVTransport SetPlayMode InstanceID=0 NewPlayMode=RANDOM", 712},
};

TEST_ROWS(Action, ChecksItsArguments, kCalls) { EXPECT_EQ(act(row.words).error(), row.error); }

// Volume and mute afterwards; it begins with 50 0.
constexpr OutcomeRow kRenderingValues[] = {
    {"Loudest", "Volume=100", "0 100 0"},
    {"TooLoud", "Volume=101", "601 50 0"},
    {"BelowSilence", "Volume=-1", "601 50 0"},
    {"AboveItsType", "Volume=65536", "601 50 0"},
    {"Above64Bits", "Volume=99999999999999999999", "402 50 0"},
    {"HalfANumber", "Volume=3x", "402 50 0"},
    {"EmptyVolume", "Volume=", "402 50 0"},
    {"MuteYes", "Mute=YES", "0 50 1"},
    {"MuteTrue", "Mute=true", "0 50 1"},
    {"MuteFalse", "Mute=false", "0 50 0"},
    {"MuteTwo", "Mute=2", "402 50 0"},
};

TEST_ROWS(Action, SetsTheRendering, kRenderingValues) {
  const std::string input = row.input;
  const std::string master = "InstanceID=0 Channel=Master ";
  setVolume(50);
  act("RenderingControl SetMute " + master + "DesiredMute=0");
  const int error =
      act("RenderingControl Set" + input.substr(0, input.find('=')) + " " + master + "Desired" + input)
          .error();
  const std::string volume = act("RenderingControl GetVolume " + master).value("CurrentVolume");
  const std::string mute = act("RenderingControl GetMute " + master).value("CurrentMute");
  EXPECT_EQ(std::to_string(error) + " " + volume + " " + mute, row.outcome);
}

// In each state: what the action answers, and the state afterwards.
const struct {
  const char* name;
  const char* call;
  const char* outcomes[4];
} kTransitions[] = {
    {"Play", "Play Speed=1", {"702", "0 PLAYING", "0 PLAYING", "0 PLAYING"}},
    {"PlayAtNoSpeed", "Play Speed=3", {"702", "717", "717", "717"}},
    {"Pause", "Pause", {"701", "701", "0 PAUSED_PLAYBACK", "701"}},
    {"Stop", "Stop", {"0", "0", "0 STOPPED", "0 STOPPED"}},
    {"Seek", "Seek Unit=REL_TIME Target=0:09:00", {"701", "701", "0", "0"}},
    {"SeekBeyond", "Seek Unit=REL_TIME Target=0:10:01", {"701", "701", "711", "711"}},
    {"Next", "Next", {"711", "711", "711", "711"}},
};

TEST_ROWS(Action, ChangesTheState, kTransitions) {
  const char* const states[] = {"NO_MEDIA_PRESENT", "STOPPED", "PLAYING", "PAUSED_PLAYBACK"};
  for (size_t i = 0; i < std::size(states); ++i) {
    bringInto(states[i]);
    const std::vector<std::string> outcome = wordsOf(row.outcomes[i]);
    EXPECT_EQ(std::to_string(avt(row.call).error()), outcome[0]) << states[i];
    const std::string after = outcome.size() == 1 ? states[i] : outcome[1];
    EXPECT_TRUE(becomesTrue([&] { return transportState() == after; })) << states[i] << transportState();
  }
}

constexpr OutcomeRow kSeeks[] = {
    {"Relative", "Unit=REL_TIME Target=0:02:03", "0 0:02:03"},
    {"Absolute", "Unit=ABS_TIME Target=0:00:07", "0 0:00:07"},
    {"Fraction", "Unit=REL_TIME Target=0:1:5.500", "0 0:01:05"},
    {"FirstTrack", "Unit=TRACK_NR Target=1", "0 0:00:00"},
    {"SecondTrack", "Unit=TRACK_NR Target=2", "711"},
    {"NoTime", "Unit=REL_TIME Target=soon", "711"},
    {"AboveInt", "Unit=REL_TIME Target=999999999:00:00", "711"},
    {"Bytes", "Unit=X_DLNA_REL_BYTE Target=1", "710"},
};

TEST_ROWS(Action, Seeks, kSeeks) {
  bringInto("PAUSED_PLAYBACK");
  const int error = avt(std::string("Seek ") + row.input).error();
  const std::string position = error == 0 ? " " + avt("GetPositionInfo").value("RelTime") : "";
  EXPECT_EQ(std::to_string(error) + position, row.outcome);
}

const struct {
  const char* name;
  std::string path;
  int error;
} kSources[] = {
    {"Forbidden", "/status403", 716},
    {"NotFound", "/status404", 716},
    {"Busy", "/status503", 715},
    {"NoServer", "http://10.9.0.2:1/a", 716},
    {"LocalFile", "file:///etc/hostname", 714},
    {"OtherTransport", "rtsp://10.9.0.2/a", 714},
};

TEST_ROWS(Action, RefusedSourceChangesNothing, kSources) {
  bringInto("PLAYING");
  const std::string uri = row.path.starts_with('/') ? MediaServer::url(row.path) : row.path;
  EXPECT_EQ(setSource(uri, musicDidl(uri)), row.error);
  EXPECT_EQ(transportState(), "PLAYING");
  EXPECT_EQ(avt("GetMediaInfo").value("CurrentURI"), MediaServer::url("/a"));
}

TEST(Action, TakesMetadataAsItIsWritten) {
  const std::string uri = MediaServer::url("/a?x=1&y=2");
  std::string metadata = musicDidl(uri);
  metadata.insert(metadata.find("<res"), "<desc>A &amp; \"B\"\nü" + std::string(1 << 20, 'x') + "</desc>");
  EXPECT_EQ(setSource(uri, metadata), 0);
  const HttpAnswer info = avt("GetMediaInfo");
  EXPECT_EQ(info.value("CurrentURI"), uri);
  EXPECT_TRUE(info.value("CurrentURIMetaData") == metadata);  // too long to be printed
}

TEST(Action, GoesOnToTheNextTrack) {
  const std::string first = MediaServer::url("/1");
  const std::string second = MediaServer::url("/2");
  ASSERT_EQ(setSource(first, musicDidl(first, "0:00:01")), 0);
  const Arguments next = {{"InstanceID", "0"}, {"NextURI", second}, {"NextURIMetaData", musicDidl(second)}};
  ASSERT_EQ(actionRequest("AVTransport", "SetNextAVTransportURI", next).send().error(), 0);
  EXPECT_EQ(avt("GetMediaInfo").value("NextURI"), second);
  avt("Play Speed=1");
  EXPECT_TRUE(becomesTrue([&] { return avt("GetMediaInfo").value("CurrentURI") == second; }));
  EXPECT_EQ(avt("GetMediaInfo").value("NextURI"), "");
  EXPECT_TRUE(becomesTrue([&] { return transportState() == "PLAYING"; }));
  EXPECT_EQ(avt("GetPositionInfo").value("TrackDuration"), "0:10:00");
}

TEST(Action, StopEndsACheck) {
  bringInto("PLAYING");
  const std::string uri = MediaServer::url("/slow");
  HttpConnection connection;
  connection.send(sourceRequest(uri, musicDidl(uri)).text());
  ::usleep(200'000);
  EXPECT_EQ(avt("Stop").error(), 0);
  EXPECT_EQ(connection.answer().error(), 501);
  EXPECT_EQ(transportState(), "STOPPED");
}

TEST(Action, WaitsForASlowServerForFourSeconds) {
  const auto begun = std::chrono::steady_clock::now();
  const std::string uri = MediaServer::url("/slow");
  EXPECT_EQ(setSource(uri, musicDidl(uri)), 716);
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begun;
  EXPECT_NEAR(took.count(), 4, 0.9);
}

}  // namespace
