// The library as a host sees it that knows nothing of it but names and slot numbers.
#include <gmock/gmock.h>

#include <cstdio>
#include <set>
#include <string>
#include <utility>

#include "LoadedPlugin.h"
#include "LogCapture.h"

using testing::ElementsAre;

// The application's part of the access control.
static void* passedInfo = nullptr;
extern "C" int dmrEnqueueJAccessCheckSync(_TarqNetworkAccessControlInterface::_ACCESS_CHECK_INFO* info) {
  passedInfo = info;
  return -17;
}
extern "C" int dmrEnqueueJDeviceNotify(_TarqNetworkAccessControlInterface::_ACCESS_NOTIFY_INFO* info) {
  passedInfo = info;
  return 99;
}

namespace {

void* object(const char* getter) {
  auto* get = LoadedPlugin::instance().symbol<void*()>(getter);
  void* first = get();
  EXPECT_EQ(first, get()) << getter;
  return first;
}

TEST(Library, ExportsItsFunctionsAndNothingElse) {
  FILE* nm = popen("nm -D --defined-only " TARQ_PLUGIN_PATH, "r");
  std::set<std::string> names;
  for (char name[512]; fscanf(nm, "%*s %*s %511s", name) == 1;) names.insert(name);
  pclose(nm);
  EXPECT_THAT(names, ElementsAre("Finalize", "GetCpParams", "GetDeviceNac", "GetParams", "GetPlayer",
                                 "GetPluginInfo", "GetSpec", "Initialize", "Start", "Stop"));
}

TEST(Lifecycle, CopiesTheInformationRecord) {
  const auto padded = [](std::string text, size_t size) { return text.append(size - text.size(), '\0'); };
  const int32_t version[3] = {2, 0, 1};
  std::string record(208, '?');
  EXPECT_EQ(LoadedPlugin::instance().symbol<int(void*)>("GetPluginInfo")(record.data()), 0);
  EXPECT_EQ(record, std::string(reinterpret_cast<const char*>(version), 12) + padded("Orsa Corporation", 64) +
                        padded("Tarq", 64) + padded("Tarq DMR Sample Plguin", 64) + "????");
}

TEST(Lifecycle, ReportsNullArgumentsAndNothingElse) {
  LogCapture log;
  const auto& plugin = LoadedPlugin::instance();
  EXPECT_EQ(plugin.symbol<int(void*)>("GetPluginInfo")(nullptr), -1);
  EXPECT_EQ(plugin.symbol<int(const char*)>("Initialize")(nullptr), -1);
  EXPECT_EQ(plugin.symbol<int(const char*)>("Initialize")(std::string(2000, 'x').c_str()), 0);
  for (const char* name : {"Stop", "Finalize", "Start"}) EXPECT_EQ(plugin.symbol<int()>(name)(), 0) << name;
  EXPECT_THAT(log.take(),
              ElementsAre("6 TarqPlugin(DMR): Invalid: arg", "6 TarqPlugin(DMR): Invalid arg: pResourceDir"));
}

// What the slots from 2 on return, each a string ("t"), a number ("n") or a truth value ("b").
std::string returnedBy(void* object, const char* kinds) {
  std::string all;
  for (int slot = 2; *kinds != '\0'; ++slot, ++kinds) {
    all += *kinds == 't'   ? callSlot<const char*>(object, slot)
           : *kinds == 'n' ? std::to_string(callSlot<int>(object, slot))
                           : std::to_string(callSlot<bool>(object, slot));
    all += '|';
  }
  return all;
}

TEST(Settings, AreReturnedSlotBySlot) {
  EXPECT_EQ(returnedBy(object("GetSpec"), "ttttttttttttttntttbnnn"),
            "Android|1.6|Tarq Sample DMR|0.1|Orsa Corporation|/|/MediaRenderer.xml|5.0||Orsa Corporation|"
            "Tarq Sample DMR|0.1|||52323|Android DLNA Media Renderer(w/Plugin)|"
            "uuid:23456789-0000-1010-8000-%-12s|eth0|1|20|64|64|");
  EXPECT_EQ(returnedBy(object("GetCpParams"), "tttttttnnnnnnnnnnnn"),
            "5.0||Orsa Corporation|Tarq Sample DMR-CP|0.1|||64|64|64|32|2|3|3|0|32|64|8|22222|");
}

TEST(AccessControl, PassesRequestsOnUnchanged) {
  void* nac = object("GetDeviceNac");
  EXPECT_EQ((callSlot<int, void*>(nac, 2, nac)), -17);
  EXPECT_EQ(std::exchange(passedInfo, nullptr), nac);
  EXPECT_EQ((callSlot<int, void*>(nac, 3, nac)), 0);
  EXPECT_EQ(passedInfo, nac);
}

TEST(Params, KeepsTheRegionAndMakesCheckers) {
  void* params = object("GetParams");
  callSlot<void, int>(params, 4, 2);
  EXPECT_EQ(callSlot<int>(params, 5), 2);
  void* checker = callSlot<void*>(params, 2);
  EXPECT_EQ((callSlot<int, const char*, const char*>(checker, 2, "not a URL", nullptr)), 55106);
  callSlot<void>(checker, 1);

  LogCapture log;
  EXPECT_THAT(callSlot<const char*>(params, 3), testing::HasSubstr("DTCP_"));
  EXPECT_THAT(log.take(), ElementsAre("5 TarqPlugin(DMR): TarqDmrParams::GetSinkProtocolInfo()"));
}

}  // namespace
