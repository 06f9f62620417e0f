#ifndef TARQ_DMR_MEDIA_PROFILE_H_
#define TARQ_DMR_MEDIA_PROFILE_H_

#include <cstdint>

// One playable format: a DLNA-style profile, or a bare MIME type. All strings are constants of the library.
struct TarqDmrMediaProfile {
  const char* pnName;   // the fourth-field parameter that carries the profile name; null: a bare MIME type
  const char* profile;  // the profile name, or the MIME type
  const char* formatGroup;
  uint32_t regionMask;  // offered where it shares a bit with the region
  uint8_t isDtcp;       // 1: link-protected content
};

// Walks the rows of the media profile table that the current region shows, in table order.
// The region is read afresh for every row, from the runtime parameters that the host's plug-in manager holds.
// Threads: an iterator belongs to one thread; several may walk at once.
class TarqDmrMediaProfileTableIterator {
 public:
  // The next visible row; null when the table is exhausted, and from then on.
  const TarqDmrMediaProfile* Next();

 private:
  int32_t index = -1;  // the row returned last
};

#endif  // TARQ_DMR_MEDIA_PROFILE_H_
