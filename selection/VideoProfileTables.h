#ifndef VIDEO_PROFILE_TABLES_H_
#define VIDEO_PROFILE_TABLES_H_

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "TarqDlnaResMetadata.h"
#include "VondArrayMap.h"

// The video formats that the contests know: by profile name, and by MIME type. The order of both tables
// matters: prefix comparisons take the first row that fits, and the maps number the rows from 1 (0 reads as
// absent).

// The field of a record that holds the profile name a row is keyed on.
using ProfileNameField = VondString TarqDlnaResMetadata::*;

struct VideoProfileRow {
  uint32_t regionMask;  // the row applies where it shares a bit with the region
  ProfileNameField keyedOn;
  std::string_view profile;
  std::string_view format;

  bool appliesIn(int32_t region) const { return (static_cast<uint32_t>(region) & regionMask) != 0; }
};

namespace video_profile_tables {

inline constexpr ProfileNameField kDlnaPn = &TarqDlnaResMetadata::dlnaPn;
inline constexpr ProfileNameField kOrsaPn = &TarqDlnaResMetadata::orsaPn;
inline constexpr ProfileNameField kAribPn = &TarqDlnaResMetadata::aribPn;

inline constexpr uint32_t kRegions0To3 = 0x0F;
inline constexpr uint32_t kRegion1 = 0x02;  // link-protected content

}  // namespace video_profile_tables

