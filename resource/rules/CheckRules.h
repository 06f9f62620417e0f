#ifndef CHECK_RULES_H_
#define CHECK_RULES_H_

#include <cstddef>
#include <span>

#include "TarqResourceCheckerInterface.h"
#include "VondNameValueList.h"

// The rules of a resource check that need neither its state nor the network.

// A test that accepts a resource for its texts alone. The first that holds decides.
struct QuickTest {
  bool internetOnly;  // hosts that are no literal IPv4 address
  bool ofUri;         // else of the metadata; anywhere in the text, case-sensitive
  const char* contains;
  const char*
      mimeType;  // what it is accepted as; null: audio/* when the metadata contains "audio/", else video/*

  bool appliesTo(bool homeNetwork) const { return !internetOnly || !homeNetwork; }
};
std::span<const QuickTest> quickTests();

// Whether a URL's host is on the home network: a literal IPv4 address. Null: false.
bool isHomeNetwork(const char* host);

// The test that holds, or null; without metadata (null) none does.
const QuickTest* findQuickTest(const char* uri, const char* metadata, bool homeNetwork);
const char* mimeTypeOf(const QuickTest& test, const char* metadata);

// RVU content is served by a protocol of its own and is never probed. `metadata` may be null.
bool isRvuContent(const char* metadata);
// Whether the server has a say: it is asked before anything that no quick test accepted is played.
bool isProbed(bool homeNetwork, const char* metadata);
// The only scheme that is probed. Null: false.
bool isHttpUri(const char* uri);

// The transfer mode that a probe asks for, by category: 1 photo, 0 music and video, 3 unknown.
int transferModeOf(int category);
// What a probe's client error, or else the server's status, comes to.
TarqCheckResult resultOfClientError(int clientError);
TarqCheckResult resultOfStatus(int status);

// What a row of the media profile table is compared with where the server's answer alone decides: the first
// profile name that the server gave, or, where it gave none, the MIME type; the one for rows with a name, the
// other for bare MIME rows.
struct FormatKey {
  const char* profile;  // points into the parameters; null: none
  const char* mimeType;
};
FormatKey formatKeyOf(const char* mimeType, const VondPI4thField& contentFeatures);

#endif  // CHECK_RULES_H_
