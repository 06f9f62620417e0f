#ifndef TARQ_DMR_PLUGIN_H_
#define TARQ_DMR_PLUGIN_H_

#include <cstddef>
#include <cstdint>

#include "TarqDmrCpParamsInterface.h"
#include "TarqDmrParamsInterface.h"
#include "TarqDmrPlayerInterface.h"
#include "TarqDmrSpecInterface.h"
#include "TarqHostApi.h"
#include "TarqNetworkAccessControlInterface.h"

// The outside surface of a renderer plug-in: exported functions with plain names.
//
// Calling order: load the library; `GetPluginInfo`; `Initialize`; the getters, in any order and as often as
// liked; `Start`; the operations of the objects; `Stop`; `Finalize`; unload. Threads: no function locks. The
// first call of each getter comes from one thread, before others use the object. Ownership: a getter returns
// the same object every time; the plug-in never deletes it, and nobody else may.

// What a plug-in says of itself. 204 bytes, integers in the platform's order, texts padded with zero bytes.
struct PluginInfo {
  static constexpr size_t kTextBytes = 64;

  int32_t version[3];
  char company[kTextBytes];
  char product[kTextBytes];
  char description[kTextBytes];
};
static_assert(sizeof(PluginInfo) == 204 && offsetof(PluginInfo, company) == 12 &&
                  offsetof(PluginInfo, product) == 76 && offsetof(PluginInfo, description) == 140,
              "the host reads the information record by offset");

extern "C" {
TARQ_PLUGIN_EXPORT int GetPluginInfo(PluginInfo* info);  // 0, or -1 when `info` is null
TARQ_PLUGIN_EXPORT int Initialize(
    const char* pResourceDir);      // 0, or -1 when null; keeps the first 1023 bytes
TARQ_PLUGIN_EXPORT int Finalize();  // 0
TARQ_PLUGIN_EXPORT int Start();     // 0
TARQ_PLUGIN_EXPORT int Stop();      // 0
// The getters never return null while there is memory.
TARQ_PLUGIN_EXPORT TarqDmrSpecInterface* GetSpec();
TARQ_PLUGIN_EXPORT TarqDmrCpParamsInterface* GetCpParams();
TARQ_PLUGIN_EXPORT _TarqNetworkAccessControlInterface* GetDeviceNac();
TARQ_PLUGIN_EXPORT TarqDmrParamsInterface* GetParams();
TARQ_PLUGIN_EXPORT TarqDmrPlayerInterface* GetPlayer();
}

#endif  // TARQ_DMR_PLUGIN_H_
