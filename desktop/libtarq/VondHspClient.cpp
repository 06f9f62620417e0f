#include "VondHspClient.h"

#include <curl/curl.h>

#include <atomic>
#include <new>

#include "AsciiText.h"
#include "VondHspAnswer.h"

namespace {

constexpr long kConnectLimitMs = 5'000;
constexpr long kRequestLimitMs = 15'000;
// libcurl wakes up earlier when one of its own limits requires it.
constexpr int kLongestSleepMs = 1'000;

bool initialiseCurl() {
  static const bool ready = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
  return ready;
}

const char* transferModeHeader(int mode) {
  switch (mode) {
    case 0:
      return "transferMode.dlna.org: Streaming";
    case 1:
      return "transferMode.dlna.org: Interactive";
    case 2:
      return "transferMode.dlna.org: Background";
    default:
      return nullptr;
  }
}

int toHspError(CURLcode code) {
  switch (code) {
    case CURLE_COULDNT_CONNECT:
      return kVondHspConnectFailed;
    case CURLE_COULDNT_RESOLVE_HOST:
      return kVondHspNameNotResolved;
    // Of the answer: the URL's scheme is known to be http.
    case CURLE_UNSUPPORTED_PROTOCOL:
    case CURLE_WEIRD_SERVER_REPLY:
    // VondHspAnswer refused a line.
    case CURLE_WRITE_ERROR:
    case CURLE_BAD_CONTENT_ENCODING:
    // What libcurl reports when one header line exceeds 100 KiB.
    case CURLE_OUT_OF_MEMORY:
      return kVondHspInvalidAnswer;
    case CURLE_RECV_ERROR:
    case CURLE_GOT_NOTHING:
    case CURLE_PARTIAL_FILE:
      return kVondHspConnectionLost;
    case CURLE_SEND_ERROR:
      return kVondHspSendFailed;
    case CURLE_OPERATION_TIMEDOUT:
      return kVondHspTimedOut;
    default:
      return kVondHspRefused;
  }
}

size_t onHeaderLine(char* line, size_t, size_t length, void* answer) {
  return static_cast<VondHspAnswer*>(answer)->AddLine({line, length}) ? length : 0;
}

}  // namespace

// The current request. `multi` lives as long as the client, because `Cancel` wakes it from another thread;
// `easy` is a new one for each request.
struct VondHspClient::Transfer {
  ~Transfer() {
    drop();
    curl_multi_cleanup(multi);
  }

  bool prepare(const char* url, const VondHspDlnaRequest& request);
  bool addHeaders(const VondHspDlnaRequest& request);
  int run();
  int result();
  void drop();

  CURLM* multi = nullptr;
  CURL* easy = nullptr;
  curl_slist* headers = nullptr;
  VondHspAnswer answer;
  std::atomic<bool> cancelled = false;
  bool cancellable = false;
};

bool VondHspClient::Transfer::prepare(const char* url, const VondHspDlnaRequest& request) {
  easy = curl_easy_init();
  if (easy == nullptr || !addHeaders(request)) return false;
  answer = VondHspAnswer();
  bool accepted = true;
  const auto set = [&](CURLoption option, auto value) {
    accepted = accepted && curl_easy_setopt(easy, option, value) == CURLE_OK;
  };
  set(CURLOPT_URL, url);
  set(CURLOPT_PROTOCOLS_STR, "http");
  set(CURLOPT_PATH_AS_IS, 1L);
  set(CURLOPT_NOBODY, 1L);
  // No body is read, so a broken length does no harm.
  set(CURLOPT_IGNORE_CONTENT_LENGTH, 1L);
  set(CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
  set(CURLOPT_HTTPHEADER, headers);
  set(CURLOPT_HEADERFUNCTION, &onHeaderLine);
  set(CURLOPT_HEADERDATA, static_cast<void*>(&answer));
  // No proxy, whatever the environment says.
  set(CURLOPT_PROXY, "");
  set(CURLOPT_NOPROXY, "*");
  set(CURLOPT_FORBID_REUSE, 1L);
  // Time limits without SIGALRM, because there are other threads.
  set(CURLOPT_NOSIGNAL, 1L);
  // A name lookup that hangs is abandoned, not waited for.
  set(CURLOPT_QUICK_EXIT, 1L);
  set(CURLOPT_CONNECTTIMEOUT_MS, kConnectLimitMs);
  set(CURLOPT_TIMEOUT_MS, kRequestLimitMs);
  return accepted && curl_multi_add_handle(multi, easy) == CURLM_OK;
}

bool VondHspClient::Transfer::addHeaders(const VondHspDlnaRequest& request) {
  const auto add = [this](const char* header) {
    curl_slist* longer = curl_slist_append(headers, header);
    if (longer != nullptr) headers = longer;
    return longer != nullptr;
  };
  const char* mode = transferModeHeader(request.transferMode_);
  return (!request.contentFeatures_ || add("getcontentFeatures.dlna.org: 1")) &&
         (mode == nullptr || add(mode));
}

// Waits for the end of the request. The wake-up of a `Cancel` that comes just before the wait is not lost: it
// ends the next wait.
int VondHspClient::Transfer::run() {
  for (int running = 1; !cancelled;) {
    if (curl_multi_perform(multi, &running) != CURLM_OK) return kVondHspRefused;
    if (running == 0) return result();
    if (curl_multi_poll(multi, nullptr, 0, kLongestSleepMs, nullptr) != CURLM_OK) return kVondHspRefused;
  }
  return kVondHspCancelled;
}

int VondHspClient::Transfer::result() {
  int messagesLeft = 0;
  const CURLMsg* message = curl_multi_info_read(multi, &messagesLeft);
  if (message == nullptr) return kVondHspRefused;
  if (message->data.result != CURLE_OK) return toHspError(message->data.result);
  return answer.IsComplete() ? 0 : kVondHspConnectionLost;
}

void VondHspClient::Transfer::drop() {
  if (easy != nullptr) {
    curl_multi_remove_handle(multi, easy);
    curl_easy_cleanup(easy);
    easy = nullptr;
  }
  curl_slist_free_all(headers);
  headers = nullptr;
}

VondHspClient::VondHspClient(bool cancellable) noexcept : transfer_(nullptr) {
  if (!initialiseCurl()) return;
  transfer_ = new (std::nothrow) Transfer;
  if (transfer_ == nullptr) return;
  transfer_->cancellable = cancellable;
  transfer_->multi = curl_multi_init();
}

VondHspClient::~VondHspClient() { delete transfer_; }

int VondHspClient::Head(const char* url, const VondHspDlnaRequest& request,
                        VondHspDlnaResponse* response) noexcept {
  if (url == nullptr || !startsWithIgnoringCase(url, "http://")) return kVondHspRefused;
  if (transfer_ == nullptr || transfer_->multi == nullptr) return kVondHspRefused;
  transfer_->drop();
  if (!transfer_->prepare(url, request)) return kVondHspRefused;
  if (const int error = transfer_->run(); error != 0) return error;

  response->statusCode_ = transfer_->answer.status();
  response->contentType_ = transfer_->answer.contentType();
  response->contentFeatures_ = transfer_->answer.contentFeatures();
  return 0;
}

void VondHspClient::Cancel() noexcept {
  if (transfer_ == nullptr || !transfer_->cancellable) return;
  transfer_->cancelled = true;
  curl_multi_wakeup(transfer_->multi);
}

void VondHspClient::Close() noexcept {
  if (transfer_ != nullptr) transfer_->drop();
}
