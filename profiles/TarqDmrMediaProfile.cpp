#include "TarqDmrMediaProfile.h"

#include <algorithm>
#include <string_view>

#include "MediaProfileTables.h"
#include "TarqDmrPluginManager.h"

namespace {

// Offered in every region, whatever the mask: the AVI and Xvid family, compared over the length
// of the prefix.
constexpr std::string_view kEverywherePrefixes[] = {"video/avi", "video/x-msvideo", "video/x-avi",
                                                    "video/x-xvid"};

// Offered in the RealMedia region only.
constexpr std::string_view kRealMediaTypes[] = {
    "application/octet-stream",     "video/x-pn-realmedia",   "application/vnd.rn-realmedia-vbr",
    "application/vnd.rn-realmedia", "video/vnd.rn-realvideo",
};

int currentRegion() {
  TarqDmrParamsInterface* params = TarqDmrPluginManager::GetInstance()->GetParams();
  return params == nullptr ? 0 : params->GetCurrentRegion();
}

bool isVisible(const TarqDmrMediaProfile& row, int region) {
  if (sharesBit(region, row.regionMask)) return true;
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
