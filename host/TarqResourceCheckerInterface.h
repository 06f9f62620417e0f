#ifndef TARQ_RESOURCE_CHECKER_INTERFACE_H_
#define TARQ_RESOURCE_CHECKER_INTERFACE_H_

#include <cstddef>

#include "VondString.h"

// What to play.
// Null: any string may be null when the check did not set it.
struct TarqResourceInfo {
  const char* uri;
  const char* mimeType;
  // The fourth protocolInfo field, or the DLNA content features of the server's answer.
  const char* additionalInfo;
  // Which `res` element was chosen, from 0; -1: none.
  int resIndex;
  // Attributes of the chosen `res` element as written; empty when it does not have them.
  const char* size;
  const char* duration;
  // Always the empty string after a full check: room for a later use.
  const char* reserved;
  // The value of DLNA.ORG_OP; empty when there is none.
  const char* operation;
  // A format group or a format name; null when unknown.
  VondString* contentFormat;
};
static_assert(offsetof(TarqResourceInfo, resIndex) == 3 * sizeof(void*) &&
                  offsetof(TarqResourceInfo, size) == 4 * sizeof(void*) &&
                  sizeof(TarqResourceInfo) == 9 * sizeof(void*),
              "the host reads the resource record by offset");

// Result codes of a check. The numbers are a contract with the host.
enum TarqCheckResult : int {
  kAccepted = 0,
  kNoHttpClient = 3,
  // Before the HEAD request was sent.
  kCancelled = 5,
  // The URI to ask for is absent, or is not an http:// URI.
  kNotHttp = 55100,
  kNothingPlayable = 55106,
  // Status 503.
  kServerBusy = 55107,
  // Another status of 300 or more, or a client error without a code of its own.
  kServerError = 55108,
  // Status 403.
  kForbidden = 55200,
  kNameNotResolved = 55201,
  kConnectFailed = 55202,
  // While the checker was waiting for the server.
  kRequestCancelled = 55203,
  kTimedOut = 55204,
};

// Decides whether one URI with its metadata can be played, and what exactly to play. Use one checker for one
// check: a second check leaves what it does not set as the first one left it.
// Ownership: who created the checker deletes it, and never while `CheckResource` runs: after a `Cancel` wait
//   until `CheckResource` has returned.
// Threads: `Cancel` from any thread at any time while the checker lives; the other two from one thread.
class TarqResourceCheckerInterface {
 public:
  virtual ~TarqResourceCheckerInterface() = default;

  // Blocks while it waits for the media server.
  // Returns: a TarqCheckResult.
  // Null: `uri` and `metadata` (DIDL-Lite) may be null.
  virtual int CheckResource(const char* uri, const char* metadata) = 0;

  // Returns: what an accepted check found, never null. After a quick acceptance (without a request) only
  //   `uri` and `mimeType` are new. After a refusal the strings are those of the last accepted check, while
  //   `resIndex` is that of the refused one.
  // Ownership: the record and its strings belong to the checker and live until its next check or its end.
  //   After a quick acceptance `uri` is the caller's own pointer.
  virtual TarqResourceInfo* GetResource() = 0;

  // Ends a check that is waiting for a server. It cannot be undone: the checker sends no later request.
  virtual void Cancel() = 0;
};

#endif  // TARQ_RESOURCE_CHECKER_INTERFACE_H_
