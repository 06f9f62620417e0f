#include "TransportValues.h"

#include <algorithm>

#include "CommaList.h"
#include "DidlDuration.h"

namespace {

using Snapshot = TransportSnapshot;

constexpr const char* kNotImplemented = "NOT_IMPLEMENTED";
constexpr const char* kNoCount = "2147483647";  // the player counts no positions

struct TransportValue {
  const char* variable;
  std::string (*read)(const Snapshot&);
  bool isTold = true;
};

std::string uriOf(const std::shared_ptr<const CheckedSource>& source) { return source ? source->uri : ""; }
std::string metadataOf(const std::shared_ptr<const CheckedSource>& source) {
  return source ? source->metadata : "";
}

std::string actionsOf(const Snapshot& now) {
  return now.actions + (isListed("Seek", now.actions) ? ",X_DLNA_SeekTime" : "");
}

std::string trackCount(const Snapshot& now) { return now.current ? "1" : "0"; }
std::string duration(const Snapshot& now) { return durationText(now.durationMs); }
std::string position(const Snapshot& now) { return durationText(now.positionMs); }
std::string currentUri(const Snapshot& now) { return uriOf(now.current); }
std::string currentMetadata(const Snapshot& now) { return metadataOf(now.current); }
std::string notImplemented(const Snapshot&) { return kNotImplemented; }
std::string noCount(const Snapshot&) { return kNoCount; }

constexpr TransportValue kValues[] = {
    {"TransportState",
     [](const Snapshot& now) -> std::string {
       return stateWord(now.seekPolls > 0 ? TransportState::kTransitioning : now.state);
     }},
    {"TransportStatus",
     [](const Snapshot& now) -> std::string { return now.failed ? "ERROR_OCCURRED" : "OK"; }},
    {"PlaybackStorageMedium",
     [](const Snapshot& now) -> std::string { return now.current ? "NETWORK" : "NONE"; }},
    {"RecordStorageMedium", notImplemented},
    {"PossiblePlaybackStorageMedia", [](const Snapshot&) -> std::string { return "NONE,NETWORK"; }},
    {"PossibleRecordStorageMedia", notImplemented},
    {"CurrentPlayMode", [](const Snapshot&) -> std::string { return "NORMAL"; }},
    {"TransportPlaySpeed", [](const Snapshot& now) { return now.speed; }},
    {"RecordMediumWriteStatus", notImplemented},
    {"CurrentRecordQualityMode", notImplemented},
    {"PossibleRecordQualityModes", notImplemented},
    {"NumberOfTracks", trackCount},
    {"CurrentTrack", trackCount},
    {"CurrentTrackDuration", duration},
    {"CurrentMediaDuration", duration},
    {"CurrentTrackMetaData", currentMetadata},
    {"CurrentTrackURI", currentUri},
    {"AVTransportURI", currentUri},
    {"AVTransportURIMetaData", currentMetadata},
    {"NextAVTransportURI", [](const Snapshot& now) { return uriOf(now.next); }},
    {"NextAVTransportURIMetaData", [](const Snapshot& now) { return metadataOf(now.next); }},
    {"CurrentTransportActions", actionsOf},
    {"RelativeTimePosition", position, false},
    {"AbsoluteTimePosition", position, false},
    {"RelativeCounterPosition", noCount, false},
    {"AbsoluteCounterPosition", noCount, false},
};

}  // namespace

const char* stateWord(TransportState state) {
  switch (state) {
    case TransportState::kNoMedia:
      return "NO_MEDIA_PRESENT";
    case TransportState::kStopped:
      return "STOPPED";
    case TransportState::kTransitioning:
      return "TRANSITIONING";
    case TransportState::kPlaying:
      return "PLAYING";
    case TransportState::kPaused:
      return "PAUSED_PLAYBACK";
  }
  return "";
}

std::string transportValue(std::string_view variable, const TransportSnapshot& now) {
  const auto row = std::ranges::find_if(
      kValues, [&](const TransportValue& each) { return std::string_view(each.variable) == variable; });
  return row->read(now);
}

std::vector<NamedValue> toldTransportValues(const TransportSnapshot& now) {
  std::vector<NamedValue> values;
  for (const TransportValue& row : kValues) {
    if (row.isTold) values.push_back({row.variable, row.read(now)});
  }
  return values;
}
