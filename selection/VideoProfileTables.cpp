#include "VideoProfileTables.h"

#include "TarqDlnaResSelection.h"
#include "VondMutex.h"

VondArrayMapT<VondString, int> profileMap(100);
VondArrayMapT<VondString, int> mimeMap(50);
std::atomic<bool> profilesMapped = false;

namespace {

VondMutex mapping;

}  // namespace

// Several first selections may come here at once: one of them fills the maps while the others wait.
void TarqDlnaResSelection::maptheProfiles() {
  mapping.Lock();
  if (profilesMapped) return mapping.Unlock();
  int number = 0;
  for (const VideoProfileRow& row : videoProfileTable) profileMap.put(row.profile.data(), ++number);
  int position = 0;
  for (const VideoMimeRow& row : videoMimeTypes) mimeMap.put(row.mimeType, ++position);
  profilesMapped = true;
  mapping.Unlock();
}
