#ifndef REAL_MEDIA_H_
#define REAL_MEDIA_H_

#include <cstdint>

// RealMedia is played where the region is this one exactly; having the bit set beside others is not enough.
inline constexpr int32_t kRealMediaRegion = 16;
inline constexpr char kRealMediaFormat[] = "RMVB";

#endif  // REAL_MEDIA_H_
