#include "HttpClient.h"

#include <curl/curl.h>

namespace {

constexpr long kConnectSeconds = 5;
constexpr long kAnswerSeconds = 30;

struct FreeList {
  void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};
using HeaderList = std::unique_ptr<curl_slist, FreeList>;

size_t onBody(char* bytes, size_t, size_t count, void* to) {
  std::string& body = *static_cast<std::string*>(to);
  if (body.size() + count > HttpClient::kMaxBytes) return 0;
  body.append(bytes, count);
  return count;
}

int onProgress(void* stopped, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
  return *static_cast<const std::atomic<bool>*>(stopped) ? 1 : 0;
}

struct FreeUrl {
  void operator()(CURLU* url) const { curl_url_cleanup(url); }
};
using Url = std::unique_ptr<CURLU, FreeUrl>;

std::string partOf(const Url& url, CURLUPart part) {
  char* text = nullptr;
  if (curl_url_get(url.get(), part, &text, 0) != CURLUE_OK) return {};
  std::string copy = text;
  curl_free(text);
  return copy;
}

}  // namespace

struct HttpClient::Handle {
  Handle() : curl(curl_easy_init()) {
    if (curl == nullptr) throw std::bad_alloc();
  }
  ~Handle() { curl_easy_cleanup(curl); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  template <class Value>
  void set(CURLoption option, Value value) {
    curl_easy_setopt(curl, option, value);
  }

  CURL* const curl;
};

HttpClient::HttpClient() : handle_(std::make_unique<Handle>()) {}

HttpClient::~HttpClient() = default;

HttpAnswer HttpClient::get(const std::string& url) {
  handle_->set(CURLOPT_HTTPGET, 1L);
  return perform(url);
}

HttpAnswer HttpClient::postSoap(const std::string& url, const std::string& action, const std::string& body) {
  HeaderList headers;
  for (const std::string& line :
       {"SOAPACTION: \"" + action + '"', std::string("Content-Type: text/xml; charset=\"utf-8\""),
        std::string("Expect:")}) {
    curl_slist* const longer = curl_slist_append(headers.get(), line.c_str());
    if (longer == nullptr) throw std::bad_alloc();
    static_cast<void>(headers.release());  // it is the rest of the longer one
    headers.reset(longer);
  }
  handle_->set(CURLOPT_HTTPHEADER, headers.get());
  handle_->set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(body.size()));
  handle_->set(CURLOPT_POSTFIELDS, body.c_str());
  return perform(url);
}

// The options of one request do not reach the next; the connection does.
HttpAnswer HttpClient::perform(const std::string& url) {
  HttpAnswer answer;
  handle_->set(CURLOPT_URL, url.c_str());
  handle_->set(CURLOPT_PROTOCOLS_STR, "http");
  handle_->set(CURLOPT_PROXY, "");
  handle_->set(CURLOPT_NOSIGNAL, 1L);
  handle_->set(CURLOPT_CONNECTTIMEOUT, kConnectSeconds);
  handle_->set(CURLOPT_TIMEOUT, kAnswerSeconds);
  handle_->set(CURLOPT_WRITEFUNCTION, onBody);
  handle_->set(CURLOPT_WRITEDATA, &answer.body);
  handle_->set(CURLOPT_NOPROGRESS, 0L);
  handle_->set(CURLOPT_XFERINFOFUNCTION, onProgress);
  handle_->set(CURLOPT_XFERINFODATA, &stopped_);
  const CURLcode code = curl_easy_perform(handle_->curl);
  curl_easy_getinfo(handle_->curl, CURLINFO_RESPONSE_CODE, &answer.status);
  curl_easy_reset(handle_->curl);
  if (code == CURLE_WRITE_ERROR)
    throw HttpError(HttpError::Kind::kTooLarge, "its answer is larger than 8 MiB");
  if (code != CURLE_OK) throw HttpError(HttpError::Kind::kNoAnswer, curl_easy_strerror(code));
  return answer;
}

std::string resolvedUrl(const std::string& base, const std::string& reference) {
  const Url url(curl_url());
  if (url == nullptr || curl_url_set(url.get(), CURLUPART_URL, base.c_str(), 0) != CURLUE_OK ||
      curl_url_set(url.get(), CURLUPART_URL, reference.c_str(), 0) != CURLUE_OK)
    return {};
  return partOf(url, CURLUPART_URL);
}

std::string hostOf(const std::string& url) {
  const Url parsed(curl_url());
  if (parsed == nullptr || curl_url_set(parsed.get(), CURLUPART_URL, url.c_str(), 0) != CURLUE_OK) return {};
  return partOf(parsed, CURLUPART_HOST);
}