inline constexpr auto videoProfileTable = [] {
  using namespace video_profile_tables;
  return std::to_array<VideoProfileRow>({
      // clang-format off
      {kRegions0To3, kDlnaPn, "AVC_TS_HD_24_AC3", "AVC_TTS"},  // 1
      {kRegions0To3, kDlnaPn, "AVC_TS_HD_24_AC3_ISO", "AVC_TS"},  // 2
      {kRegions0To3, kDlnaPn, "AVC_TS_HD_24_AC3_T", "AVC_TTS_ARIB"},  // 3
      {kRegions0To3, kDlnaPn, "AVC_TS_HD_50_AC3", "AVC_TTS"},  // 4
      {kRegions0To3, kDlnaPn, "AVC_TS_HD_50_AC3_ISO", "AVC_TS"},  // 5
      {kRegions0To3, kDlnaPn, "AVC_TS_HD_50_AC3_T", "AVC_TTS"},  // 6
      {kRegions0To3, kDlnaPn, "AVC_TS_HD_60_AC3", "AVC_TTS"},  // 7
      {kRegions0To3, kDlnaPn, "AVC_TS_HD_60_AC3_ISO", "AVC_TS"},  // 8
      {kRegions0To3, kDlnaPn, "AVC_TS_HD_60_AC3_T", "AVC_TTS_ARIB"},  // 9
      {kRegions0To3, kDlnaPn, "AVC_TS_HD_EU", "AVC_TTS"},  // 10
      {kRegions0To3, kDlnaPn, "AVC_TS_HD_EU_ISO", "AVC_TS"},  // 11
      {kRegions0To3, kDlnaPn, "AVC_TS_HD_EU_T", "AVC_TTS"},  // 12
      {kRegions0To3, kDlnaPn, "AVC_TS_JP_AAC_T", "AVC_TTS_CP_ARIB"},  // 13
      {kRegions0To3, kOrsaPn, "HD2_50_ISO", "MPEG2_TS"},  // 14
      {kRegions0To3, kOrsaPn, "HD2_50_T", "MPEG2_TTS"},  // 15
      {kRegions0To3, kOrsaPn, "HD2_60_ISO", "MPEG2_TS"},  // 16
      {kRegions0To3, kOrsaPn, "HD2_60_T", "MPEG2_TTS"},  // 17
      {kRegions0To3, kDlnaPn, "MPEG_PS_NTSC", "MPEG2_PS"},  // 18
      {kRegions0To3, kDlnaPn, "MPEG_PS_PAL", "MPEG2_PS"},  // 19
      {kRegions0To3, kDlnaPn, "MPEG_TS_HD_50_L2_ISO", "MPEG2_TS"},  // 20
      {kRegions0To3, kDlnaPn, "MPEG_TS_HD_50_L2_T", "MPEG2_TTS"},  // 21
      {kRegions0To3, kDlnaPn, "MPEG_TS_HD_60_L2_ISO", "MPEG2_TS"},  // 22
      {kRegions0To3, kDlnaPn, "MPEG_TS_HD_60_L2_T", "MPEG2_TTS"},  // 23
      {kRegions0To3, kDlnaPn, "MPEG_TS_HD_KO", "MPEG2_TTS"},  // 24
      {kRegions0To3, kDlnaPn, "MPEG_TS_HD_KO_ISO", "MPEG2_TS"},  // 25
      {kRegions0To3, kDlnaPn, "MPEG_TS_HD_KO_T", "MPEG2_TTS"},  // 26
      {kRegions0To3, kDlnaPn, "MPEG_TS_HD_NA", "MPEG2_TTS"},  // 27
      {kRegions0To3, kDlnaPn, "MPEG_TS_HD_NA_ISO", "MPEG2_TS"},  // 28
      {kRegions0To3, kDlnaPn, "MPEG_TS_HD_NA_MPEG1_L2_ISO", "MPEG2_TS"},  // 29
      {kRegions0To3, kDlnaPn, "MPEG_TS_HD_NA_MPEG1_L2_T", "MPEG2_TTS"},  // 30
      {kRegions0To3, kDlnaPn, "MPEG_TS_HD_NA_T", "MPEG2_TTS"},  // 31
      {kRegions0To3, kDlnaPn, "MPEG_TS_JP_T", "MPEG2_TTS_ARIB"},  // 32
      {kRegions0To3, kDlnaPn, "MPEG_TS_SD_50_AC3_T", "MPEG2_TTS"},  // 33
      {kRegions0To3, kDlnaPn, "MPEG_TS_SD_50_L2_T", "MPEG2_TTS"},  // 34
      {kRegions0To3, kDlnaPn, "MPEG_TS_SD_60_AC3_T", "MPEG2_TTS"},  // 35
      {kRegions0To3, kDlnaPn, "MPEG_TS_SD_60_L2_T", "MPEG2_TTS"},  // 36
      {kRegions0To3, kDlnaPn, "MPEG_TS_SD_EU", "MPEG2_TTS"},  // 37
      {kRegions0To3, kDlnaPn, "MPEG_TS_SD_EU_ISO", "MPEG2_TS"},  // 38
      {kRegions0To3, kDlnaPn, "MPEG_TS_SD_EU_T", "MPEG2_TTS"},  // 39
      {kRegions0To3, kDlnaPn, "MPEG_TS_SD_JP_MPEG1_L2_T", "MPEG2_TTS_ARIB"},  // 40
      {kRegions0To3, kDlnaPn, "MPEG_TS_SD_KO", "MPEG2_TTS"},  // 41
      {kRegions0To3, kDlnaPn, "MPEG_TS_SD_KO_ISO", "MPEG2_TS"},  // 42
      {kRegions0To3, kDlnaPn, "MPEG_TS_SD_KO_T", "MPEG2_TTS"},  // 43
      {kRegions0To3, kDlnaPn, "MPEG_TS_SD_NA", "MPEG2_TTS"},  // 44
      {kRegions0To3, kDlnaPn, "MPEG_TS_SD_NA_ISO", "MPEG2_TS"},  // 45
      {kRegions0To3, kDlnaPn, "MPEG_TS_SD_NA_MPEG1_L2_ISO", "MPEG2_TS"},  // 46
      {kRegions0To3, kDlnaPn, "MPEG_TS_SD_NA_MPEG1_L2_T", "MPEG2_TTS"},  // 47
      {kRegions0To3, kDlnaPn, "MPEG_TS_SD_NA_T", "MPEG2_TTS"},  // 48
      {kRegions0To3, kAribPn, "MPEG_TTS_CP", "MPEG2_TTS_ARIB"},  // 49
      {kRegions0To3, kDlnaPn, "MPEG1", "MPEG1"},  // 50
      {kRegion1, kDlnaPn, "DTCP_AVC_TS_HD_24_AC3", "AVC_TTS"},  // 51
      {kRegion1, kDlnaPn, "DTCP_AVC_TS_HD_24_AC3_ISO", "AVC_TS"},  // 52
      {kRegion1, kDlnaPn, "DTCP_AVC_TS_HD_24_AC3_T", "AVC_TTS_ARIB"},  // 53
      {kRegion1, kDlnaPn, "DTCP_AVC_TS_JP_AAC_T", "AVC_TTS_ARIB"},  // 54
      {kRegion1, kDlnaPn, "DTCP_MPEG_TS_JP_T", "MPEG2_TTS_ARIB"},  // 55
      {kRegion1, kDlnaPn, "DTCP_MPEG_TS_SD_60_AC3_T", "MPEG2_TTS"},  // 56
      {kRegion1, kDlnaPn, "DTCP_AVC_TS_HD_60_AC3", "AVC_TTS"},  // 57
      {kRegion1, kDlnaPn, "DTCP_AVC_TS_HD_60_AC3_ISO", "AVC_TS"},  // 58
      {kRegion1, kDlnaPn, "DTCP_AVC_TS_HD_60_AC3_T", "AVC_TTS_ARIB"},  // 59
      {kRegion1, kDlnaPn, "DTCP_MPEG_TS_SD_60_L2_T", "MPEG2_TTS"},  // 60
      {kRegion1, kDlnaPn, "DTCP_MPEG_TS_SD_JP_MPEG1_L2_T", "MPEG2_TTS_ARIB"},  // 61
      {kRegion1, kOrsaPn, "DTCP_SESF_60_AC3_T", "MPEG2_TTS"},  // 62
      {kRegion1, kOrsaPn, "DTCP_SESF_60_L2_T", "MPEG2_TTS"},  // 63
      // clang-format on
  });
}();

