#ifndef HANDLER_METHODS_H_
#define HANDLER_METHODS_H_

#include <android/log.h>

#include <algorithm>
#include <array>
#include <string_view>

// One method of the Java handler, and its name and priority in the log.
struct JavaMethod {
  consteval JavaMethod(const char* methodName, const char* methodSignature, std::string_view logName,
                       int logPriority = ANDROID_LOG_WARN)
      : name(methodName), signature(methodSignature), priority(logPriority) {
    constexpr std::string_view kLookupFailed = "Unknown Error: Failed to get the methodID of ";
    std::ranges::copy(logName, std::ranges::copy(kLookupFailed, lookupFailed).out);
  }
  consteval JavaMethod(const char* methodName, const char* methodSignature)
      : JavaMethod(methodName, methodSignature, methodName) {}

  const char* name;
  const char* signature;
  // Of every message that the operation logs.
  int priority;
  // The whole message, because it is the format that the log is given.
  char lookupFailed[80] = {};
};

// In the order of the player's operations; names and signatures are those of TarqRendererHandler.java.
inline constexpr auto kHandlerMethods = std::to_array<JavaMethod>({
    {"setDataSource", "(ILjava/lang/String;Ljava/lang/String;Ljava/lang/String;)I"},
    {"setNextDataSource", "(ILjava/lang/String;Ljava/lang/String;Ljava/lang/String;)I"},
    {"start", "(ILjava/lang/String;)I"},
    {"stop", "(I)I"},
    {"pause", "(I)I"},
    {"seekTo", "(II)I"},
    {"next", "(I)I"},
    {"getCurrentPosition", "(I)I"},
    {"getState", "(I)I"},
    {"setVolume", "(ILjava/lang/String;II)I"},
    {"getVolume", "(ILjava/lang/String;I)I"},
    {"setMute", "(ILjava/lang/String;Z)I"},
    {"getMute", "(ILjava/lang/String;)Z"},
    {"getPlaySpeedList", "(I)Ljava/lang/String;"},
    {"getAction", "(I)Ljava/lang/String;", "getAction", ANDROID_LOG_ERROR},
    {"updateAudioSelection", "(IILjava/lang/String;)I", "x_UpdateAudioSelection"},
    {"updateVideoSelection", "(IILjava/lang/String;)I", "x_UpdateVideoSelection"},
    {"prepareForConnection", "(ILjava/lang/String;)I"},
    {"connectionComplete", "(I)I"},
    {"setBreakAuxStreamPlaylist", "(IILjava/lang/String;Ljava/lang/String;)I"},
    {"setBreakAuxStreamTrigger", "(IIJ)I"},
    {"getTrackDuration", "(I)I"},
});

// Returns: the row of that Java name. A name without a row does not compile.
consteval const JavaMethod& handlerMethod(std::string_view name) {
  return *std::ranges::find(kHandlerMethods, name,
                            [](const JavaMethod& row) { return std::string_view(row.name); });
}

#endif  // HANDLER_METHODS_H_
