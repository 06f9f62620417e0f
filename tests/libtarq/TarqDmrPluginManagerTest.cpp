#include <dlfcn.h>
#include <gmock/gmock.h>

#include <cstdlib>

#include "TarqDmrPluginManager.h"

namespace {

using testing::EndsWith;

// One process holds one plug-in, so this is one story.
TEST(TarqDmrPluginManager, SaysWhatIsWrongThenAdoptsThenLoads) {
  TarqDmrPluginManager& manager = *TarqDmrPluginManager::GetInstance();
  const auto errorOf = [&](const char* path) {
    EXPECT_EQ(manager.Load(path, "/res"), -1);
    return std::string(manager.GetLoadError());
  };
  EXPECT_EQ(errorOf(nullptr), "no plug-in was specified");
  EXPECT_THAT(errorOf("/no/x.so"), testing::StartsWith("cannot load /no/x.so: /no/x.so"));
  EXPECT_EQ(
      errorOf(NO_PLUGIN), NO_PLUGIN
      " is not a renderer plug-in: it does not export GetPluginInfo Initialize Finalize Start Stop GetSpec "
      "GetCpParams GetDeviceNac GetParams GetPlayer");
  EXPECT_EQ(manager.GetPluginInfo(), nullptr);

  void* library = dlopen(FAKE_PLUGIN, RTLD_NOW | RTLD_LOCAL);
  const auto calls = reinterpret_cast<const char* (*)()>(dlsym(library, "FakePluginCalls"));
  setenv("FAKE_PLUGIN_FAILS", "GetPlayer", 1);
  EXPECT_EQ(manager.GetParams(), nullptr);
  unsetenv("FAKE_PLUGIN_FAILS");
  EXPECT_EQ(manager.GetPluginInfo()->version[0], 7);
  const std::string adopting = "GetPluginInfo GetSpec GetCpParams GetDeviceNac GetParams GetPlayer";
  EXPECT_EQ(calls(), adopting + ' ' + adopting);

  EXPECT_EQ(manager.Load(FAKE_PLUGIN, "/res"), 0) << manager.GetLoadError();
  EXPECT_STREQ(manager.GetLoadError(), "");
  EXPECT_THAT(calls(), EndsWith("Initialize GetSpec GetCpParams GetDeviceNac GetParams GetPlayer Start"));
  EXPECT_STREQ(reinterpret_cast<const char*>(manager.GetCpParams()), "GetCpParams");
  for (const std::string failing : {"GetPluginInfo", "Initialize", "GetSpec", "GetParams", "Start"}) {
    setenv("FAKE_PLUGIN_FAILS", failing.c_str(), 1);
    EXPECT_THAT(errorOf(FAKE_PLUGIN), testing::ContainsRegex("^" + failing + " (failed|returned null) in /"));
    EXPECT_NE(manager.GetSpec(), nullptr) << "the plug-in that was loaded before stays";
  }
}

}  // namespace
