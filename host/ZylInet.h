#ifndef ZYL_INET_H_
#define ZYL_INET_H_

#include <cstdint>

#include "TarqHostApi.h"

// Reads a literal IPv4 address: four decimal parts of 0 to 255 without leading zeros, signs or blanks.
// Returns 0 and stores the address in network byte order; -1, storing nothing, for anything else and for
// null. `address` may be null where only the answer matters.
TARQ_HOST_API int ZylInetAToN(const char* text, uint32_t* address) noexcept;

#endif  // ZYL_INET_H_
