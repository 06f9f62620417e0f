#include <dlfcn.h>
#include <gtest/gtest.h>
#include <netdb.h>

#include <atomic>
#include <future>
#include <mutex>
#include <thread>

#include "TarqDmrParamsInterface.h"

using namespace std::chrono_literals;

static std::mutex stuck;  // while it is locked, every name lookup waits
static std::atomic<int> lookups = 0;

// Takes the place of the C library's function in this program.
extern "C" int getaddrinfo(const char*, const char*, const addrinfo*, addrinfo**) {
  ++lookups;
  const std::lock_guard wait(stuck);
  --lookups;
  return EAI_NONAME;
}

// This program does not link libtarq, so `dlclose` could unload it, and libcurl with it.
TEST(Libtarq, OutlivesALookupThatNobodyWaitsFor) {
  std::unique_lock lock(stuck);
  void* plugin = dlopen(TARQ_PLUGIN_PATH, RTLD_NOW | RTLD_LOCAL);
  const auto getParams = reinterpret_cast<TarqDmrParamsInterface* (*)()>(dlsym(plugin, "GetParams"));
  static TarqDmrParamsInterface* params = getParams();  // static: it is never freed, which is no leak
  TarqResourceCheckerInterface* checker = params->CreateResourceChecker();
  auto result = std::async(std::launch::async, [&] {
    return checker->CheckResource("http://127.0.0.1/",
                                  "<DIDL-Lite><item><res protocolInfo='http-get:*:audio/mpeg:*'>"
                                  "http://stuck.invalid/</res></item></DIDL-Lite>");
  });
  while (lookups == 0) std::this_thread::sleep_for(1ms);
  checker->Cancel();
  EXPECT_EQ(result.get(), 55203);
  delete checker;
  EXPECT_EQ(dlclose(plugin), 0);
  lock.unlock();
  while (lookups > 0) std::this_thread::sleep_for(1ms);
  std::this_thread::sleep_for(100ms);  // the lookup returns into libcurl
}
