#ifndef PLAYER_OPERATIONS_H_
#define PLAYER_OPERATIONS_H_

#include "HandlerMethods.h"
#include "LoadedPlugin.h"

inline constexpr unsigned int kId = 0x80000005u;              // negative in Java
inline constexpr const char* kText = "\xF0\x9F\x98\x80\xFF";  // an emoji, and a byte that is not UTF-8
#define SHOWN "\xF0\x9F\x98\x80\xEF\xBF\xBD"
inline constexpr const char* kNone = nullptr;
inline constexpr long long kTrigger = -81985529216486896;  // more than 32 bits

// The out parameters.
struct Outs {
  int number = 77;
  unsigned int volume = 77;
  bool flag = false;
  char* string = nullptr;

  bool operator==(const Outs&) const = default;
};
inline Outs outs;

// Called by slot number: the host's order of the operations is the contract.
template <class... Arguments>
int call(void* player, int slot, Arguments... arguments) {
  return callSlot<int>(player, slot, kId, arguments...);
}

// One call of each operation that reaches the handler.
using P = void*;
struct Operation {
  const char* name;       // of the Java method
  size_t strings;         // how many Java strings its arguments become
  const char* arguments;  // what the handler sees after the id
  int (*call)(P player);
  const char* stored = "";  // which out parameter holds what the handler returned; empty: it is the result
};
inline constexpr Operation kOperations[] = {
    {"setDataSource", 2, ", " SHOWN ", null, t", [](P p) { return call(p, 4, kText, kNone, "t"); }},
    {"setNextDataSource", 3, ", u, " SHOWN ", t", [](P p) { return call(p, 5, "u", kText, "t"); }},
    {"start", 1, ", 1/2", [](P p) { return call(p, 6, "1/2"); }},
    {"stop", 0, "", [](P p) { return call(p, 7); }},
    {"pause", 0, "", [](P p) { return call(p, 8); }},
    {"seekTo", 0, ", -9", [](P p) { return call(p, 9, -9); }},
    {"next", 0, "", [](P p) { return call(p, 10); }},
    {"getCurrentPosition", 0, "", [](P p) { return call(p, 11, &outs.number); }, "number"},
    {"getState", 0, "", [](P p) { return call(p, 12, &outs.number); }, "number"},
    {"setVolume", 1, ", LF, 7, -1", [](P p) { return call(p, 13, "LF", 7u, 0xFFFFFFFFu); }},
    {"getVolume", 1, ", LF, -9", [](P p) { return call(p, 14, "LF", -9, &outs.volume); }, "volume"},
    {"setMute", 1, ", LF, true", [](P p) { return call(p, 17, "LF", true); }},
    {"getMute", 1, ", LF", [](P p) { return call(p, 18, "LF", &outs.flag); }, "flag"},
    {"getPlaySpeedList", 0, "", [](P p) { return call(p, 19, &outs.string); },
     "1\xEF\xBF\xBD\xF0\x9F\x98\x80"},
    {"getAction", 0, "", [](P p) { return call(p, 20, &outs.string); }, "\xC3\xA9\xEF\xBF\xBD"},
    {"updateAudioSelection", 1, ", -1, s", [](P p) { return call(p, 21, 0xFFFFFFFFu, "s"); }},
    {"updateVideoSelection", 1, ", -1, s", [](P p) { return call(p, 22, 0xFFFFFFFFu, "s"); }},
    {"prepareForConnection", 1, ", ", [](P p) { return call(p, 23, ""); }},
    {"connectionComplete", 0, "", [](P p) { return call(p, 24); }},
    {"setBreakAuxStreamPlaylist", 1, ", -9, null, b", [](P p) { return call(p, 25, -9, kNone, "b"); }},
    {"setBreakAuxStreamTrigger", 0, ", 9, -81985529216486896", [](P p) { return call(p, 26, 9u, kTrigger); }},
    {"getTrackDuration", 0, "", [](P p) { return call(p, 27, &outs.number); }, "number"},
};
static_assert(std::size(kOperations) == kHandlerMethods.size());

#endif  // PLAYER_OPERATIONS_H_
