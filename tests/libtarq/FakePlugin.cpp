#include <string>

#include "TarqDmrPlugin.h"

// Notes the calls in their order; `Start` fails at the second call.
static std::string calls;

static int note(const char* function) {
  calls.append(" ").append(function);
  return 0;
}

extern "C" const char* FakePluginCalls() { return calls.c_str(); }

int GetPluginInfo(PluginInfo* info) {
  info->version[0] = 7;
  return note("GetPluginInfo");
}
int Initialize(const char*) { return note("Initialize"); }
int Finalize() { return 0; }
int Start() { return calls.find("Start") == calls.npos ? note("Start") : -1; }
int Stop() { return 0; }

// The name of a getter stands for its object.
#define GETTER(Type, name) \
  Type* name() { return note(#name) == 0 ? reinterpret_cast<Type*>(const_cast<char*>(#name)) : nullptr; }
GETTER(TarqDmrSpecInterface, GetSpec)
GETTER(TarqDmrCpParamsInterface, GetCpParams)
GETTER(_TarqNetworkAccessControlInterface, GetDeviceNac)
GETTER(TarqDmrParamsInterface, GetParams)
GETTER(TarqDmrPlayerInterface, GetPlayer)
