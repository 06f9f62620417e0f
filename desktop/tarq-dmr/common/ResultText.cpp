#include "ResultText.h"

#include <algorithm>

#include "TarqResourceCheckerInterface.h"

namespace {

constexpr ResultText kTexts[] = {
    {kAccepted, "accepted"},
    {kNoHttpClient, "no HTTP client could be created"},
    {kCancelled, "the check was cancelled"},
    {kNotHttp, "the URI to probe is absent or no http:// URI"},
    {kNothingPlayable, "nothing playable was found"},
    {kServerBusy, "the server answered 503"},
    {kServerError, "the server answered with an error status or the request failed"},
    {kForbidden, "the server answered 403"},
    {kNameNotResolved, "the server's name could not be resolved"},
    {kConnectFailed, "the server could not be reached"},
    {kRequestCancelled, "the request was cancelled"},
    {kTimedOut, "the server did not answer in time"},
};

}  // namespace

std::span<const ResultText> resultTexts() { return kTexts; }

const char* describe(int resultCode) {
  const auto row = std::ranges::find(kTexts, resultCode, &ResultText::code);
  return row == std::end(kTexts) ? "unknown result code" : row->words;
}
