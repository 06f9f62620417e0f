#ifndef VIDEO_PROFILE_TABLES_H_
#define VIDEO_PROFILE_TABLES_H_

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <string_view>

#include "Region.h"
#include "TarqDlnaResMetadata.h"
#include "VondArrayMap.h"

// The video formats that the contests know: by profile name, and by MIME type. The order of both tables
// matters: prefix comparisons take the first row that fits, and the maps number the rows from 1 (0
// reads as absent).

// The field of a record that holds the profile name a row is keyed on.
using ProfileNameField = VondString TarqDlnaResMetadata::*;

struct VideoProfileRow {
  uint32_t regionMask;
  ProfileNameField keyedOn;
  std::string_view profile;
  const char* format;
};

namespace video_profile_tables {

inline constexpr ProfileNameField kByDlna = &TarqDlnaResMetadata::dlnaPn;
inline constexpr ProfileNameField kByOrsa = &TarqDlnaResMetadata::orsaPn;
inline constexpr ProfileNameField kByArib = &TarqDlnaResMetadata::aribPn;

}  // namespace video_profile_tables

inline constexpr auto videoProfileTable = [] {
  using namespace video_profile_tables;
  return std::to_array<VideoProfileRow>({
      // clang-format off
      {kVideoRegions, kByDlna, "AVC_TS_HD_24_AC3", "AVC_TTS"},  // 1
      {kVideoRegions, kByDlna, "AVC_TS_HD_24_AC3_ISO", "AVC_TS"},  // 2
      {kVideoRegions, kByDlna, "AVC_TS_HD_24_AC3_T", "AVC_TTS_ARIB"},  // 3
      {kVideoRegions, kByDlna, "AVC_TS_HD_50_AC3", "AVC_TTS"},  // 4
      {kVideoRegions, kByDlna, "AVC_TS_HD_50_AC3_ISO", "AVC_TS"},  // 5
      {kVideoRegions, kByDlna, "AVC_TS_HD_50_AC3_T", "AVC_TTS"},  // 6
      {kVideoRegions, kByDlna, "AVC_TS_HD_60_AC3", "AVC_TTS"},  // 7
      {kVideoRegions, kByDlna, "AVC_TS_HD_60_AC3_ISO", "AVC_TS"},  // 8
      {kVideoRegions, kByDlna, "AVC_TS_HD_60_AC3_T", "AVC_TTS_ARIB"},  // 9
      {kVideoRegions, kByDlna, "AVC_TS_HD_EU", "AVC_TTS"},  // 10
      {kVideoRegions, kByDlna, "AVC_TS_HD_EU_ISO", "AVC_TS"},  // 11
      {kVideoRegions, kByDlna, "AVC_TS_HD_EU_T", "AVC_TTS"},  // 12
      {kVideoRegions, kByDlna, "AVC_TS_JP_AAC_T", "AVC_TTS_CP_ARIB"},  // 13
      {kVideoRegions, kByOrsa, "HD2_50_ISO", "MPEG2_TS"},  // 14
      {kVideoRegions, kByOrsa, "HD2_50_T", "MPEG2_TTS"},  // 15
      {kVideoRegions, kByOrsa, "HD2_60_ISO", "MPEG2_TS"},  // 16
      {kVideoRegions, kByOrsa, "HD2_60_T", "MPEG2_TTS"},  // 17
      {kVideoRegions, kByDlna, "MPEG_PS_NTSC", "MPEG2_PS"},  // 18
      {kVideoRegions, kByDlna, "MPEG_PS_PAL", "MPEG2_PS"},  // 19
      {kVideoRegions, kByDlna, "MPEG_TS_HD_50_L2_ISO", "MPEG2_TS"},  // 20
      {kVideoRegions, kByDlna, "MPEG_TS_HD_50_L2_T", "MPEG2_TTS"},  // 21
      {kVideoRegions, kByDlna, "MPEG_TS_HD_60_L2_ISO", "MPEG2_TS"},  // 22
      {kVideoRegions, kByDlna, "MPEG_TS_HD_60_L2_T", "MPEG2_TTS"},  // 23
      {kVideoRegions, kByDlna, "MPEG_TS_HD_KO", "MPEG2_TTS"},  // 24
      {kVideoRegions, kByDlna, "MPEG_TS_HD_KO_ISO", "MPEG2_TS"},  // 25
      {kVideoRegions, kByDlna, "MPEG_TS_HD_KO_T", "MPEG2_TTS"},  // 26
      {kVideoRegions, kByDlna, "MPEG_TS_HD_NA", "MPEG2_TTS"},  // 27
      {kVideoRegions, kByDlna, "MPEG_TS_HD_NA_ISO", "MPEG2_TS"},  // 28
      {kVideoRegions, kByDlna, "MPEG_TS_HD_NA_MPEG1_L2_ISO", "MPEG2_TS"},  // 29
      {kVideoRegions, kByDlna, "MPEG_TS_HD_NA_MPEG1_L2_T", "MPEG2_TTS"},  // 30
      {kVideoRegions, kByDlna, "MPEG_TS_HD_NA_T", "MPEG2_TTS"},  // 31
      {kVideoRegions, kByDlna, "MPEG_TS_JP_T", "MPEG2_TTS_ARIB"},  // 32
      {kVideoRegions, kByDlna, "MPEG_TS_SD_50_AC3_T", "MPEG2_TTS"},  // 33
      {kVideoRegions, kByDlna, "MPEG_TS_SD_50_L2_T", "MPEG2_TTS"},  // 34
      {kVideoRegions, kByDlna, "MPEG_TS_SD_60_AC3_T", "MPEG2_TTS"},  // 35
      {kVideoRegions, kByDlna, "MPEG_TS_SD_60_L2_T", "MPEG2_TTS"},  // 36
      {kVideoRegions, kByDlna, "MPEG_TS_SD_EU", "MPEG2_TTS"},  // 37
      {kVideoRegions, kByDlna, "MPEG_TS_SD_EU_ISO", "MPEG2_TS"},  // 38
      {kVideoRegions, kByDlna, "MPEG_TS_SD_EU_T", "MPEG2_TTS"},  // 39
      {kVideoRegions, kByDlna, "MPEG_TS_SD_JP_MPEG1_L2_T", "MPEG2_TTS_ARIB"},  // 40
      {kVideoRegions, kByDlna, "MPEG_TS_SD_KO", "MPEG2_TTS"},  // 41
      {kVideoRegions, kByDlna, "MPEG_TS_SD_KO_ISO", "MPEG2_TS"},  // 42
      {kVideoRegions, kByDlna, "MPEG_TS_SD_KO_T", "MPEG2_TTS"},  // 43
      {kVideoRegions, kByDlna, "MPEG_TS_SD_NA", "MPEG2_TTS"},  // 44
      {kVideoRegions, kByDlna, "MPEG_TS_SD_NA_ISO", "MPEG2_TS"},  // 45
      {kVideoRegions, kByDlna, "MPEG_TS_SD_NA_MPEG1_L2_ISO", "MPEG2_TS"},  // 46
      {kVideoRegions, kByDlna, "MPEG_TS_SD_NA_MPEG1_L2_T", "MPEG2_TTS"},  // 47
      {kVideoRegions, kByDlna, "MPEG_TS_SD_NA_T", "MPEG2_TTS"},  // 48
      {kVideoRegions, kByArib, "MPEG_TTS_CP", "MPEG2_TTS_ARIB"},  // 49
      {kVideoRegions, kByDlna, "MPEG1", "MPEG1"},  // 50
      {kProtectedRegion, kByDlna, "DTCP_AVC_TS_HD_24_AC3", "AVC_TTS"},  // 51
      {kProtectedRegion, kByDlna, "DTCP_AVC_TS_HD_24_AC3_ISO", "AVC_TS"},  // 52
      {kProtectedRegion, kByDlna, "DTCP_AVC_TS_HD_24_AC3_T", "AVC_TTS_ARIB"},  // 53
      {kProtectedRegion, kByDlna, "DTCP_AVC_TS_JP_AAC_T", "AVC_TTS_ARIB"},  // 54
      {kProtectedRegion, kByDlna, "DTCP_MPEG_TS_JP_T", "MPEG2_TTS_ARIB"},  // 55
      {kProtectedRegion, kByDlna, "DTCP_MPEG_TS_SD_60_AC3_T", "MPEG2_TTS"},  // 56
      {kProtectedRegion, kByDlna, "DTCP_AVC_TS_HD_60_AC3", "AVC_TTS"},  // 57
      {kProtectedRegion, kByDlna, "DTCP_AVC_TS_HD_60_AC3_ISO", "AVC_TS"},  // 58
      {kProtectedRegion, kByDlna, "DTCP_AVC_TS_HD_60_AC3_T", "AVC_TTS_ARIB"},  // 59
      {kProtectedRegion, kByDlna, "DTCP_MPEG_TS_SD_60_L2_T", "MPEG2_TTS"},  // 60
      {kProtectedRegion, kByDlna, "DTCP_MPEG_TS_SD_JP_MPEG1_L2_T", "MPEG2_TTS_ARIB"},  // 61
      {kProtectedRegion, kByOrsa, "DTCP_SESF_60_AC3_T", "MPEG2_TTS"},  // 62
      {kProtectedRegion, kByOrsa, "DTCP_SESF_60_L2_T", "MPEG2_TTS"},  // 63
      // clang-format on
  });
}();

