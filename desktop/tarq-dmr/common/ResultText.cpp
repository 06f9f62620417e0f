#include "ResultText.h"

#include "TarqResourceCheckerInterface.h"

const char* describe(int resultCode) {
  switch (resultCode) {
    case kAccepted:
      return "accepted";
    case kNoHttpClient:
      return "no HTTP client could be created";
    case kCancelled:
      return "the check was cancelled";
    case kNotHttp:
      return "the URI to probe is absent or no http:// URI";
    case kNothingPlayable:
      return "nothing playable was found";
    case kServerBusy:
      return "the server answered 503";
    case kServerError:
      return "the server answered with an error status or the request failed";
    case kForbidden:
      return "the server answered 403";
    case kNameNotResolved:
      return "the server's name could not be resolved";
    case kConnectFailed:
      return "the server could not be reached";
    case kRequestCancelled:
      return "the request was cancelled";
    case kTimedOut:
      return "the server did not answer in time";
    default:
      return "unknown result code";
  }
}
