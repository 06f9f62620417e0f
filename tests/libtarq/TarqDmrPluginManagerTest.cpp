#include <dlfcn.h>
#include <gmock/gmock.h>

#include <cstdlib>
#include <utility>

#include "TarqDmrPluginManager.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;

const char* callsOf(void* library) {
  return reinterpret_cast<const char* (*)()>(dlsym(library, "FakePluginCalls"))();
}

// One process holds one plug-in, so this is one story.
TEST(TarqDmrPluginManager, TellsWhatIsWrongThenAdoptsThenLoads) {
  TarqDmrPluginManager* manager = TarqDmrPluginManager::GetInstance();
  EXPECT_EQ(manager->GetParams(), nullptr);
  EXPECT_EQ(manager->GetPluginInfo(), nullptr);

  const std::pair<const char*, testing::Matcher<const char*>> missing[] = {
      {nullptr, HasSubstr("no plug-in")},
      {"/nowhere/x.so", AllOf(HasSubstr("/nowhere/x.so"), HasSubstr("No such file"))},
      {NO_PLUGIN, AllOf(HasSubstr(NO_PLUGIN), HasSubstr("GetPluginInfo Initialize"), HasSubstr("GetParams"))},
  };
  for (const auto& [path, error] : missing) {
    EXPECT_EQ(manager->Load(path, "/res"), -1);
    EXPECT_THAT(manager->GetLoadError(), error);
    EXPECT_EQ(manager->GetSpec(), nullptr);
  }

  void* library = dlopen(FAKE_PLUGIN, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(library, nullptr) << dlerror();
  setenv("FAKE_PLUGIN_FAILS", "GetPluginInfo", 1);
  EXPECT_EQ(manager->GetParams(), nullptr);
  unsetenv("FAKE_PLUGIN_FAILS");
  EXPECT_NE(manager->GetParams(), nullptr);
  EXPECT_EQ(manager->GetPluginInfo()->version[0], 7);
  const std::string adopting = callsOf(library);
  EXPECT_EQ(adopting, "GetPluginInfo GetPluginInfo GetSpec GetCpParams GetDeviceNac GetParams GetPlayer");

  EXPECT_EQ(manager->Load(FAKE_PLUGIN, "/res"), 0) << manager->GetLoadError();
  EXPECT_STREQ(manager->GetLoadError(), "");
  EXPECT_EQ(std::string(callsOf(library)).substr(adopting.size()),
            " GetPluginInfo Initialize GetSpec GetCpParams GetDeviceNac GetParams GetPlayer Start");
  const auto getter = reinterpret_cast<decltype(&GetCpParams)>(dlsym(library, "GetCpParams"));
  EXPECT_EQ(manager->GetCpParams(), getter());

  for (const char* failing : {"GetPluginInfo", "Initialize", "GetSpec", "GetParams", "Start"}) {
    setenv("FAKE_PLUGIN_FAILS", failing, 1);
    EXPECT_EQ(manager->Load(FAKE_PLUGIN, "/res"), -1);
    EXPECT_THAT(manager->GetLoadError(), HasSubstr(failing));
    EXPECT_NE(manager->GetSpec(), nullptr) << "the plug-in that was loaded before stays";
  }
}

}  // namespace
