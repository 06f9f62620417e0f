#ifndef ZYL_INET_H_
#define ZYL_INET_H_

#include <cstdint>

#include "TarqHostApi.h"

// Reads a literal IPv4 address: four decimal parts of 0 to 255 without leading zeros, signs or blanks.
// Returns: 0; -1 for any other string, and `*address` is left alone.
// Null: a null `string` returns -1; `address` may be null.
// Units: the address is in network byte order.
TARQ_HOST_API int ZylInetAToN(const char* string, uint32_t* address) noexcept;

#endif  // ZYL_INET_H_
