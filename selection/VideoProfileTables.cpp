#include "VideoProfileTables.h"

#include "TarqDlnaResSelection.h"

VondArrayMapT<VondString, int> profileMap(100);
VondArrayMapT<VondString, int> mimeMap(50);
bool profilesMapped = false;

void TarqDlnaResSelection::maptheProfiles() {
  int number = 0;
  for (const VideoProfileRow& row : videoProfileTable) profileMap.put(row.profile.data(), ++number);
  int position = 0;
  for (const VideoMimeRow& row : videoMimeTypes) mimeMap.put(row.mimeType, ++position);
  profilesMapped = true;
}