// Windows Media, which the contest for it tries before the table above.
inline constexpr auto wmvProfileTable = [] {
  using namespace video_profile_tables;
  return std::to_array<VideoProfileRow>({
      {kVideoRegions, kByDlna, "WMVMED_BASE", "WMV"},
      {kVideoRegions, kByDlna, "WMVMED_FULL", "WMV"},
      {kVideoRegions, kByDlna, "WMVHIGH_FULL", "WMV"},
      {kVideoRegions, kByDlna, "WMVSPLL_BASE", "WMV"},
      {kVideoRegions, kByDlna, "WMVSPML_BASE", "WMV"},
      {kVideoRegions, kByDlna, "VC1_ASF_AP_L1_WMA", "WMV"},
      {kVideoRegions, kByDlna, "VC1_ASF_AP_L2_WMA", "WMV"},
  });
}();

// What a MIME type is worth beside a profile name that no table contains, and its place in the MIME map.
struct VideoMimeRow {
  const char* mimeType;                        // compared whole
  const char* format = nullptr;                // null: such an element is out
  std::array<const char*, 4> extensions = {};  // any of these passes, ignoring case; "": an empty extension
  bool anyExtension = false;                   // even an absent one
  bool realMedia = false;                      // passes in the RealMedia region only
  bool chained = false;  // the next row is tested too, and each test passed earns the points again
};

