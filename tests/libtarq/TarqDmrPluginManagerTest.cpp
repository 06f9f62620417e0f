#include <dlfcn.h>
#include <gmock/gmock.h>

#include "TarqDmrPluginManager.h"

namespace {

// One process holds one plug-in, so this is one story.
TEST(TarqDmrPluginManager, SaysWhatIsWrongThenAdoptsThenLoads) {
  TarqDmrPluginManager& manager = *TarqDmrPluginManager::GetInstance();
  const auto errorOf = [&](const char* path) {
    EXPECT_EQ(manager.Load(path, "/res"), -1);
    return std::string(manager.GetLoadError());
  };
  EXPECT_EQ(errorOf(nullptr), "no plug-in was specified");
  EXPECT_THAT(errorOf("/no/x.so"), testing::StartsWith("cannot load /no/x.so: /no/x.so"));
  EXPECT_THAT(errorOf(NO_PLUGIN), testing::HasSubstr(" is not a renderer plug-in: it does not export Get"));
  EXPECT_EQ(manager.GetPluginInfo(), nullptr);

  void* library = dlopen(FAKE_PLUGIN, RTLD_NOW | RTLD_LOCAL);
  const auto calls = reinterpret_cast<const char* (*)()>(dlsym(library, "FakePluginCalls"));
  EXPECT_EQ(manager.GetPluginInfo()->version[0], 7);
  const std::string objects = " GetSpec GetCpParams GetDeviceNac GetParams GetPlayer";
  EXPECT_EQ(calls(), " GetPluginInfo" + objects);

  EXPECT_EQ(manager.Load(FAKE_PLUGIN, "/res"), 0) << manager.GetLoadError();
  EXPECT_THAT(calls(), testing::EndsWith(" GetPluginInfo Initialize" + objects + " Start"));
  EXPECT_STREQ(reinterpret_cast<const char*>(manager.GetCpParams()), "GetCpParams");
  EXPECT_EQ(errorOf(FAKE_PLUGIN), "Start failed in " FAKE_PLUGIN);
  EXPECT_NE(manager.GetSpec(), nullptr) << "the plug-in that was loaded before stays";
}

}  // namespace
