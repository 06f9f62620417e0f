#include <cstdlib>
#include <string>

#include "TarqDmrPlugin.h"

// Notes the calls in their order; the function that the environment names fails.
namespace {

std::string calls;
char objects[5];

bool called(const char* function) {
  calls.append(calls.empty() ? "" : " ").append(function);
  const char* failing = std::getenv("FAKE_PLUGIN_FAILS");
  return failing == nullptr || std::string_view(failing) != function;
}

int status(const char* function) { return called(function) ? 0 : -1; }

template <class T>
T* object(const char* getter, int number) {
  return called(getter) ? reinterpret_cast<T*>(&objects[number]) : nullptr;
}

}  // namespace

extern "C" const char* FakePluginCalls() { return calls.c_str(); }

int GetPluginInfo(PluginInfo* info) {
  info->version[0] = 7;
  return status("GetPluginInfo");
}
int Initialize(const char*) { return status("Initialize"); }
int Finalize() { return status("Finalize"); }
int Start() { return status("Start"); }
int Stop() { return status("Stop"); }
TarqDmrSpecInterface* GetSpec() { return object<TarqDmrSpecInterface>("GetSpec", 0); }
TarqDmrCpParamsInterface* GetCpParams() { return object<TarqDmrCpParamsInterface>("GetCpParams", 1); }
_TarqNetworkAccessControlInterface* GetDeviceNac() {
  return object<_TarqNetworkAccessControlInterface>("GetDeviceNac", 2);
}
TarqDmrParamsInterface* GetParams() { return object<TarqDmrParamsInterface>("GetParams", 3); }
TarqDmrPlayerInterface* GetPlayer() { return object<TarqDmrPlayerInterface>("GetPlayer", 4); }
