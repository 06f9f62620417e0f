#ifndef TARQ_DMR_PLUGIN_MANAGER_H_
#define TARQ_DMR_PLUGIN_MANAGER_H_

#include "TarqDmrPlugin.h"
#include "TarqHostApi.h"

// Holds the one renderer plug-in of the process and hands its objects out.
// Threads: `Load` once, before any other thread uses the manager; the getters from any thread afterwards.
// Owns: nothing; the objects belong to the plug-in, which stays loaded until the process ends.
class TARQ_HOST_API TarqDmrPluginManager {
 public:
  static TarqDmrPluginManager* GetInstance();

  // Opens the library, checks that it has every export, reads its information record, hands it the resource
  // directory, fetches its objects and starts it. 0, or -1: `GetLoadError` then says in one line what is
  // wrong.
  int Load(const char* pluginPath, const char* resourceDir);
  const char* GetLoadError() const;         // the empty text when nothing went wrong
  const PluginInfo* GetPluginInfo() const;  // of the loaded plug-in

  // Null until a plug-in is loaded. One that the application opened itself, under the library's own name,
  // counts as loaded too.
  TarqDmrSpecInterface* GetSpec();
  TarqDmrCpParamsInterface* GetCpParams();
  _TarqNetworkAccessControlInterface* GetDeviceNac();
  TarqDmrParamsInterface* GetParams();
  TarqDmrPlayerInterface* GetPlayer();

 private:
  TarqDmrPluginManager() = default;
};

#endif  // TARQ_DMR_PLUGIN_MANAGER_H_
