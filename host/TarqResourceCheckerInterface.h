#ifndef TARQ_RESOURCE_CHECKER_INTERFACE_H_
#define TARQ_RESOURCE_CHECKER_INTERFACE_H_

#include <cstddef>

#include "VondString.h"

// What to play. Any text may be null when the check did not set it.
struct TarqResourceInfo {
  const char* uri;
  const char* mimeType;
  const char* additionalInfo;  // fourth protocolInfo field, or the server's DLNA content features
  int resIndex;                // of the chosen `res` element, from 0; -1: none was chosen
  const char* size;            // attributes of the chosen `res` as written; empty when absent
  const char* duration;
  const char* reserved;
  const char* operation;      // value of DLNA.ORG_OP; empty when absent
  VondString* contentFormat;  // format group or format name; null when unknown
};
static_assert(offsetof(TarqResourceInfo, resIndex) == 3 * sizeof(void*) &&
                  offsetof(TarqResourceInfo, size) == 4 * sizeof(void*) &&
                  sizeof(TarqResourceInfo) == 9 * sizeof(void*),
              "the host reads the resource record by offset");

// Result codes of a check. The numbers are a contract with the host.
enum TarqCheckResult : int {
  kAccepted = 0,
  kNoHttpClient = 3,
  kCancelled = 5,    // before the HEAD request was sent
  kNotHttp = 55100,  // the URI to probe is absent or no http:// URI
  kNothingPlayable = 55106,
  kServerBusy = 55107,   // 503
  kServerError = 55108,  // another status of 300 or more, or any client error without a code of its own
  kForbidden = 55200,    // 403
  kNameNotResolved = 55201,
  kConnectFailed = 55202,
  kRequestCancelled = 55203,  // while the server was being asked
  kTimedOut = 55204,
};

// Decides whether one URI with its metadata can be played, and what exactly to play of it.
// Owner: who created it deletes it.
// Threads: `Cancel` from any thread at any time; the other two from one thread.
class TarqResourceCheckerInterface {
 public:
  virtual ~TarqResourceCheckerInterface() = default;
  // A TarqCheckResult. `uri` and `metadata` (DIDL-Lite) may be
  // null. Blocks while it asks the media server.
  virtual int CheckResource(const char* uri, const char* metadata) = 0;
  // The outcome of the last accepted check, never null. It belongs to the checker and stays valid until the
  // next check; after an acceptance without a probe `uri` may be the caller's own pointer.
  virtual TarqResourceInfo* GetResource() = 0;
  // Ends a check that waits for a server; every later probe of this checker is refused.
  virtual void Cancel() = 0;
};

#endif  // TARQ_RESOURCE_CHECKER_INTERFACE_H_
