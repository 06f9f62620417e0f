// The access lists when they are full, with the built plug-in between them and the application.
#include <gtest/gtest.h>

#include <atomic>
#include <latch>
#include <thread>
#include <vector>

#include "AccessLists.h"
#include "LoadedPlugin.h"
#include "RendererProgram.h"

namespace {

// Allows addresses that begin with 1.
class Application : public AccessApplication {
 public:
  explicit Application(std::function<void()> wait = [] {}) : wait_(std::move(wait)) {}
  bool allows(const AccessDevice& device) override {
    ++questions;
    wait_();
    return device.address.starts_with('1');
  }
  void deviceSeen(const AccessDevice&) override {}

  std::atomic<int> questions = 0;

 private:
  const std::function<void()> wait_;
};

AccessLists listsFor(Application& application) {
  const LoadedPlugin& plugin = LoadedPlugin::instance();
  return AccessLists(*plugin.symbol<TarqDmrSpecInterface*()>("GetSpec")(),
                     *plugin.symbol<_TarqNetworkAccessControlInterface*()>("GetDeviceNac")(), application);
}

AccessDevice device(int group, int number) {
  return {std::to_string(group) + ".0.0." + std::to_string(number), "agent", "/", ""};
}

TEST(AccessLists, ForgetTheOldestOfAFullList) {
  Application application;
  AccessLists lists = listsFor(application);
  for (int i = 0; i <= 20; ++i) EXPECT_TRUE(lists.isAllowed(device(1, i)));
  for (int i = 0; i <= 64; ++i) EXPECT_FALSE(lists.isAllowed(device(2, i)));
  EXPECT_EQ(lists.known("1.0.0.0"), std::nullopt);
  EXPECT_EQ(lists.known("1.0.0.1"), true);
  EXPECT_EQ(lists.known("2.0.0.0"), std::nullopt);
  EXPECT_EQ(lists.known("2.0.0.1"), false);
  const int before = application.questions;
  EXPECT_TRUE(lists.isAllowed(device(1, 1)));
  EXPECT_EQ(application.questions, before);
}

TEST(AccessLists, RefuseWithoutAskingWhileTooManyAreAsked) {
  std::latch answered(1);
  Application application([&] { answered.wait(); });
  AccessLists lists = listsFor(application);
  std::atomic<int> allowed = 0;
  std::vector<std::jthread> threads;
  for (int i = 0; i < 64 + 8; ++i) {  // the last address is asked for nine times
    threads.emplace_back([&, i] { allowed += lists.isAllowed(device(1, std::min(i, 63))); });
  }
  EXPECT_TRUE(becomesTrue([&] { return application.questions == 64; }));
  EXPECT_FALSE(lists.isAllowed(device(1, 64)));
  answered.count_down();
  threads.clear();
  EXPECT_EQ(allowed, 64 + 8);
}

}  // namespace
