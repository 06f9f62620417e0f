#ifndef MEDIA_REGION_H_
#define MEDIA_REGION_H_

#include <cstdint>

// The current region is a bit set that the host defines and sets. A table row carries a mask and applies
// where the two share a bit. The names say what the rows of a mask have in common.

inline constexpr uint32_t kNoRegion = 0x00;         // no row by its mask alone
inline constexpr uint32_t kProtectedRegion = 0x02;  // link-protected (DTCP) and ARIB content
inline constexpr uint32_t kSatelliteRegion = 0x04;  // satellite television streams
inline constexpr uint32_t kVideoRegions = 0x0F;     // what the video contests play
inline constexpr uint32_t kEveryRegion = 0xFF;      // what is advertised under any of the eight bits

// RealMedia plays where the region equals this value. The bit beside others is not enough, and no mask of a
// video table contains it.
inline constexpr int32_t kRealMediaRegion = 16;

constexpr bool sharesBit(int32_t region, uint32_t mask) {
  return (static_cast<uint32_t>(region) & mask) != 0;
}

#endif  // MEDIA_REGION_H_
