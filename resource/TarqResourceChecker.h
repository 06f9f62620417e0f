#ifndef TARQ_RESOURCE_CHECKER_H_
#define TARQ_RESOURCE_CHECKER_H_

#include "MediaCategory.h"
#include "TarqResourceCheckerInterface.h"
#include "VondHspClient.h"
#include "VondMutex.h"
#include "VondString.h"

// Decides whether a URI with its metadata can be played, and what exactly to play of it: from the
// strings alone for Internet and streaming content, by a res selection and a HEAD request for content
// on the home network.
// Ownership: all its strings, except the URI of a quick acceptance, which stays the caller's.
// Threads: `Cancel` from any thread while the checker exists; everything else from one. The mutex guards
//   `client_` and `cancelled_` only; it is never held while the server is being asked.
class TarqResourceChecker final : public TarqResourceCheckerInterface {
 public:
  using xMraCategory = MediaCategory;

  explicit TarqResourceChecker(int region) : region_(region) {}
  ~TarqResourceChecker() override;
  TarqResourceChecker(const TarqResourceChecker&) = delete;
  TarqResourceChecker& operator=(const TarqResourceChecker&) = delete;

  int CheckResource(const char* uri, const char* metadata) override;
  TarqResourceInfo* GetResource() override;
  void Cancel() override;

 private:
  // What a check finds out step by step. A step that is left out leaves what an earlier check found.
  struct TarqResource {
    VondString uri;
    VondString mimeType;
    VondString additionalInfo;
    VondString contentFormat;
    int resIndex = -1;
    VondString size;
    VondString duration;
    VondString reserved;
    VondString operation;
  };

  TarqResource& startWork();
  int checkFully(const char* uri, const char* metadata, const char* host, bool homeNetwork);
  int publish(const TarqResource& resource);

  TarqCheckResult ask(const char* uri, MediaCategory category, VondHspDlnaResponse& response);
  int selectResource(const char* metadata, TarqResource& resource, xMraCategory& category);
  int getResourceHeader(TarqResource& resource, xMraCategory& category);
  int getContentFormat(TarqResource& resource);

  const int region_;
  VondMutex mutex_;
  VondHspClient* client_ = nullptr;  // of a request in flight
  bool cancelled_ = false;           // never reset

  // Two, because what was published must outlive the work of a later check that is refused.
  TarqResource resources_[2];
  TarqResource* working_ = &resources_[0];
  bool workingIsPublished_ = false;

  TarqResourceInfo result_{};          // its strings are null until a check sets them
  VondString* ownedFormat_ = nullptr;  // the copy that `GetResource` hands out
};

#endif  // TARQ_RESOURCE_CHECKER_H_