inline constexpr auto videoMimeTypes = std::to_array<VideoMimeRow>({
    {"video/mpeg", "AVC_TTS", {"m2ts", "mts"}},                                                        // 1
    {"video/vnd.dlna.mpeg-tts", "AVC_TTS", {"m2ts", "mts", "tts"}},                                    // 2
    {.mimeType = "video/mp4", .format = "MPEG4", .anyExtension = true},                                // 3
    {"application/x-mpegURL"},                                                                         // 4
    {"application/vnd.apple.mpegURL"},                                                                 // 5
    {"video/3gpp", "3GPP", {"3gp", "3g2", ""}},                                                        // 6
    {"video/3gpp2", "3GPP", {"3gp", "3g2", ""}},                                                       // 7
    {"video/x-mkv", "MKV", {"mkv", ""}},                                                               // 8
    {"video/x-matroska", "MKV", {"mkv", ""}},                                                          // 9
    {"video/webm", "WebM", {"webm", ""}},                                                              // 10
    {"video/quicktime", "MOV", {"mov", ""}},                                                           // 11
    {"application/octet-stream", "RMVB", {"rmvb", "rm"}, false, true},                                 // 12
    {"video/x-pn-realmedia", "RMVB", {"rmvb", "rm", "rmv", ""}, false, true},                          // 13
    {"application/vnd.rn-realmedia-vbr", "RMVB", {"rmvb", "rm", "rmv", ""}, false, true},              // 14
    {"video/vnd.rn-realvideo", "RMVB", {"rmvb", "rm", "rmv", ""}, false, true},                        // 15
    {"application/vnd.rn-realmedia", "RMVB", {"rmvb", "rm", "rmv", ""}, false, true},                  // 16
    {"video/avi", "AVI_Unknown", {"avi", ""}},                                                         // 17
    {.mimeType = "video/x-msvideo", .format = "AVI_Unknown", .extensions = {"avi"}, .chained = true},  // 18
    {.mimeType = "video/x-avi", .format = "AVI_Unknown", .extensions = {"avi"}, .chained = true},      // 19
    {"video/x-xvid", "Xvid", {"xvid", ""}},                                                            // 20
    {"video/x-ms-wmv"},                                                                                // 21
    {"video/x-ms-asf"},                                                                                // 22
    {"video/x-ms-video"},                                                                              // 23
    {"video/divx"},                                                                                    // 24
    {"video/x-divx"},                                                                                  // 25
    {"video/vnd.directv.mpeg"},                                                                        // 26
    {"video/vnd.directv.mpeg-tts"},                                                                    // 27
    {"video/vnd.directv.dss-ts-tts.es.mpeg2"},                                                         // 28
});

static_assert(videoProfileTable.size() == 63 && wmvProfileTable.size() == 7 && videoMimeTypes.size() == 28);
static_assert(std::ranges::all_of(videoProfileTable,
                                  [](auto& row) {
                                    return std::ranges::count_if(videoProfileTable, [&](auto& other) {
                                             return other.profile == row.profile;
                                           }) == 1;
                                  }),
              "a profile is listed twice: the map would hide the second");
static_assert(std::ranges::all_of(videoProfileTable,
                                  [](auto& row) {
                                    return row.profile.starts_with("DTCP_") ==
                                           (row.regionMask == kProtectedRegion);
                                  }),
              "link-protected profiles, and no others, are bound to their region");

static_assert(!videoMimeTypes.back().chained, "a chained row has a next one");

// Look-ups over the two tables: profile name to row number (1 to 63), MIME type to position (1 to 28).
// Empty until the first selection of the process fills them, only read from then on.
extern VondArrayMapT<VondString, int> profileMap;
extern VondArrayMapT<VondString, int> mimeMap;
extern std::atomic<bool> profilesMapped;

#endif  // VIDEO_PROFILE_TABLES_H_
