#ifndef CHECK_RULES_H_
#define CHECK_RULES_H_

#include <span>

#include "MediaCategory.h"
#include "TarqResourceCheckerInterface.h"
#include "VondNameValueList.h"

// The rules of a resource check that need neither its state nor the network.

// A test that accepts a resource by its strings alone. The first one that passes decides.
struct QuickTest {
  bool internetOnly;     // for hosts that are not a literal IPv4 address
  bool ofUri;            // looks into the URI; otherwise into the metadata
  const char* contains;  // anywhere in it, case-sensitive
  const char* mimeType;  // accepted as this; null: audio/* when the metadata contains "audio/", else video/*

  bool appliesTo(bool homeNetwork) const { return !internetOnly || !homeNetwork; }
};
std::span<const QuickTest> quickTests();

// Whether a URL's host is on the home network: a literal IPv4 address.
// Null: false.
bool isHomeNetwork(const char* host);

// Returns: the test that passes, null when none does.
// Null: without metadata none passes.
const QuickTest* findQuickTest(const char* uri, const char* metadata, bool homeNetwork);
const char* mimeTypeOf(const QuickTest& test, const char* metadata);

// RVU content is served by a protocol of its own and is never probed. `metadata` may be null.
bool isRvuContent(const char* metadata);
// Whether the server is asked before the content is played, unless a quick test accepted it.
bool isProbed(bool homeNetwork, const char* metadata);
// The only scheme that is probed.
// Null: false.
bool isHttpUri(const char* uri);

// What `VondHspDlnaRequest::SetTransferMode` takes.
// Source: DLNA guidelines, part 1-1, 7.5.4.
enum TransferMode : int {
  kTransferStreaming = 0,
  kTransferInteractive = 1,
  kTransferUnspecified = 3,  // no header is sent
};
TransferMode transferModeOf(MediaCategory category);

// The result code that a client error, or else the server's status, leads to.
TarqCheckResult resultOfClientError(int clientError);
TarqCheckResult resultOfStatus(int status);

// What a row of the media profile table is compared with when the server's answer alone decides. The first
// profile name of the answer, for rows with a name; when there is none, the MIME type, for bare MIME rows.
// Ownership: `profile` points into the parameters, `mimeType` is the string passed in.
// Null: not compared.
struct FormatKey {
  const char* profile;
  const char* mimeType;
};
FormatKey formatKeyOf(const char* mimeType, const VondPI4thField& contentFeatures);

#endif  // CHECK_RULES_H_
