#include "CheckRules.h"

#include <strings.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

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

// Where each string that is looked for in the metadata has its "*": one pass from "*" to "*" finds them all.
constexpr std::string_view kBeforeStar = "http-get:";
static_assert(std::ranges::all_of(kQuickTests, [](const QuickTest& test) {
  return test.ofUri || std::string_view(test.contains).find('*') == kBeforeStar.size();
}));

bool contains(const char* string, const char* part) { return std::strstr(string, part) != nullptr; }

// Returns: how many tests come before the first that the metadata passes.
size_t firstPassed(std::string_view metadata, bool homeNetwork) {
  size_t first = kQuickTests.size();
  for (size_t star = kBeforeStar.size(); (star = metadata.find('*', star)) != metadata.npos; ++star) {
    const std::string_view found = metadata.substr(star - kBeforeStar.size());
    for (size_t i = 0; i < first; ++i) {
      const QuickTest& test = kQuickTests[i];
      if (!test.ofUri && test.appliesTo(homeNetwork) && found.starts_with(test.contains)) first = i;
    }
  }
  return first;
}

}  // namespace

std::span<const QuickTest> quickTests() { return kQuickTests; }

bool isHomeNetwork(const char* host) {
  uint32_t address = 0;
  return ZylInetAToN(host, &address) == 0;
}

const QuickTest* findQuickTest(const char* uri, const char* metadata, bool homeNetwork) {
  if (metadata == nullptr) return nullptr;
  const size_t first = firstPassed(metadata, homeNetwork);
  for (const QuickTest& test : quickTests().first(first)) {
    if (test.ofUri && test.appliesTo(homeNetwork) && contains(uri, test.contains)) return &test;
  }
  return first < kQuickTests.size() ? &kQuickTests[first] : nullptr;
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
