#include "ActionCall.h"
#include "DidlDuration.h"
#include "Parts.h"
#include "Transport.h"
#include "TransportValues.h"

// AVTransport:1 over one transport that plays one track at a time.

namespace {

constexpr StateVariable kVariables[] = {
    {.name = "TransportState", .allowed = "NO_MEDIA_PRESENT,STOPPED,PLAYING,PAUSED_PLAYBACK,TRANSITIONING"},
    {.name = "TransportStatus", .allowed = "OK,ERROR_OCCURRED"},
    {.name = "PlaybackStorageMedium", .allowed = "NONE,NETWORK"},
    {.name = "RecordStorageMedium", .allowed = "NOT_IMPLEMENTED"},
    {.name = "PossiblePlaybackStorageMedia"},
    {.name = "PossibleRecordStorageMedia"},
    {.name = "CurrentPlayMode", .refusal = 712, .allowed = "NORMAL"},
    {.name = "TransportPlaySpeed"},
    {.name = "RecordMediumWriteStatus", .allowed = "NOT_IMPLEMENTED"},
    {.name = "CurrentRecordQualityMode", .allowed = "NOT_IMPLEMENTED"},
    {.name = "PossibleRecordQualityModes"},
    {.name = "NumberOfTracks", .type = ValueType::kUi4, .range = {0, 1}},
    {.name = "CurrentTrack", .type = ValueType::kUi4, .range = {0, 1}},
    {.name = "CurrentTrackDuration"},
    {.name = "CurrentMediaDuration"},
    {.name = "CurrentTrackMetaData"},
    {.name = "CurrentTrackURI"},
    {.name = "AVTransportURI"},
    {.name = "AVTransportURIMetaData"},
    {.name = "NextAVTransportURI"},
    {.name = "NextAVTransportURIMetaData"},
    {.name = "CurrentTransportActions"},
    {.name = "RelativeTimePosition"},
    {.name = "AbsoluteTimePosition"},
    {.name = "RelativeCounterPosition", .type = ValueType::kI4},
    {.name = "AbsoluteCounterPosition", .type = ValueType::kI4},
    {.name = "LastChange", .evented = true},
    {.name = "A_ARG_TYPE_SeekMode", .refusal = 710, .allowed = "TRACK_NR,REL_TIME,ABS_TIME"},
    {.name = "A_ARG_TYPE_SeekTarget"},
    {.name = "A_ARG_TYPE_InstanceID", .type = ValueType::kUi4},
};

constexpr Argument kInstance = {"InstanceID", "A_ARG_TYPE_InstanceID"};

void setUri(RendererParts& parts, ActionCall& call) {
  parts.transport.setSource(call.in("CurrentURI"), call.in("CurrentURIMetaData"), call.checkTicket);
}

void setNextUri(RendererParts& parts, ActionCall& call) {
  parts.transport.setNextSource(call.in("NextURI"), call.in("NextURIMetaData"), call.checkTicket);
}

// What is asked for are values of state variables.
void answerFromState(RendererParts& parts, ActionCall& call) {
  const TransportSnapshot now = parts.transport.snapshot();
  for (const Argument& output : call.action().outputs()) {
    call.out(output.name, transportValue(output.variable, now));
  }
}

void stop(RendererParts& parts, ActionCall&) { parts.transport.stop(); }

void play(RendererParts& parts, ActionCall& call) { parts.transport.play(call.in("Speed")); }

void pause(RendererParts& parts, ActionCall&) { parts.transport.pause(); }

// Returns: where the only track begins; none for another track.
std::optional<int> firstTrack(const std::string& number) {
  return number == "1" ? std::optional(0) : std::nullopt;
}

void seek(RendererParts& parts, ActionCall& call) {
  const std::string& target = call.in("Target");
  const bool isTrack = call.in("Unit") == "TRACK_NR";
  const std::optional<int> ms = isTrack ? firstTrack(target) : findDurationMs(target.c_str());
  if (!ms) throw ActionError{711};
  parts.transport.seek(*ms);
}

void next(RendererParts& parts, ActionCall&) { parts.transport.next(); }

// A track that was played is forgotten.
void previous(RendererParts&, ActionCall&) { throw ActionError{711}; }

void setPlayMode(RendererParts&, ActionCall&) {}  // the one that is allowed is always on

constexpr Action kActions[] = {
    {"SetAVTransportURI",
     {{kInstance, {"CurrentURI", "AVTransportURI"}, {"CurrentURIMetaData", "AVTransportURIMetaData"}}},
     {},
     setUri,
     RunsOn::kTransport,
     true,
     true},
    {"SetNextAVTransportURI",
     {{kInstance, {"NextURI", "NextAVTransportURI"}, {"NextURIMetaData", "NextAVTransportURIMetaData"}}},
     {},
     setNextUri,
     RunsOn::kTransport,
     true},
    {"GetMediaInfo",
     {{kInstance}},
     {{{"NrTracks", "NumberOfTracks"},
       {"MediaDuration", "CurrentMediaDuration"},
       {"CurrentURI", "AVTransportURI"},
       {"CurrentURIMetaData", "AVTransportURIMetaData"},
       {"NextURI", "NextAVTransportURI"},
       {"NextURIMetaData", "NextAVTransportURIMetaData"},
       {"PlayMedium", "PlaybackStorageMedium"},
       {"RecordMedium", "RecordStorageMedium"},
       {"WriteStatus", "RecordMediumWriteStatus"}}},
     answerFromState,
     RunsOn::kMemory},
    {"GetTransportInfo",
     {{kInstance}},
     {{{"CurrentTransportState", "TransportState"},
       {"CurrentTransportStatus", "TransportStatus"},
       {"CurrentSpeed", "TransportPlaySpeed"}}},
     answerFromState,
     RunsOn::kMemory},
    {"GetPositionInfo",
     {{kInstance}},
     {{{"Track", "CurrentTrack"},
       {"TrackDuration", "CurrentTrackDuration"},
       {"TrackMetaData", "CurrentTrackMetaData"},
       {"TrackURI", "CurrentTrackURI"},
       {"RelTime", "RelativeTimePosition"},
       {"AbsTime", "AbsoluteTimePosition"},
       {"RelCount", "RelativeCounterPosition"},
       {"AbsCount", "AbsoluteCounterPosition"}}},
     answerFromState,
     RunsOn::kMemory},
    {"GetDeviceCapabilities",
     {{kInstance}},
     {{{"PlayMedia", "PossiblePlaybackStorageMedia"},
       {"RecMedia", "PossibleRecordStorageMedia"},
       {"RecQualityModes", "PossibleRecordQualityModes"}}},
     answerFromState,
     RunsOn::kMemory},
    {"GetTransportSettings",
     {{kInstance}},
     {{{"PlayMode", "CurrentPlayMode"}, {"RecQualityMode", "CurrentRecordQualityMode"}}},
     answerFromState,
     RunsOn::kMemory},
    {"Stop", {{kInstance}}, {}, stop, RunsOn::kTransport, false, true},
    {"Play", {{kInstance, {"Speed", "TransportPlaySpeed"}}}, {}, play, RunsOn::kTransport},
    {"Pause", {{kInstance}}, {}, pause, RunsOn::kTransport},
    {"Seek",
     {{kInstance, {"Unit", "A_ARG_TYPE_SeekMode"}, {"Target", "A_ARG_TYPE_SeekTarget"}}},
     {},
     seek,
     RunsOn::kTransport},
    {"Next", {{kInstance}}, {}, next, RunsOn::kTransport},
    {"Previous", {{kInstance}}, {}, previous, RunsOn::kTransport},
    {"SetPlayMode", {{kInstance, {"NewPlayMode", "CurrentPlayMode"}}}, {}, setPlayMode, RunsOn::kMemory},
    {"GetCurrentTransportActions",
     {{kInstance}},
     {{{"Actions", "CurrentTransportActions"}}},
     answerFromState,
     RunsOn::kMemory},
};

}  // namespace

const Service kAvTransport = {"AVTransport", kVariables, kActions, 718};
