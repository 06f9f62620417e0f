#ifndef TARQ_DMR_PLUGIN_MANAGER_H_
#define TARQ_DMR_PLUGIN_MANAGER_H_

#include "TarqDmrPlugin.h"
#include "TarqHostApi.h"

// Holds the one renderer plug-in of the process and returns its objects.
// Ownership: the objects belong to the plug-in, which stays loaded until the process ends.
// Threads: `Load` comes from one thread, before any other thread uses the manager; after that the getters may
//   be called from any thread.
class TARQ_HOST_API TarqDmrPluginManager {
 public:
  static TarqDmrPluginManager* GetInstance();

  // For the application: opens the library, checks that it has every export, reads its information record,
  // passes it the resource directory, gets its objects and starts it.
  // Returns: 0, or -1; then `GetLoadError` says why in one line.
  int Load(const char* pluginPath, const char* resourceDir);
  // Returns: the empty string after success.
  const char* GetLoadError() const;
  const PluginInfo* GetPluginInfo() const;

  // The objects of the plug-in that was loaded, or that the application opened itself under the plug-in's
  // usual file name.
  // Null: returned until there is one.
  TarqDmrSpecInterface* GetSpec();
  TarqDmrCpParamsInterface* GetCpParams();
  _TarqNetworkAccessControlInterface* GetDeviceNac();
  TarqDmrParamsInterface* GetParams();
  TarqDmrPlayerInterface* GetPlayer();

 private:
  TarqDmrPluginManager() = default;
};

#endif  // TARQ_DMR_PLUGIN_MANAGER_H_
