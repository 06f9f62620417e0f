#include <algorithm>
#include <array>
#include <string_view>

#include "TarqDlnaResSelection.h"
#include "TextMatch.h"
#include "VideoProfileTables.h"
#include "VondMimeType.h"

// The category of one `res` element: by MIME type, else by DLNA profile name, else by extension.

namespace {

struct CategoryOf {
  const char* name;
  MediaCategory category;
};

constexpr auto kMimePatterns = std::to_array<CategoryOf>({
    {"image/*", kCategoryPhoto},
    {"audio/*", kCategoryMusic},
    {"application/ogg", kCategoryMusic},
    {"video/*", kCategoryVideo},
    {"application/x-dtcp1", kCategoryVideo},
    {"application/octet-stream", kCategoryVideo},
    {"application/vnd.rn-realmedia-vbr", kCategoryVideo},
    {"application/vnd.rn-realmedia", kCategoryVideo},
    {"application/x-mpegURL", kCategoryVideo},
    {"application/vnd.apple.mpegURL", kCategoryVideo},
});

constexpr auto kProfileNames = std::to_array<CategoryOf>({
    {"JPEG_LRG", kCategoryPhoto},
    {"JPEG_MED", kCategoryPhoto},
    {"JPEG_SM", kCategoryPhoto},
    {"JPEG_TN", kCategoryPhoto},
    {"LPCM", kCategoryMusic},
    {"MP3", kCategoryMusic},
});
constexpr const char* kMusicProfileBeginnings[] = {"WMABASE", "WMAFULL"};

constexpr auto kExtensions = std::to_array<CategoryOf>({
    {"jpg", kCategoryPhoto},  {"kzr", kCategoryPhoto},  {"lpcm", kCategoryMusic}, {"mp3", kCategoryMusic},
    {"3gp", kCategoryMusic},  {"3g2", kCategoryMusic},  {"mpg", kCategoryVideo},  {"m2t", kCategoryVideo},
    {"m2ts", kCategoryVideo}, {"mts", kCategoryVideo},  {"tts", kCategoryVideo},  {"mp4", kCategoryVideo},
    {"mpeg", kCategoryVideo}, {"mpe", kCategoryVideo},  {"divx", kCategoryVideo}, {"avi", kCategoryVideo},
    {"mkv", kCategoryVideo},  {"webm", kCategoryVideo}, {"mov", kCategoryVideo},  {"rmvb", kCategoryVideo},
    {"rm", kCategoryVideo},   {"rmv", kCategoryVideo},  {"xvid", kCategoryVideo},
});

// The category of the first row whose name `matches`.
template <class Table, class Matches>
MediaCategory firstMatch(const Table& table, Matches matches) {
  const auto row =
      std::ranges::find_if(table, [&](const CategoryOf& candidate) { return matches(candidate.name); });
  return row == table.end() ? kCategoryUnknown : row->category;
}

MediaCategory categoryOfMimeType(const char* mimeType) {
  const VondMimeType type(mimeType);
  if (!type.IsValid()) return kCategoryUnknown;
  return firstMatch(kMimePatterns, [&](const char* pattern) { return type.Match(pattern); });
}

MediaCategory categoryOfProfile(const char* dlnaPn) {
  if (dlnaPn == nullptr) return kCategoryUnknown;
  const std::string_view profile = dlnaPn;
  const MediaCategory category = firstMatch(kProfileNames, [&](const char* name) { return profile == name; });
  if (category != kCategoryUnknown) return category;
  if (std::ranges::any_of(kMusicProfileBeginnings, [&](auto* name) { return profile.starts_with(name); })) {
    return kCategoryMusic;
  }
  const bool video =
      std::ranges::any_of(videoProfileTable, [&](auto& row) { return profile == row.profile; });
  return video ? kCategoryVideo : kCategoryUnknown;
}

MediaCategory categoryOfExtension(const char* extension) {
  return firstMatch(kExtensions, [&](const char* name) { return equalsIgnoringCase(extension, name); });
}

}  // namespace

// Each stage decides only what the stages before it left open.
MediaCategory TarqDlnaResSelection::selectMediaCategory(const char* mimeType, const char* extension,
                                                        const char* dlnaPn, CategoryStage* stage) const {
  CategoryStage by = CategoryStage::kMimeType;
  MediaCategory category = categoryOfMimeType(mimeType);
  if (category == kCategoryUnknown) {
    by = CategoryStage::kProfileName;
    category = categoryOfProfile(dlnaPn);
  }
  if (category == kCategoryUnknown) {
    by = CategoryStage::kExtension;
    category = categoryOfExtension(extension);
  }
  if (stage != nullptr) *stage = category == kCategoryUnknown ? CategoryStage::kNone : by;
  return category;
}
