// One check that asks a server on the loopback address. Baseline: the same request with bare libcurl.
#include <benchmark/benchmark.h>
#include <curl/curl.h>

#include <cstdlib>
#include <string>

#include "Checker.h"
#include "PairedTiming.h"
#include "RawHttpServer.h"

namespace {

const char kResponse[] =
    "HTTP/1.1 200 OK\r\nContent-Type: video/mpeg\r\nContent-Length: 36524\r\n"
    "contentFeatures.dlna.org: DLNA.ORG_PN=MPEG1;DLNA.ORG_OP=01\r\nConnection: close\r\n\r\n";

void bareHead(const std::string& url) {
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

void checkWithHead(const std::string& url) {
  if (newChecker()->CheckResource(url.c_str(), nullptr) != 0) std::abort();
}

void probe(benchmark::State& state) {
  RawHttpServer server{std::string(kResponse)};
  const std::string url = server.url("/a.mpg");
  timeAgainstBaseline(
      state, [&] { bareHead(url); }, [&] { checkWithHead(url); });
}
BENCHMARK(probe)->UseRealTime();

}  // namespace
