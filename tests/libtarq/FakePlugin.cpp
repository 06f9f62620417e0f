#include <cstdlib>
#include <string>

#include "TarqDmrPlugin.h"

// Notes the calls in their order; the function that the environment names fails.
namespace {

std::string calls;

bool called(const char* function) {
  calls.append(calls.empty() ? "" : " ").append(function);
  const char* failing = std::getenv("FAKE_PLUGIN_FAILS");
  return failing == nullptr || std::string_view(failing) != function;
}

}  // namespace

extern "C" const char* FakePluginCalls() { return calls.c_str(); }

int GetPluginInfo(PluginInfo* info) {
  info->version[0] = 7;
  return called("GetPluginInfo") ? 0 : -1;
}
int Initialize(const char*) { return called("Initialize") ? 0 : -1; }
int Finalize() { return 0; }
int Start() { return called("Start") ? 0 : -1; }
int Stop() { return 0; }

// The name of a getter stands for its object.
#define GETTER(Type, name) \
  Type* name() { return called(#name) ? reinterpret_cast<Type*>(const_cast<char*>(#name)) : nullptr; }
GETTER(TarqDmrSpecInterface, GetSpec)
GETTER(TarqDmrCpParamsInterface, GetCpParams)
GETTER(_TarqNetworkAccessControlInterface, GetDeviceNac)
GETTER(TarqDmrParamsInterface, GetParams)
GETTER(TarqDmrPlayerInterface, GetPlayer)
