#ifndef SINK_PROTOCOL_INFO_H_
#define SINK_PROTOCOL_INFO_H_

#include "TarqDmrMediaProfile.h"
#include "VondString.h"

// Builds the SinkProtocolInfo string of the visible media profiles: first the entries of the DLNA profiles,
// each with its vendor or ARIB counterpart merged in, then all others.
// Returns: never null; valid until the next call.
// Ownership: the builder keeps the string.
// Threads: one caller at a time.
// Source: ConnectionManager:1, 2.2.2.
const char* TarqDmrMediaProfile_GetProtocolInfo();

// The counterpart that is advertised in one entry with `row`, searched among the rows that `it` has still to
// visit; null when it has none there.
const TarqDmrMediaProfile* getMultiplexProfile(const TarqDmrMediaProfile& row,
                                               TarqDmrMediaProfileTableIterator& it);

// Appends the entry of `row` to `out`; `partner` may be null.
void addProtocolInfo(VondString& out, const TarqDmrMediaProfile& row, const TarqDmrMediaProfile* partner);

#endif  // SINK_PROTOCOL_INFO_H_