// Windows Media, which the contest for it tries before the table above.
inline constexpr auto wmvProfileTable = [] {
  using namespace video_profile_tables;
  return std::to_array<VideoProfileRow>({
      {kRegions0To3, kDlnaPn, "WMVMED_BASE", "WMV"},
      {kRegions0To3, kDlnaPn, "WMVMED_FULL", "WMV"},
      {kRegions0To3, kDlnaPn, "WMVHIGH_FULL", "WMV"},
      {kRegions0To3, kDlnaPn, "WMVSPLL_BASE", "WMV"},
      {kRegions0To3, kDlnaPn, "WMVSPML_BASE", "WMV"},
      {kRegions0To3, kDlnaPn, "VC1_ASF_AP_L1_WMA", "WMV"},
      {kRegions0To3, kDlnaPn, "VC1_ASF_AP_L2_WMA", "WMV"},
  });
}();

inline constexpr auto videoMimeTypes = std::to_array<const char*>({
    "video/mpeg",                             // 1
    "video/vnd.dlna.mpeg-tts",                // 2
    "video/mp4",                              // 3
    "application/x-mpegURL",                  // 4
    "application/vnd.apple.mpegURL",          // 5
    "video/3gpp",                             // 6
    "video/3gpp2",                            // 7
    "video/x-mkv",                            // 8
    "video/x-matroska",                       // 9
    "video/webm",                             // 10
    "video/quicktime",                        // 11
    "application/octet-stream",               // 12
    "video/x-pn-realmedia",                   // 13
    "application/vnd.rn-realmedia-vbr",       // 14
    "video/vnd.rn-realvideo",                 // 15
    "application/vnd.rn-realmedia",           // 16
    "video/avi",                              // 17
    "video/x-msvideo",                        // 18
    "video/x-avi",                            // 19
    "video/x-xvid",                           // 20
    "video/x-ms-wmv",                         // 21
    "video/x-ms-asf",                         // 22
    "video/x-ms-video",                       // 23
    "video/divx",                             // 24
    "video/x-divx",                           // 25
    "video/vnd.directv.mpeg",                 // 26
    "video/vnd.directv.mpeg-tts",             // 27
    "video/vnd.directv.dss-ts-tts.es.mpeg2",  // 28
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
                                           (row.regionMask == video_profile_tables::kRegion1);
                                  }),
              "link-protected profiles, and no others, are bound to their region");

// Look-ups over the two tables: profile name to row number (1 to 63), MIME type to position (1 to 28).
// Empty until the first selection of the process fills them, read only from then on.
extern VondArrayMapT<VondString, int> profileMap;
extern VondArrayMapT<VondString, int> mimeMap;
extern bool profilesMapped;

#endif  // VIDEO_PROFILE_TABLES_H_
