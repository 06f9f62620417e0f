#include "RequestUrl.h"

#include <cstring>

#include "AsciiText.h"
#include "VondHspError.h"
#include "ZylInet.h"

namespace {

// More than servers take. libcurl would call a few million bytes a lack of memory.
constexpr size_t kMaxUrlBytes = size_t{1} << 20;

}  // namespace

int RequestUrl::parse(const char* string) noexcept {
  // libcurl would encode a blank, too, but in a query as "+", which not every server reads as a blank.
  const bool usable = string != nullptr && startsWithIgnoringCase(string, "http://") &&
                      std::strchr(string, ' ') == nullptr && std::strlen(string) <= kMaxUrlBytes;
  if (!usable) return kVondHspRefused;
  if (url_ == nullptr) url_ = curl_url();
  if (url_ == nullptr) return kVondHspNoResources;
  CURLUcode code = curl_url_set(url_, CURLUPART_URL, string, CURLU_PATH_AS_IS | CURLU_URLENCODE);
  for (const CURLUPart part : {CURLUPART_USER, CURLUPART_PASSWORD})
    if (code == CURLUE_OK) code = curl_url_set(url_, part, nullptr, 0);
  if (code == CURLUE_OUT_OF_MEMORY) return kVondHspNoResources;
  return code == CURLUE_OK ? 0 : kVondHspRefused;
}

bool RequestUrl::hasHostName() const noexcept {
  char* host = nullptr;
  curl_url_get(url_, CURLUPART_HOST, &host, 0);
  const bool literal = host == nullptr || *host == '[' || ZylInetAToN(host, nullptr) == 0;
  curl_free(host);
  return !literal;
}
