// One check that asks a server on the loopback address, beside the same request by bare libcurl.
#include <android/log.h>
#include <benchmark/benchmark.h>
#include <curl/curl.h>

#include <cstdlib>
#include <string>

#include "Beside.h"
#include "Checker.h"
#include "RawHttpServer.h"

namespace {

const char kAnswer[] =
    "HTTP/1.1 200 OK\r\nContent-Type: video/mpeg\r\nContent-Length: 36524\r\n"
    "contentFeatures.dlna.org: DLNA.ORG_PN=MPEG1;DLNA.ORG_OP=01\r\nConnection: close\r\n\r\n";

void headOnly(const std::string& url) {
  CURL* handle = curl_easy_init();
  curl_slist* headers = curl_slist_append(nullptr, "getcontentFeatures.dlna.org: 1");
  curl_easy_setopt(handle, CURLOPT_URL, url.c_str());
  curl_easy_setopt(handle, CURLOPT_NOBODY, 1L);
  curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(handle, CURLOPT_PROXY, "");
  curl_easy_setopt(handle, CURLOPT_HTTPHEADER, headers);
  if (curl_easy_perform(handle) != CURLE_OK) std::abort();
  curl_slist_free_all(headers);
  curl_easy_cleanup(handle);
}

void checkWithHead(benchmark::State& state) {
  RawHttpServer server{std::string(kAnswer)};
  const std::string url = server.url("/a.mpg");
  __android_log_set_minimum_priority(ANDROID_LOG_SILENT);
  measureBeside(
      state, [&] { headOnly(url); },
      [&] {
        if (newChecker()->CheckResource(url.c_str(), nullptr) != 0) std::abort();
      });
}

BENCHMARK(checkWithHead)->UseRealTime()->Unit(benchmark::kMicrosecond);

}  // namespace
