#include "ResultText.h"

const char* describe(int resultCode) {
  switch (resultCode) {
    case 0:
      return "accepted";
    case 3:
      return "no HTTP client could be created";
    case 5:
      return "the check was cancelled";
    case 55100:
      return "the URI to probe is absent or no http:// URI";
    case 55106:
      return "nothing playable was found";
    case 55107:
      return "the server answered 503";
    case 55108:
      return "the server answered with an error status or the request failed";
    case 55200:
      return "the server answered 403";
    case 55201:
      return "the server's name could not be resolved";
    case 55202:
      return "the server could not be reached";
    case 55203:
      return "the request was cancelled";
    case 55204:
      return "the server did not answer in time";
    default:
      return "unknown result code";
  }
}
