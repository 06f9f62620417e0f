#include "ActionCall.h"
#include "Parts.h"

// ConnectionManager:1 of a renderer whose one connection, 0, is always there.

namespace {

constexpr StateVariable kVariables[] = {
    {.name = "SourceProtocolInfo", .evented = true},
    {.name = "SinkProtocolInfo", .evented = true},
    {.name = "CurrentConnectionIDs", .evented = true},
    {.name = "A_ARG_TYPE_ConnectionStatus",
     .allowed = "OK,ContentFormatMismatch,InsufficientBandwidth,UnreliableChannel,Unknown"},
    {.name = "A_ARG_TYPE_ConnectionManager"},
    {.name = "A_ARG_TYPE_Direction", .allowed = "Input,Output"},
    {.name = "A_ARG_TYPE_ProtocolInfo"},
    {.name = "A_ARG_TYPE_ConnectionID", .type = ValueType::kI4},
    {.name = "A_ARG_TYPE_AVTransportID", .type = ValueType::kI4},
    {.name = "A_ARG_TYPE_RcsID", .type = ValueType::kI4},
};

void getProtocolInfo(RendererParts& parts, ActionCall& call) { call.out("Sink", parts.sinkProtocolInfo); }

void getCurrentConnectionIds(RendererParts&, ActionCall& call) { call.out("ConnectionIDs", 0); }

void getCurrentConnectionInfo(RendererParts&, ActionCall& call) {
  if (call.number("ConnectionID") != 0) throw ActionError{706};
  call.out("RcsID", 0);
  call.out("AVTransportID", 0);
  call.out("PeerConnectionID", -1);
  call.out("Direction", "Input");
  call.out("Status", "OK");
}

// PrepareForConnection is not offered: with it control points would have to ask for an InstanceID first.
constexpr Action kActions[] = {
    {"GetProtocolInfo",
     {},
     {{{"Source", "SourceProtocolInfo"}, {"Sink", "SinkProtocolInfo"}}},
     getProtocolInfo,
     RunsOn::kMemory},
    {"GetCurrentConnectionIDs",
     {},
     {{{"ConnectionIDs", "CurrentConnectionIDs"}}},
     getCurrentConnectionIds,
     RunsOn::kMemory},
    {"GetCurrentConnectionInfo",
     {{{"ConnectionID", "A_ARG_TYPE_ConnectionID"}}},
     {{{"RcsID", "A_ARG_TYPE_RcsID"},
       {"AVTransportID", "A_ARG_TYPE_AVTransportID"},
       {"ProtocolInfo", "A_ARG_TYPE_ProtocolInfo"},
       {"PeerConnectionManager", "A_ARG_TYPE_ConnectionManager"},
       {"PeerConnectionID", "A_ARG_TYPE_ConnectionID"},
       {"Direction", "A_ARG_TYPE_Direction"},
       {"Status", "A_ARG_TYPE_ConnectionStatus"}}},
     getCurrentConnectionInfo,
     RunsOn::kMemory},
};

}  // namespace

const Service kConnectionManager = {"ConnectionManager", kVariables, kActions, 402};
