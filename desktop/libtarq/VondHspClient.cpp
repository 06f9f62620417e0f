#include "VondHspClient.h"

#include <android/log.h>
#include <curl/curl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <iterator>
#include <new>

#include "AbandonedLookups.h"
#include "RequestUrl.h"
#include "VondHspAnswer.h"

namespace {

constexpr long kConnectLimitMs = 5'000;
constexpr long kRequestLimitMs = 15'000;
// libcurl wakes up earlier when one of its own limits requires it.
constexpr int kLongestSleepMs = 1'000;

constexpr char kLogTag[] = "libtarq";

std::atomic<unsigned int> shortages = 0;
AbandonedLookups abandonedLookups;

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
    // What libcurl reports when one header line exceeds 100 KiB; without a connection it is a shortage.
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

bool isShortage(long error) {
  return error == EMFILE || error == ENFILE || error == ENOBUFS || error == ENOMEM;
}

// Notes in `noSocket` that the process or the system has none left; otherwise libcurl would do the same, but let
// programs that are started meanwhile inherit the socket.
curl_socket_t openSocket(void* noSocket, curlsocktype, curl_sockaddr* address) {
  const int fd = socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
  if (fd < 0 && isShortage(errno)) *static_cast<bool*>(noSocket) = true;
  return fd;
}

// Whether a name lookup finds the descriptors that it needs, two for libcurl and one for the resolver. When it
// does not, the name just counts as not resolved.
bool hasRoomForLookup() {
  int fds[3];
  size_t count = 0;
  while (count < std::size(fds) && (fds[count] = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0)) >= 0) ++count;
  const bool room = count == std::size(fds) || !isShortage(errno);
  while (count > 0) close(fds[--count]);
  return room;
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

  int head(const char* string, const VondHspDlnaRequest& request);
  bool prepare(const VondHspDlnaRequest& request);
  bool addHeaders(const VondHspDlnaRequest& request);
  int run();
  int result();
  bool ranShort(CURLcode code) const;
  bool waitsForLookup() const;
  void drop();

  CURLM* multi = nullptr;
  CURL* easy = nullptr;
  RequestUrl url;
  curl_slist* headers = nullptr;
  bool noSocket = false;
  VondHspAnswer answer;
  std::atomic<bool> cancelled = false;
  bool cancellable = false;
};

int VondHspClient::Transfer::head(const char* string, const VondHspDlnaRequest& request) {
  drop();
  if (const int error = url.parse(string); error != 0) return error;
  if (cancelled) return kVondHspCancelled;
  const bool looksUp = url.hasHostName();
  // The name server does not answer now: one more thread that waits for it would not find out more.
  if (looksUp && abandonedLookups.areTooMany()) return kVondHspTimedOut;
  if (!prepare(request)) return kVondHspNoResources;
  const int error = run();
  if (looksUp && waitsForLookup() && (error == kVondHspTimedOut || error == kVondHspCancelled))
    abandonedLookups.add();
  return error;
}

bool VondHspClient::Transfer::prepare(const VondHspDlnaRequest& request) {
  easy = curl_easy_init();
  if (easy == nullptr || !addHeaders(request)) return false;
  answer = VondHspAnswer();
  noSocket = false;
  bool accepted = true;
  const auto set = [&](CURLoption option, auto value) {
    accepted = accepted && curl_easy_setopt(easy, option, value) == CURLE_OK;
  };
  set(CURLOPT_CURLU, url.get());
  set(CURLOPT_PROTOCOLS_STR, "http");
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
  set(CURLOPT_OPENSOCKETFUNCTION, &openSocket);
  set(CURLOPT_OPENSOCKETDATA, static_cast<void*>(&noSocket));
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
    if (curl_multi_perform(multi, &running) != CURLM_OK) return kVondHspNoResources;
    if (running == 0) return result();
    if (curl_multi_poll(multi, nullptr, 0, kLongestSleepMs, nullptr) != CURLM_OK) return kVondHspNoResources;
  }
  return kVondHspCancelled;
}

int VondHspClient::Transfer::result() {
  int messagesLeft = 0;
  const CURLMsg* message = curl_multi_info_read(multi, &messagesLeft);
  if (message == nullptr) return kVondHspNoResources;
  const CURLcode code = message->data.result;
  if (code == CURLE_OK) return answer.IsComplete() ? 0 : kVondHspConnectionLost;
  return ranShort(code) ? kVondHspNoResources : toHspError(code);
}

// libcurl has the same codes for what this process lacks and for what the server did wrong.
bool VondHspClient::Transfer::ranShort(CURLcode code) const {
  long connectError = 0;
  curl_off_t connected = 0;
  curl_easy_getinfo(easy, CURLINFO_OS_ERRNO, &connectError);
  curl_easy_getinfo(easy, CURLINFO_CONNECT_TIME_T, &connected);
  switch (code) {
    case CURLE_COULDNT_CONNECT:
      return noSocket || isShortage(connectError);
    case CURLE_COULDNT_RESOLVE_HOST:
      return !hasRoomForLookup();
    case CURLE_OUT_OF_MEMORY:
      return connected == 0;
    default:
      return false;
  }
}

bool VondHspClient::Transfer::waitsForLookup() const {
  curl_off_t lookedUp = 0;
  curl_easy_getinfo(easy, CURLINFO_NAMELOOKUP_TIME_T, &lookedUp);
  return lookedUp == 0;
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
  // libcurl goes on without the descriptors for this, but `Cancel` needs them.
  if (curl_multi_wakeup(transfer_->multi) == CURLM_OK) return;
  delete transfer_;
  transfer_ = nullptr;
}

VondHspClient::~VondHspClient() { delete transfer_; }

int VondHspClient::Head(const char* url, const VondHspDlnaRequest& request,
                        VondHspDlnaResponse* response) noexcept {
  const int error = transfer_ != nullptr ? transfer_->head(url, request) : kVondHspNoResources;
  if (error == kVondHspNoResources) ++shortages;
  if (error != 0) {
    __android_log_print(ANDROID_LOG_DEBUG, kLogTag, "HEAD failed (%d): %s", error, VondHspErrorText(error));
    return error;
  }
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

unsigned int VondHspClient::GetNumOfShortages() noexcept { return shortages; }
