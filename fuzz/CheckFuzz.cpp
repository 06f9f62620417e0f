// A whole check by the built plug-in. The server's answer is made up, too: no socket is opened.
// Input: lines with the region, the URI, the client error, the HTTP status, the content type and the content
// features of the answer (the latter two absent when "-"), then the metadata.
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
int asked;  // requests since the check began

}  // namespace

// The HTTP client: the plug-in finds this program's before that of libtarq.
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
  const int mode = request.GetTransferMode();
  require(mode == 0 || mode == 1 || mode == 3, "a request has one of three transfer modes");
  require(request.GetContentFeaturesEnabled(), "a request wants the content features");
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

// Everything that a check came to, in one text.
std::string check(TarqResourceCheckerInterface& checker, const char* uri, const char* metadata) {
  asked = 0;
  const int code = checker.CheckResource(uri, metadata);
  require(std::ranges::count(kResultCodes, code) == 1, "a check ends in a known code");
  require(asked <= 1, "a check asks at most once");
  require(
      asked == 1 || code == kAccepted || code == kCancelled || code == kNotHttp || code == kNothingPlayable,
      "what depends on the server is not known without it");
  std::string outcome = std::to_string(code);
  if (code != kAccepted) return outcome;

  const TarqResourceInfo& info = *checker.GetResource();
  require(info.mimeType != nullptr || info.contentFormat != nullptr, "what is accepted is of some kind");
  require(info.resIndex >= -1, "the index is one of an element, or -1");
  require(asked == 0 || answer.error != 0 || answer.contentType == nullptr ||
              sameText(info.mimeType, answer.contentType),
          "the server's content type counts");
  for (const char* text :
       {info.uri, info.mimeType, info.additionalInfo, info.size, info.duration, info.reserved, info.operation,
        info.contentFormat != nullptr ? info.contentFormat->c_str() : nullptr})
    outcome += text != nullptr ? " [" + std::string(text) + ']' : " -";
  return outcome + ' ' + std::to_string(info.resIndex);
}

const char* orAbsent(const Text& text) { return text.view() == "-" ? nullptr : text.c_str(); }

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  LoadedPlugin::instance();
  __android_log_set_minimum_priority(ANDROID_LOG_VERBOSE);  // every line is put together, and dropped
  __android_log_set_logger([](const __android_logger_data*, const char*) {});
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzInput input(data, size);
  const int32_t region = input.number();
  const Text uri(input.line());
  answer.error = input.number();
  answer.status = input.number();
  const Text contentType(input.line());
  const Text contentFeatures(input.line());
  answer.contentType = orAbsent(contentType);
  answer.contentFeatures = orAbsent(contentFeatures);
  const Text metadata(input.rest());

  const auto checker = newChecker(region);
  const std::string outcome = check(*checker, uri.c_str(), metadata.c_str());
  const bool probed = asked == 1;
  require(check(*checker, uri.c_str(), metadata.c_str()) == outcome, "a second check comes to the same");
  const auto cancelled = newChecker(region);
  cancelled->Cancel();
  const std::string refused = check(*cancelled, uri.c_str(), metadata.c_str());
  require(refused == (probed ? std::to_string(kCancelled) : outcome), "a cancelled checker asks nobody");
  check(*checker, uri.c_str(), nullptr);
  check(*checker, nullptr, metadata.c_str());
  return 0;
}
