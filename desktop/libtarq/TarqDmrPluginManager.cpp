#include "TarqDmrPluginManager.h"

#include <dlfcn.h>

#include <atomic>
#include <initializer_list>
#include <mutex>
#include <type_traits>

#include "VondString.h"

namespace {

// The name by which the dynamic linker knows a plug-in that the application opened itself.
constexpr const char* kPluginLibrary = "libtarq_dmr_plugin.so";

struct Exports {
  decltype(&::GetPluginInfo) getPluginInfo;
  decltype(&::Initialize) initialize;
  decltype(&::Finalize) finalize;
  decltype(&::Start) start;
  decltype(&::Stop) stop;
  decltype(&::GetSpec) getSpec;
  decltype(&::GetCpParams) getCpParams;
  decltype(&::GetDeviceNac) getDeviceNac;
  decltype(&::GetParams) getParams;
  decltype(&::GetPlayer) getPlayer;
};

template <auto Member>
void assign(Exports& exports, void* symbol) {
  auto& function = exports.*Member;
  function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(symbol);
}

struct ExportRow {
  const char* name;
  void (*assign)(Exports& exports, void* symbol);
};

// What every plug-in must export.
constexpr ExportRow kExports[] = {
    {"GetPluginInfo", assign<&Exports::getPluginInfo>},
    {"Initialize", assign<&Exports::initialize>},
    {"Finalize", assign<&Exports::finalize>},
    {"Start", assign<&Exports::start>},
    {"Stop", assign<&Exports::stop>},
    {"GetSpec", assign<&Exports::getSpec>},
    {"GetCpParams", assign<&Exports::getCpParams>},
    {"GetDeviceNac", assign<&Exports::getDeviceNac>},
    {"GetParams", assign<&Exports::getParams>},
    {"GetPlayer", assign<&Exports::getPlayer>},
};

struct LoadedPlugin {
  PluginInfo info;
  TarqDmrSpecInterface* spec;
  TarqDmrCpParamsInterface* cpParams;
  _TarqNetworkAccessControlInterface* deviceNac;
  TarqDmrParamsInterface* params;
  TarqDmrPlayerInterface* player;
};

LoadedPlugin loadedPlugin;
// Null until `loadedPlugin` is filled.
std::atomic<const LoadedPlugin*> loaded = nullptr;
std::mutex adopting;
VondString loadError = "";

int fail(std::initializer_list<const char*> message) {
  loadError = "";
  for (const char* part : message) loadError.append(part);
  return -1;
}

// Looks up every export.
// Returns: the names of those that are missing, each with a blank before it.
VondString resolve(void* library, Exports& exports) {
  VondString missing = "";
  for (const ExportRow& row : kExports) {
    void* symbol = dlsym(library, row.name);
    row.assign(exports, symbol);
    if (symbol == nullptr) missing.append(" ").append(row.name);
  }
  return missing;
}

// Gets the plug-in's objects.
// Returns: the name of the getter that returned null; null when none did.
const char* fetchObjects(const Exports& exports, LoadedPlugin& plugin) {
  if ((plugin.spec = exports.getSpec()) == nullptr) return "GetSpec";
  if ((plugin.cpParams = exports.getCpParams()) == nullptr) return "GetCpParams";
  if ((plugin.deviceNac = exports.getDeviceNac()) == nullptr) return "GetDeviceNac";
  if ((plugin.params = exports.getParams()) == nullptr) return "GetParams";
  if ((plugin.player = exports.getPlayer()) == nullptr) return "GetPlayer";
  return nullptr;
}

void publish(const LoadedPlugin& plugin) {
  loadedPlugin = plugin;
  loaded.store(&loadedPlugin, std::memory_order_release);
}

// Takes over the plug-in that the application opened, initialised and started by itself.
const LoadedPlugin* adopt() {
  const std::lock_guard lock(adopting);
  if (const LoadedPlugin* plugin = loaded.load(std::memory_order_acquire)) return plugin;
  void* library = dlopen(kPluginLibrary, RTLD_NOLOAD | RTLD_LAZY);
  if (library == nullptr) return nullptr;
  Exports exports;
  LoadedPlugin plugin{};
  if (resolve(library, exports).length() == 0 && exports.getPluginInfo(&plugin.info) == 0 &&
      fetchObjects(exports, plugin) == nullptr) {
    publish(plugin);
    return &loadedPlugin;
  }
  dlclose(library);
  return nullptr;
}

const LoadedPlugin* current() {
  const LoadedPlugin* plugin = loaded.load(std::memory_order_acquire);
  return plugin != nullptr ? plugin : adopt();
}

template <auto Member>
auto objectOfCurrent() -> std::remove_cvref_t<decltype(loadedPlugin.*Member)> {
  const LoadedPlugin* plugin = current();
  return plugin != nullptr ? plugin->*Member : nullptr;
}

}  // namespace

TarqDmrPluginManager* TarqDmrPluginManager::GetInstance() {
  static TarqDmrPluginManager instance;
  return &instance;
}

int TarqDmrPluginManager::Load(const char* pluginPath, const char* resourceDir) {
  if (pluginPath == nullptr) return fail({"no plug-in was specified"});
  loadError = "";
  void* library = dlopen(pluginPath, RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) return fail({"cannot load ", pluginPath, ": ", dlerror()});
  Exports exports;
  if (const VondString missing = resolve(library, exports); missing.length() != 0) {
    dlclose(library);
    return fail({pluginPath, " is not a renderer plug-in: it does not export", missing.c_str()});
  }

  // From here on the library stays loaded: its code has run.
  LoadedPlugin plugin{};
  if (exports.getPluginInfo(&plugin.info) != 0) return fail({"GetPluginInfo failed in ", pluginPath});
  if (exports.initialize(resourceDir) != 0) return fail({"Initialize failed in ", pluginPath});
  if (const char* getter = fetchObjects(exports, plugin))
    return fail({getter, " returned null in ", pluginPath});
  if (exports.start() != 0) return fail({"Start failed in ", pluginPath});
  publish(plugin);
  return 0;
}

const char* TarqDmrPluginManager::GetLoadError() const { return loadError.c_str(); }

const PluginInfo* TarqDmrPluginManager::GetPluginInfo() const {
  const LoadedPlugin* plugin = current();
  return plugin != nullptr ? &plugin->info : nullptr;
}

TarqDmrSpecInterface* TarqDmrPluginManager::GetSpec() { return objectOfCurrent<&LoadedPlugin::spec>(); }
TarqDmrCpParamsInterface* TarqDmrPluginManager::GetCpParams() {
  return objectOfCurrent<&LoadedPlugin::cpParams>();
}
_TarqNetworkAccessControlInterface* TarqDmrPluginManager::GetDeviceNac() {
  return objectOfCurrent<&LoadedPlugin::deviceNac>();
}
TarqDmrParamsInterface* TarqDmrPluginManager::GetParams() { return objectOfCurrent<&LoadedPlugin::params>(); }
TarqDmrPlayerInterface* TarqDmrPluginManager::GetPlayer() { return objectOfCurrent<&LoadedPlugin::player>(); }
