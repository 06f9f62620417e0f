// The library as a host sees that knows nothing of it but names and slot numbers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <memory>
#include <set>
#include <string>

#include "LoadedPlugin.h"
#include "LogCapture.h"

using testing::ElementsAre;

// The application's part of the access control.
namespace {
void* checkedInfo = nullptr;
void* notifiedInfo = nullptr;
}  // namespace
extern "C" int dmrEnqueueJAccessCheckSync(_TarqNetworkAccessControlInterface::_ACCESS_CHECK_INFO* info) {
  checkedInfo = info;
  return -17;
}
extern "C" int dmrEnqueueJDeviceNotify(_TarqNetworkAccessControlInterface::_ACCESS_NOTIFY_INFO* info) {
  notifiedInfo = info;
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
  const std::unique_ptr<FILE, int (*)(FILE*)> nm(popen("nm -D --defined-only " TARQ_PLUGIN_PATH, "r"),
                                                 pclose);
  std::set<std::string> names;
  for (char name[512]; fscanf(nm.get(), "%*s %*s %511s", name) == 1;) names.insert(name);
  EXPECT_THAT(names, ElementsAre("Finalize", "GetCpParams", "GetDeviceNac", "GetParams", "GetPlayer",
                                 "GetPluginInfo", "GetSpec", "Initialize", "Start", "Stop"));
}

TEST(Lifecycle, CopiesTheInformationRecord) {
  auto* getPluginInfo = LoadedPlugin::instance().symbol<int(void*)>("GetPluginInfo");
  std::array<char, 208> record;
  record.fill('?');
  EXPECT_EQ(getPluginInfo(record.data()), 0);

  std::array<char, 208> expected{};
  const int32_t version[3] = {2, 0, 1};
  std::memcpy(expected.data(), version, sizeof version);
  std::strcpy(&expected[12], "Orsa Corporation");
  std::strcpy(&expected[76], "Tarq");
  std::strcpy(&expected[140], "Tarq DMR Sample Plguin");
  std::memset(&expected[204], '?', 4);
  EXPECT_EQ(record, expected);
}

TEST(Lifecycle, ReportsNullArgumentsAndNothingElse) {
  LogCapture log;
  const auto& plugin = LoadedPlugin::instance();
  EXPECT_EQ(plugin.symbol<int(void*)>("GetPluginInfo")(nullptr), -1);
  EXPECT_EQ(plugin.symbol<int(const char*)>("Initialize")(nullptr), -1);
  EXPECT_EQ(plugin.symbol<int(const char*)>("Initialize")(std::string(2000, 'x').c_str()), 0);
  for (const char* name : {"Stop", "Finalize", "Start", "Start", "Stop", "Finalize"}) {
    EXPECT_EQ(plugin.symbol<int()>(name)(), 0) << name;
  }
  EXPECT_THAT(log.take(),
              ElementsAre("6 TarqPlugin(DMR): Invalid: arg", "6 TarqPlugin(DMR): Invalid arg: pResourceDir"));
}

// What the slots from `first` on answer, each a text ("t") or a number ("n").
std::string answers(void* object, int first, const char* kinds) {
  std::string all;
  for (int slot = first; *kinds != '\0'; ++slot, ++kinds)
    all +=
        (*kinds == 't' ? callSlot<const char*>(object, slot) : std::to_string(callSlot<int>(object, slot))) +
        "|";
  return all;
}

TEST(Settings, AnswerSlotBySlot) {
  void* spec = object("GetSpec");
  EXPECT_EQ(answers(spec, 2, "ttttttttttttttnt"),
            "Android|1.6|Tarq Sample DMR|0.1|Orsa Corporation|/|/MediaRenderer.xml|5.0||Orsa Corporation|"
            "Tarq Sample DMR|0.1|||52323|Android DLNA Media Renderer(w/Plugin)|");
  char udn[64];
  std::snprintf(udn, sizeof udn, callSlot<const char*>(spec, 18), "01234");
  EXPECT_STREQ(udn, "uuid:23456789-0000-1010-8000-01234       ");
  EXPECT_STREQ(callSlot<const char*>(spec, 19), "eth0");
  EXPECT_TRUE(callSlot<bool>(spec, 20));
  EXPECT_EQ(answers(spec, 21, "nnn"), "20|64|64|");
  EXPECT_EQ(answers(object("GetCpParams"), 2, "tttttttnnnnnnnnnnnn"),
            "5.0||Orsa Corporation|Tarq Sample DMR-CP|0.1|||64|64|64|32|2|3|3|0|32|64|8|22222|");
}

TEST(AccessControl, HandsRequestsOnUnchanged) {
  void* nac = object("GetDeviceNac");
  int info = 0;
  EXPECT_EQ((callSlot<int, void*>(nac, 2, &info)), -17);
  EXPECT_EQ((callSlot<int, void*>(nac, 3, &info)), 0);
  EXPECT_TRUE(checkedInfo == &info && notifiedInfo == &info);
  EXPECT_EQ((callSlot<int, void*>(nac, 2, nullptr)), -17);
  EXPECT_EQ(checkedInfo, nullptr);
}

TEST(Params, KeepsTheRegionAndMakesCheckers) {
  void* params = object("GetParams");
  for (const int region : {-1, 1 << 30, 2}) {
    callSlot<void, int>(params, 4, region);
    EXPECT_EQ(callSlot<int>(params, 5), region);
  }
  void* checker = callSlot<void*>(params, 2);
  void* other = callSlot<void*>(params, 2);
  EXPECT_NE(checker, other);
  EXPECT_EQ((callSlot<int, const char*, const char*>(checker, 2, "no URL", nullptr)), 55106);
  callSlot<void>(checker, 1);
  callSlot<void>(other, 1);

  LogCapture log;
  EXPECT_THAT(callSlot<const char*>(params, 3), testing::HasSubstr("DTCP_"));
  EXPECT_THAT(log.take(), ElementsAre("5 TarqPlugin(DMR): TarqDmrParams::GetSinkProtocolInfo()"));
}

}  // namespace
