#ifndef LOADED_PLUGIN_H_
#define LOADED_PLUGIN_H_

#include <dlfcn.h>

#include <cstdint>
#include <cstdlib>
#include <iostream>

#include "TarqDmrPluginManager.h"

// The built plug-in, opened as a host would open it; TARQ_PLUGIN_PATH comes from the build.
class LoadedPlugin {
 public:
  static LoadedPlugin& instance() {
    static LoadedPlugin plugin;
    return plugin;
  }
  template <class Function>
  Function* symbol(const char* name) const {
    return reinterpret_cast<Function*>(dlsym(library_, name));
  }

 private:
  LoadedPlugin() : library_(dlopen(TARQ_PLUGIN_PATH, RTLD_NOW)) {
    if (library_ != nullptr) return;
    std::cerr << dlerror() << '\n';
    std::abort();
  }

  void* library_;
};

// Calls the virtual operation in that slot, knowing nothing of the class; slots 0 and 1 are the destructor.
template <class Result, class... Arguments>
Result callSlot(void* object, int slot, Arguments... arguments) {
  void** table = *static_cast<void***>(object);
  return reinterpret_cast<Result (*)(void*, Arguments...)>(table[slot])(object, arguments...);
}

#endif  // LOADED_PLUGIN_H_
