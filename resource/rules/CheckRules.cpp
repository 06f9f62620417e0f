#include "CheckRules.h"

#include <strings.h>

#include <array>
#include <cstring>

#include "FourthField.h"
#include "VondHspError.h"
#include "ZylInet.h"

namespace {

constexpr bool kInternet = true;
constexpr bool kAnyHost = false;
constexpr bool kUri = true;
constexpr bool kMetadata = false;

constexpr auto kQuickTests = std::to_array<QuickTest>({
    {kInternet, kMetadata, "http-get:*:video", "video/*"},
    {kInternet, kMetadata, "http-get:*:audio", "audio/*"},
    {kAnyHost, kMetadata, "http-get:*:application/vnd.apple.mpegURL", "application/vnd.apple.mpegURL"},
    {kAnyHost, kMetadata, "http-get:*:application/x-mpegURL", "application/x-mpegURL"},
    {kAnyHost, kUri, "m3u8", "video/*"},
    {kAnyHost, kUri, "mp4", nullptr},
    {kAnyHost, kUri, "flv", nullptr},
});

bool contains(const char* string, const char* part) { return std::strstr(string, part) != nullptr; }

}  // namespace

std::span<const QuickTest> quickTests() { return kQuickTests; }

bool isHomeNetwork(const char* host) {
  uint32_t address = 0;
  return ZylInetAToN(host, &address) == 0;
}

const QuickTest* findQuickTest(const char* uri, const char* metadata, bool homeNetwork) {
  if (metadata == nullptr) return nullptr;
  for (const QuickTest& test : kQuickTests) {
    if (!test.appliesTo(homeNetwork)) continue;
    if (contains(test.ofUri ? uri : metadata, test.contains)) return &test;
  }
  return nullptr;
}

const char* mimeTypeOf(const QuickTest& test, const char* metadata) {
  if (test.mimeType != nullptr) return test.mimeType;
  return contains(metadata, "audio/") ? "audio/*" : "video/*";
}

bool isRvuContent(const char* metadata) { return metadata != nullptr && contains(metadata, "RVUALLIANCE"); }

bool isProbed(bool homeNetwork, const char* metadata) { return homeNetwork && !isRvuContent(metadata); }

bool isHttpUri(const char* uri) { return uri != nullptr && strncasecmp(uri, "http://", 7) == 0; }

TransferMode transferModeOf(MediaCategory category) {
  switch (category) {
    case kCategoryPhoto:
      return kTransferInteractive;
    case kCategoryMusic:
    case kCategoryVideo:
      return kTransferStreaming;
    default:
      return kTransferUnspecified;
  }
}

TarqCheckResult resultOfClientError(int clientError) {
  switch (clientError) {
    case 0:
    case 403:
    case 503:
      return kAccepted;  // the status decides
    case kVondHspConnectFailed:
      return kConnectFailed;
    case kVondHspNameNotResolved:
      return kNameNotResolved;
    case kVondHspTimedOut:
      return kTimedOut;
    case kVondHspCancelled:
      return kRequestCancelled;
    default:
      return kServerError;
  }
}

TarqCheckResult resultOfStatus(int status) {
  if (status == 503) return kServerBusy;
  if (status == 403) return kForbidden;
  return status >= 300 ? kServerError : kAccepted;
}

FormatKey formatKeyOf(const char* mimeType, const VondPI4thField& contentFeatures) {
  if (contentFeatures.IsValid()) {
    for (const char* name : kProfileNameParameters) {
      if (const char* profile = contentFeatures.GetParameter(name)) return {profile, nullptr};
    }
  }
  return {nullptr, mimeType};
}
