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

// The functions that a renderer plug-in exports, with C names. The host calls them in this order: load the
// library; `GetPluginInfo`; `Initialize`; the getters, in any order and as often as needed; `Start`; the
// operations of the objects; `Stop`; `Finalize`; unload.
// Threads: the getters from any thread, also several at once; the others one at a time.

// What a plug-in says about itself. The strings are padded with zero bytes.
// Units: 204 bytes, integers in the platform's byte order.
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
// Returns: 0, or -1 when `info` is null.
TARQ_PLUGIN_EXPORT int GetPluginInfo(PluginInfo* info);
// Returns: 0, or -1 when `pResourceDir` is null.
// Ownership: the plug-in copies the first 1023 bytes.
TARQ_PLUGIN_EXPORT int Initialize(const char* pResourceDir);
// Returns: 0.
TARQ_PLUGIN_EXPORT int Finalize();
TARQ_PLUGIN_EXPORT int Start();
TARQ_PLUGIN_EXPORT int Stop();

// The getters.
// Returns: the same object every time.
// Null: returned on allocation failure only.
// Ownership: the plug-in never deletes the object, and nobody else may.
TARQ_PLUGIN_EXPORT TarqDmrSpecInterface* GetSpec();
TARQ_PLUGIN_EXPORT TarqDmrCpParamsInterface* GetCpParams();
TARQ_PLUGIN_EXPORT _TarqNetworkAccessControlInterface* GetDeviceNac();
TARQ_PLUGIN_EXPORT TarqDmrParamsInterface* GetParams();
TARQ_PLUGIN_EXPORT TarqDmrPlayerInterface* GetPlayer();
}

#endif  // TARQ_DMR_PLUGIN_H_
