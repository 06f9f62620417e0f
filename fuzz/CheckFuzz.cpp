// A whole check by the built plug-in. The server's answer is made up as well: no socket is opened.
// Input: lines with the region, the URI, the client error, the HTTP status, the content type and the content
// features of the answer (the last two absent when "-"), then the metadata.
#include <android/log.h>

#include <algorithm>
#include <string>

#include "Checker.h"
#include "FuzzInput.h"
#include "VondHspClient.h"

namespace {

struct Answer {
  int error;
  int status;
  const char* contentType;
  const char* contentFeatures;
};
Answer answer;
// Requests since the check began.
int asked;

}  // namespace

// The HTTP client: the plug-in finds this one before that of libtarq.
struct VondHspClient::Transfer {
  bool cancellable;
};

VondHspClient::VondHspClient(bool cancellable) noexcept : transfer_(new Transfer{cancellable}) {
  require(transfer_->cancellable, "a check can be cancelled");
}
VondHspClient::~VondHspClient() { delete transfer_; }

int VondHspClient::Head(const char* url, const VondHspDlnaRequest& request,
                        VondHspDlnaResponse* response) noexcept {
  ++asked;
  require(strncasecmp(url, "http://", 7) == 0, "only http:// URLs are asked for");
  const int mode = request.transferMode_;
  require(mode == 0 || mode == 1 || mode == 3, "a request has one of three transfer modes");
  require(request.contentFeatures_, "a request asks for the content features");
  if (answer.error != 0) return answer.error;
  response->statusCode_ = answer.status;
  response->contentType_ = answer.contentType;
  response->contentFeatures_ = answer.contentFeatures;
  return 0;
}
void VondHspClient::Close() noexcept {}
void VondHspClient::Cancel() noexcept {}

namespace {

constexpr int kResultCodes[] = {kAccepted,        kNoHttpClient,  kCancelled,        kNotHttp,
                                kNothingPlayable, kServerBusy,    kServerError,      kForbidden,
                                kNameNotResolved, kConnectFailed, kRequestCancelled, kTimedOut};

// The result of a check, whole, as a string.
std::string check(TarqResourceCheckerInterface& checker, const char* uri, const char* metadata) {
  asked = 0;
  const int code = checker.CheckResource(uri, metadata);
  require(std::ranges::count(kResultCodes, code) == 1, "a check ends in a known code");
  require(asked <= 1, "a check asks at most once");
  if (code != kAccepted) return std::to_string(code);

  const TarqResourceInfo& info = *checker.GetResource();
  require(info.mimeType != nullptr || info.contentFormat != nullptr,
          "what is accepted has a type or a format");
  require(asked == 0 || answer.error != 0 || answer.contentType == nullptr ||
              sameString(info.mimeType, answer.contentType),
          "the server's content type replaces that of the metadata");
  std::string outcome = outcomeOf(checker, code);
  for (const char* string : {info.uri, info.size, info.duration, info.reserved})
    outcome += string != nullptr ? " [" + std::string(string) + ']' : " -";
  return outcome;
}

const char* orAbsent(const CString& string) { return string.view() == "-" ? nullptr : string.c_str(); }

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  LoadedPlugin::instance();
  // Every message is formatted, and dropped.
  __android_log_set_minimum_priority(ANDROID_LOG_VERBOSE);
  __android_log_set_logger([](const __android_logger_data*, const char*) {});
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzInput input(data, size);
  const int32_t region = input.number();
  const CString uri(input.line());
  answer.error = input.number();
  answer.status = input.number();
  const CString contentType(input.line());
  const CString contentFeatures(input.line());
  answer.contentType = orAbsent(contentType);
  answer.contentFeatures = orAbsent(contentFeatures);
  const CString metadata(input.rest());

  const auto checker = newChecker(region);
  const std::string outcome = check(*checker, uri.c_str(), metadata.c_str());
  const bool probed = asked == 1;
  require(check(*checker, uri.c_str(), metadata.c_str()) == outcome, "a second check has the same result");
  const auto cancelled = newChecker(region);
  cancelled->Cancel();
  const std::string refused = check(*cancelled, uri.c_str(), metadata.c_str());
  require(refused == (probed ? std::to_string(kCancelled) : outcome), "a cancelled checker asks no server");
  check(*checker, uri.c_str(), nullptr);
  check(*checker, nullptr, metadata.c_str());
  return 0;
}
