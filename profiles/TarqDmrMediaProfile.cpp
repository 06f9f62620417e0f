#include "TarqDmrMediaProfile.h"

#include <algorithm>
#include <string_view>

#include "MediaProfileTables.h"
#include "TarqDmrPluginManager.h"

namespace {

// Offered in every region, whatever the mask: the AVI and Xvid family, with whatever follows in the name.
constexpr std::string_view kEverywherePrefixes[] = {"video/avi", "video/x-msvideo", "video/x-avi",
                                                    "video/x-xvid"};

// RealMedia: offered where the region is this one exactly; having the bit set beside others is not enough.
constexpr int kRealMediaRegion = 16;
constexpr std::string_view kRealMediaTypes[] = {
    "application/octet-stream",     "video/x-pn-realmedia",   "application/vnd.rn-realmedia-vbr",
    "application/vnd.rn-realmedia", "video/vnd.rn-realvideo",
};

int currentRegion() {
  TarqDmrParamsInterface* params = TarqDmrPluginManager::GetInstance()->GetParams();
  return params == nullptr ? 0 : params->GetCurrentRegion();
}

bool isVisible(const TarqDmrMediaProfile& row, int region) {
  if ((static_cast<uint32_t>(region) & row.regionMask) != 0) return true;
  const std::string_view profile = row.profile;
  if (std::ranges::any_of(kEverywherePrefixes, [&](auto prefix) { return profile.starts_with(prefix); })) {
    return true;
  }
  return region == kRealMediaRegion &&
         std::ranges::any_of(kRealMediaTypes, [&](auto type) { return profile == type; });
}

}  // namespace

const TarqDmrMediaProfile* TarqDmrMediaProfileTableIterator::Next() {
  constexpr int32_t kRows = static_cast<int32_t>(mediaProfileTable.size());
  while (index < kRows) {
    if (++index == kRows) break;
    const TarqDmrMediaProfile& row = mediaProfileTable[static_cast<size_t>(index)];
    if (isVisible(row, currentRegion())) return &row;
  }
  return nullptr;
}
