#include "TarqDmrPlugin.h"

#include <android/log.h>

#include <cstring>

#include "PluginLog.h"

namespace {

constexpr PluginInfo kPluginInfo = {
    .version = {2, 0, 1},
    .company = "Orsa Corporation",
    .product = "Tarq",
    .description = "Tarq DMR Sample Plguin",
};

// The plug-in reads no file: the path is only stored, as the host expects.
char resourceDir[1024];

}  // namespace

int GetPluginInfo(PluginInfo* info) {
  if (info == nullptr) {
    __android_log_print(ANDROID_LOG_ERROR, kPluginLogTag, "Invalid: arg");
    return -1;
  }
  std::memcpy(info, &kPluginInfo, sizeof(kPluginInfo));
  return 0;
}

int Initialize(const char* pResourceDir) {
  if (pResourceDir == nullptr) {
    __android_log_print(ANDROID_LOG_ERROR, kPluginLogTag, "Invalid arg: pResourceDir");
    return -1;
  }
  const size_t length = strnlen(pResourceDir, sizeof(resourceDir) - 1);
  std::memmove(resourceDir, pResourceDir, length);
  std::memset(resourceDir + length, 0, sizeof(resourceDir) - length);
  return 0;
}

int Finalize() { return 0; }

int Start() { return 0; }

int Stop() { return 0; }
