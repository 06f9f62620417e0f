#include "ActionCall.h"
#include "Parts.h"
#include "Rendering.h"

// RenderingControl:1 with the volume and mute of the player.

namespace {

constexpr StateVariable kVariables[] = {
    {.name = "PresetNameList"},
    {.name = "LastChange", .evented = true},
    {.name = "Mute", .type = ValueType::kBoolean},
    {.name = "Volume", .type = ValueType::kUi2, .refusal = 601, .range = {0, Rendering::kLoudest}},
    {.name = "A_ARG_TYPE_Channel", .refusal = 402, .allowed = "Master", .taken = "LF,RF"},
    {.name = "A_ARG_TYPE_InstanceID", .type = ValueType::kUi4},
    {.name = "A_ARG_TYPE_PresetName", .refusal = 701, .allowed = "FactoryDefaults"},
};

constexpr Argument kInstance = {"InstanceID", "A_ARG_TYPE_InstanceID"};
constexpr Argument kChannel = {"Channel", "A_ARG_TYPE_Channel"};

void listPresets(RendererParts&, ActionCall& call) { call.out("CurrentPresetNameList", "FactoryDefaults"); }

void selectPreset(RendererParts& parts, ActionCall&) { parts.rendering.reset(); }

void getMute(RendererParts& parts, ActionCall& call) {
  call.out("CurrentMute", parts.rendering.mute(call.in("Channel")) ? 1 : 0);
}

void setMute(RendererParts& parts, ActionCall& call) {
  parts.rendering.setMute(call.in("Channel"), call.flag("DesiredMute"));
}

void getVolume(RendererParts& parts, ActionCall& call) {
  call.out("CurrentVolume", static_cast<int>(parts.rendering.volume(call.in("Channel"))));
}

void setVolume(RendererParts& parts, ActionCall& call) {
  parts.rendering.setVolume(call.in("Channel"), static_cast<unsigned>(call.number("DesiredVolume")));
}

constexpr Action kActions[] = {
    {"ListPresets",
     {{kInstance}},
     {{{"CurrentPresetNameList", "PresetNameList"}}},
     listPresets,
     RunsOn::kMemory},
    {"SelectPreset",
     {{kInstance, {"PresetName", "A_ARG_TYPE_PresetName"}}},
     {},
     selectPreset,
     RunsOn::kRendering},
    {"GetMute", {{kInstance, kChannel}}, {{{"CurrentMute", "Mute"}}}, getMute, RunsOn::kRendering},
    {"SetMute", {{kInstance, kChannel, {"DesiredMute", "Mute"}}}, {}, setMute, RunsOn::kRendering},
    {"GetVolume", {{kInstance, kChannel}}, {{{"CurrentVolume", "Volume"}}}, getVolume, RunsOn::kRendering},
    {"SetVolume", {{kInstance, kChannel, {"DesiredVolume", "Volume"}}}, {}, setVolume, RunsOn::kRendering},
};

}  // namespace

const Service kRenderingControl = {"RenderingControl", kVariables, kActions, 702};
