#ifndef MEDIA_PROFILE_TABLES_H_
#define MEDIA_PROFILE_TABLES_H_

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "FourthField.h"
#include "Region.h"
#include "TarqDmrMediaProfile.h"

// The constant tables of the sink capability. To add a format: a row in `mediaProfileTable` where its
// entry is to stand in the advertised list, a row in `multiplexProfileTable` when it has a counterpart, and
// one in `profileGroupTable` when its group is new. What the tables promise each other is checked below.

namespace media_profile_tables {

inline constexpr const char* kPhotoFlags = "8cf00000000000000000000000000000";
inline constexpr const char* kStreamFlags = "8d700000000000000000000000000000";

}  // namespace media_profile_tables

// Two rows that are advertised in one entry.
struct MultiplexProfile {
  const char* primaryName;
  const char* primaryProfile;
  const char* secondaryName;
  const char* secondaryProfile;
};

// What the entries of a format group say of the content.
struct ProfileGroup {
  const char* group;
  const char* mimeType;
  const char* flags;  // DLNA.ORG_FLAGS: 8 digits of primary flags, 24 reserved (DLNA guidelines, part
                      // 1-1, 7.4.1.3.24)
};

// The order is that of the advertised list. pnName, profile, formatGroup, regionMask, isDtcp
inline constexpr auto mediaProfileTable = [] {
  using namespace media_profile_tables;
  return std::to_array<TarqDmrMediaProfile>({
      // clang-format off
      {kDlnaPn, "JPEG_LRG", "JPEG", kEveryRegion, 0},  // 0
      {kDlnaPn, "JPEG_MED", "JPEG", kEveryRegion, 0},  // 1
      {kDlnaPn, "JPEG_SM", "JPEG", kEveryRegion, 0},  // 2
      {kDlnaPn, "LPCM", "LPCM", kEveryRegion, 0},  // 3
      {kDlnaPn, "MP3", "MP3", kEveryRegion, 0},  // 4
      {kDlnaPn, "WMABASE", "WMA", kEveryRegion, 0},  // 5
      {kDlnaPn, "WMAFULL", "WMA", kEveryRegion, 0},  // 6
      {kDlnaPn, "DTCP_AVC_TS_HD_60_AC3_T", "AVC_TTS_ARIB", kProtectedRegion, 1},  // 7
      {kOrsaPn, "DTCP_AVC_TS_HD_60_AC3_T", "AVC_TTS_ARIB", kProtectedRegion, 1},  // 8
      {kDlnaPn, "AVC_TS_HD_60_AC3_T", "AVC_TTS_ARIB", kEveryRegion, 0},  // 9
      {kOrsaPn, "AVC_TS_HD_60_AC3_T", "AVC_TTS_ARIB", kEveryRegion, 0},  // 10
      {kDlnaPn, "AVC_TS_HD_50_AC3_T", "AVC_TTS", kEveryRegion, 0},  // 11
      {kOrsaPn, "AVC_TS_HD_50_AC3_T", "AVC_TTS", kEveryRegion, 0},  // 12
      {kDlnaPn, "DTCP_AVC_TS_HD_60_AC3", "AVC_TTS", kProtectedRegion, 1},  // 13
      {kOrsaPn, "DTCP_AVC_TS_HD_60_AC3", "AVC_TTS", kProtectedRegion, 1},  // 14
      {kDlnaPn, "AVC_TS_HD_60_AC3", "AVC_TTS", kEveryRegion, 0},  // 15
      {kOrsaPn, "AVC_TS_HD_60_AC3", "AVC_TTS", kEveryRegion, 0},  // 16
      {kDlnaPn, "AVC_TS_HD_50_AC3", "AVC_TTS", kEveryRegion, 0},  // 17
      {kOrsaPn, "AVC_TS_HD_50_AC3", "AVC_TTS", kEveryRegion, 0},  // 18
      {kDlnaPn, "DTCP_AVC_TS_HD_60_AC3_ISO", "AVC_TS", kProtectedRegion, 1},  // 19
      {kOrsaPn, "DTCP_AVC_TS_HD_60_AC3_ISO", "AVC_TS", kProtectedRegion, 1},  // 20
      {kDlnaPn, "AVC_TS_HD_60_AC3_ISO", "AVC_TS", kEveryRegion, 0},  // 21
      {kOrsaPn, "AVC_TS_HD_60_AC3_ISO", "AVC_TS", kEveryRegion, 0},  // 22
      {kDlnaPn, "AVC_TS_HD_50_AC3_ISO", "AVC_TS", kEveryRegion, 0},  // 23
      {kOrsaPn, "AVC_TS_HD_50_AC3_ISO", "AVC_TS", kEveryRegion, 0},  // 24
      {kDlnaPn, "AVC_TS_HD_EU_T", "AVC_TTS", kEveryRegion, 0},  // 25
      {kDlnaPn, "AVC_TS_HD_EU", "AVC_TTS", kEveryRegion, 0},  // 26
      {kDlnaPn, "AVC_TS_HD_EU_ISO", "AVC_TS", kEveryRegion, 0},  // 27
      {kDlnaPn, "MPEG_TS_HD_NA_T", "MPEG2_TTS", kEveryRegion, 0},  // 28
      {kDlnaPn, "MPEG_TS_HD_KO_T", "MPEG2_TTS", kEveryRegion, 0},  // 29
      {kDlnaPn, "MPEG_TS_HD_NA", "MPEG2_TTS", kEveryRegion, 0},  // 30
      {kDlnaPn, "MPEG_TS_HD_KO", "MPEG2_TTS", kEveryRegion, 0},  // 31
      {kDlnaPn, "MPEG_TS_HD_NA_ISO", "MPEG2_TS", kEveryRegion, 0},  // 32
      {kDlnaPn, "MPEG_TS_HD_KO_ISO", "MPEG2_TS", kEveryRegion, 0},  // 33
      {kDlnaPn, "DTCP_MPEG_TS_JP_T", "MPEG2_TTS_ARIB", kProtectedRegion, 1},  // 34
      {kDlnaPn, "MPEG_TS_JP_T", "MPEG2_TTS_ARIB", kEveryRegion, 0},  // 35
      {kAribPn, "MPEG_TTS_CP", "MPEG2_TTS_ARIB", kProtectedRegion, 0},  // 36
      {kDlnaPn, "MPEG_TS_HD_NA_MPEG1_L2_T", "MPEG2_TTS", kEveryRegion, 0},  // 37
      {kDlnaPn, "MPEG_TS_HD_60_L2_T", "MPEG2_TTS", kEveryRegion, 0},  // 38
      {kOrsaPn, "HD2_60_T", "MPEG2_TTS", kEveryRegion, 0},  // 39
      {kDlnaPn, "MPEG_TS_HD_50_L2_T", "MPEG2_TTS", kEveryRegion, 0},  // 40
      {kOrsaPn, "HD2_50_T", "MPEG2_TTS", kEveryRegion, 0},  // 41
      {kDlnaPn, "MPEG_TS_HD_NA_MPEG1_L2_ISO", "MPEG2_TS", kEveryRegion, 0},  // 42
      {kDlnaPn, "MPEG_TS_HD_60_L2_ISO", "MPEG2_TS", kEveryRegion, 0},  // 43
      {kOrsaPn, "HD2_60_ISO", "MPEG2_TS", kEveryRegion, 0},  // 44
      {kDlnaPn, "MPEG_TS_HD_50_L2_ISO", "MPEG2_TS", kEveryRegion, 0},  // 45
      {kOrsaPn, "HD2_50_ISO", "MPEG2_TS", kEveryRegion, 0},  // 46
      {nullptr, "video/x-mp2t-mphl-188", "MPEG2_TS", kEveryRegion, 0},  // 47
      {kDlnaPn, "DTCP_MPEG_TS_SD_60_AC3_T", "MPEG2_TTS", kProtectedRegion, 1},  // 48
      {kOrsaPn, "DTCP_SESF_60_AC3_T", "MPEG2_TTS", kProtectedRegion, 1},  // 49
      {kDlnaPn, "MPEG_TS_SD_60_AC3_T", "MPEG2_TTS", kEveryRegion, 0},  // 50
      {kDlnaPn, "MPEG_TS_SD_50_AC3_T", "MPEG2_TTS", kEveryRegion, 0},  // 51
      {kDlnaPn, "MPEG_TS_SD_NA_T", "MPEG2_TTS", kEveryRegion, 0},  // 52
      {kDlnaPn, "MPEG_TS_SD_KO_T", "MPEG2_TTS", kEveryRegion, 0},  // 53
      {kDlnaPn, "MPEG_TS_SD_NA", "MPEG2_TTS", kEveryRegion, 0},  // 54
      {kDlnaPn, "MPEG_TS_SD_KO", "MPEG2_TTS", kEveryRegion, 0},  // 55
      {kDlnaPn, "MPEG_TS_SD_NA_ISO", "MPEG2_TS", kEveryRegion, 0},  // 56
      {kDlnaPn, "MPEG_TS_SD_KO_ISO", "MPEG2_TS", kEveryRegion, 0},  // 57
      {kDlnaPn, "MPEG_TS_SD_EU_T", "MPEG2_TTS", kEveryRegion, 0},  // 58
      {kDlnaPn, "MPEG_TS_SD_EU", "MPEG2_TTS", kEveryRegion, 0},  // 59
      {kDlnaPn, "MPEG_TS_SD_EU_ISO", "MPEG2_TS", kEveryRegion, 0},  // 60
      {kDlnaPn, "DTCP_MPEG_TS_SD_JP_MPEG1_L2_T", "MPEG2_TTS_ARIB", kProtectedRegion, 1},  // 61
      {kDlnaPn, "MPEG_TS_SD_JP_MPEG1_L2_T", "MPEG2_TTS_ARIB", kEveryRegion, 0},  // 62
      {kDlnaPn, "MPEG_TS_SD_NA_MPEG1_L2_T", "MPEG2_TTS", kEveryRegion, 0},  // 63
      {kDlnaPn, "DTCP_MPEG_TS_SD_60_L2_T", "MPEG2_TTS", kProtectedRegion, 1},  // 64
      {kOrsaPn, "DTCP_SESF_60_L2_T", "MPEG2_TTS", kProtectedRegion, 1},  // 65
      {kDlnaPn, "MPEG_TS_SD_60_L2_T", "MPEG2_TTS", kEveryRegion, 0},  // 66
      {kDlnaPn, "MPEG_TS_SD_50_L2_T", "MPEG2_TTS", kEveryRegion, 0},  // 67
      {kDlnaPn, "MPEG_TS_SD_NA_MPEG1_L2_ISO", "MPEG2_TS", kEveryRegion, 0},  // 68
      {kDlnaPn, "MPEG_PS_NTSC", "MPEG2_PS", kEveryRegion, 0},  // 69
      {kDlnaPn, "MPEG_PS_PAL", "MPEG2_PS", kEveryRegion, 0},  // 70
      {kDlnaPn, "MPEG1", "MPEG1", kEveryRegion, 0},  // 71
      {kDlnaPn, "WMVMED_BASE", "WMV", kEveryRegion, 0},  // 72
      {kDlnaPn, "WMVMED_FULL", "WMV", kEveryRegion, 0},  // 73
      {kDlnaPn, "WMVHIGH_FULL", "WMV", kEveryRegion, 0},  // 74
      {kDlnaPn, "WMVSPLL_BASE", "WMV", kEveryRegion, 0},  // 75
      {kDlnaPn, "WMVSPML_BASE", "WMV", kEveryRegion, 0},  // 76
      {kDlnaPn, "VC1_ASF_AP_L1_WMA", "WMV", kEveryRegion, 0},  // 77
      {kDlnaPn, "VC1_ASF_AP_L2_WMA", "WMV", kEveryRegion, 0},  // 78
      {kDlnaPn, "DTCP_AVC_TS_HD_24_AC3_T", "AVC_TTS_ARIB", kProtectedRegion, 1},  // 79
      {kOrsaPn, "DTCP_AVC_TS_HD_24_AC3_T", "AVC_TTS_ARIB", kProtectedRegion, 1},  // 80
      {kDlnaPn, "AVC_TS_HD_24_AC3_T", "AVC_TTS_ARIB", kEveryRegion, 0},  // 81
      {kOrsaPn, "AVC_TS_HD_24_AC3_T", "AVC_TTS_ARIB", kEveryRegion, 0},  // 82
      {kDlnaPn, "DTCP_AVC_TS_HD_24_AC3", "AVC_TTS", kProtectedRegion, 1},  // 83
      {kOrsaPn, "DTCP_AVC_TS_HD_24_AC3", "AVC_TTS", kProtectedRegion, 1},  // 84
      {kDlnaPn, "AVC_TS_HD_24_AC3", "AVC_TTS", kEveryRegion, 0},  // 85
      {kOrsaPn, "AVC_TS_HD_24_AC3", "AVC_TTS", kEveryRegion, 0},  // 86
      {kDlnaPn, "DTCP_AVC_TS_HD_24_AC3_ISO", "AVC_TS", kProtectedRegion, 1},  // 87
      {kOrsaPn, "DTCP_AVC_TS_HD_24_AC3_ISO", "AVC_TS", kProtectedRegion, 1},  // 88
      {kDlnaPn, "AVC_TS_HD_24_AC3_ISO", "AVC_TS", kEveryRegion, 0},  // 89
      {kOrsaPn, "AVC_TS_HD_24_AC3_ISO", "AVC_TS", kEveryRegion, 0},  // 90
      {kDlnaPn, "DTCP_AVC_TS_JP_AAC_T", "AVC_TTS_ARIB", kProtectedRegion, 1},  // 91
      {kDlnaPn, "AVC_TS_JP_AAC_T", "AVC_TTS_CP_ARIB", kEveryRegion, 0},  // 92
      {nullptr, "image/jpeg", "JPEG", kEveryRegion, 0},  // 93
      {nullptr, "audio/mpeg", "MP3", kEveryRegion, 0},  // 94
      {nullptr, "audio/L16", "LPCM", kEveryRegion, 0},  // 95
      {nullptr, "audio/x-ms-wma", "WMA", kEveryRegion, 0},  // 96
      {nullptr, "audio/mp4", "AUDIO_MPEG4", kEveryRegion, 0},  // 97
      {nullptr, "audio/x-wav", "WAVE", kEveryRegion, 0},  // 98
      {nullptr, "audio/x-m4a", "AUDIO_MPEG4", kEveryRegion, 0},  // 99
      {nullptr, "video/mpeg", "MPEG_Unknown", kEveryRegion, 0},  // 100
      {nullptr, "video/vnd.dlna.mpeg-tts", "AVC_TTS", kEveryRegion, 0},  // 101
      {nullptr, "video/mp4", "MPEG4", kEveryRegion, 0},  // 102
      {nullptr, "video/x-msvideo", "AVI_Unknown", kNoRegion, 0},  // 103
      {nullptr, "video/x-divx", "DivX_Unknown", kNoRegion, 0},  // 104
      {nullptr, "video/divx", "DivX_Unknown", kNoRegion, 0},  // 105
      {nullptr, "video/avi", "AVI_Unknown", kNoRegion, 0},  // 106
      {nullptr, "video/x-ms-wmv", "WMV", kEveryRegion, 0},  // 107
      {nullptr, "video/x-ms-asf", "WMV", kEveryRegion, 0},  // 108
      {nullptr, "video/3gpp", "3GPP", kEveryRegion, 0},  // 109
      {nullptr, "video/3gpp2", "3GPP", kEveryRegion, 0},  // 110
      {nullptr, "audio/3gpp", "AUDIO_3GPP", kEveryRegion, 0},  // 111
      {nullptr, "audio/3gpp2", "AUDIO_3GPP", kEveryRegion, 0},  // 112
      {nullptr, "video/x-mkv", "MKV", kEveryRegion, 0},  // 113
      {nullptr, "video/x-matroska", "MKV", kEveryRegion, 0},  // 114
      {nullptr, "video/webm", "WebM", kEveryRegion, 0},  // 115
      {nullptr, "video/quicktime", "MOV", kEveryRegion, 0},  // 116
      {nullptr, "application/octet-stream", "RMVB", kNoRegion, 0},  // 117
      {nullptr, "video/x-pn-realmedia", "RMVB", kNoRegion, 0},  // 118
      {nullptr, "application/vnd.rn-realmedia-vbr", "RMVB", kNoRegion, 0},  // 119
      {nullptr, "application/vnd.rn-realmedia", "RMVB", kNoRegion, 0},  // 120
      {nullptr, "video/vnd.rn-realvideo", "RMVB", kNoRegion, 0},  // 121
      {nullptr, "video/x-avi", "AVI_Unknown", kNoRegion, 0},  // 122
      {nullptr, "video/x-xvid", "Xvid", kNoRegion, 0},  // 123
      {nullptr, "application/x-mpegURL", "M3U8", kEveryRegion, 0},  // 124
      {nullptr, "application/vnd.apple.mpegURL", "M3U8", kEveryRegion, 0},  // 125
      {nullptr, "audio/flac", "FLAC", kEveryRegion, 0},  // 126
      {nullptr, "audio/x-flac", "FLAC", kEveryRegion, 0},  // 127
      {nullptr, "audio/aac", "AUDIO_MPEG4", kEveryRegion, 0},  // 128
      {nullptr, "audio/ogg", "OggVorbis", kEveryRegion, 0},  // 129
      {nullptr, "audio/x-ogg", "OggVorbis", kEveryRegion, 0},  // 130
      {nullptr, "application/ogg", "OggVorbis", kEveryRegion, 0},  // 131
      {nullptr, "audio/wav", "WAVE", kEveryRegion, 0},  // 132
      {nullptr, "image/x-orsa-kzr", "KZR", kEveryRegion, 0},  // 133
      // clang-format on
  });
}();

inline constexpr auto multiplexProfileTable = [] {
  using namespace media_profile_tables;
  return std::to_array<MultiplexProfile>({
      {kDlnaPn, "DTCP_AVC_TS_HD_60_AC3_T", kOrsaPn, "DTCP_AVC_TS_HD_60_AC3_T"},
      {kDlnaPn, "AVC_TS_HD_60_AC3_T", kOrsaPn, "AVC_TS_HD_60_AC3_T"},
      {kDlnaPn, "AVC_TS_HD_50_AC3_T", kOrsaPn, "AVC_TS_HD_50_AC3_T"},
      {kDlnaPn, "DTCP_AVC_TS_HD_60_AC3", kOrsaPn, "DTCP_AVC_TS_HD_60_AC3"},
      {kDlnaPn, "AVC_TS_HD_60_AC3", kOrsaPn, "AVC_TS_HD_60_AC3"},
      {kDlnaPn, "AVC_TS_HD_50_AC3", kOrsaPn, "AVC_TS_HD_50_AC3"},
      {kDlnaPn, "DTCP_AVC_TS_HD_60_AC3_ISO", kOrsaPn, "DTCP_AVC_TS_HD_60_AC3_ISO"},
      {kDlnaPn, "AVC_TS_HD_60_AC3_ISO", kOrsaPn, "AVC_TS_HD_60_AC3_ISO"},
      {kDlnaPn, "AVC_TS_HD_50_AC3_ISO", kOrsaPn, "AVC_TS_HD_50_AC3_ISO"},
      {kDlnaPn, "DTCP_MPEG_TS_JP_T", kAribPn, "MPEG_TTS_CP"},
      {kDlnaPn, "MPEG_TS_HD_60_L2_T", kOrsaPn, "HD2_60_T"},
      {kDlnaPn, "MPEG_TS_HD_50_L2_T", kOrsaPn, "HD2_50_T"},
      {kDlnaPn, "MPEG_TS_HD_60_L2_ISO", kOrsaPn, "HD2_60_ISO"},
      {kDlnaPn, "MPEG_TS_HD_50_L2_ISO", kOrsaPn, "HD2_50_ISO"},
      {kDlnaPn, "DTCP_MPEG_TS_SD_60_AC3_T", kOrsaPn, "DTCP_SESF_60_AC3_T"},
      {kDlnaPn, "DTCP_MPEG_TS_SD_60_L2_T", kOrsaPn, "DTCP_SESF_60_L2_T"},
      {kDlnaPn, "DTCP_AVC_TS_HD_24_AC3_T", kOrsaPn, "DTCP_AVC_TS_HD_24_AC3_T"},
      {kDlnaPn, "AVC_TS_HD_24_AC3_T", kOrsaPn, "AVC_TS_HD_24_AC3_T"},
      {kDlnaPn, "DTCP_AVC_TS_HD_24_AC3", kOrsaPn, "DTCP_AVC_TS_HD_24_AC3"},
      {kDlnaPn, "AVC_TS_HD_24_AC3", kOrsaPn, "AVC_TS_HD_24_AC3"},
      {kDlnaPn, "DTCP_AVC_TS_HD_24_AC3_ISO", kOrsaPn, "DTCP_AVC_TS_HD_24_AC3_ISO"},
      {kDlnaPn, "AVC_TS_HD_24_AC3_ISO", kOrsaPn, "AVC_TS_HD_24_AC3_ISO"},
  });
}();

inline constexpr auto profileGroupTable = [] {
  using namespace media_profile_tables;
  return std::to_array<ProfileGroup>({
      {"JPEG", "image/jpeg", kPhotoFlags},
      {"LPCM", "audio/L16", kStreamFlags},
      {"MP3", "audio/mpeg", kStreamFlags},
      {"WMA", "audio/x-ms-wma", kStreamFlags},
      {"AVC_TS", "video/mpeg", kStreamFlags},
      {"AVC_TTS", "video/vnd.dlna.mpeg-tts", kStreamFlags},
      {"AVC_TTS_ARIB", "video/vnd.dlna.mpeg-tts", kStreamFlags},
      {"AVC_TTS_CP_ARIB", "video/vnd.dlna.mpeg-tts", kStreamFlags},
      {"MPEG1", "video/mpeg", kStreamFlags},
      {"MPEG2_PS", "video/mpeg", kStreamFlags},
      {"MPEG2_TS", "video/mpeg", kStreamFlags},
      {"MPEG2_TTS", "video/vnd.dlna.mpeg-tts", kStreamFlags},
      {"MPEG2_TTS_ARIB", "video/vnd.dlna.mpeg-tts", kStreamFlags},
      {"WMV", "video/x-ms-wmv", kStreamFlags},
  });
}();

namespace media_profile_tables {

// Stops at the first difference: compilers limit the steps of a constant expression.
constexpr bool same(const char* a, const char* b) {
  if (a == nullptr || b == nullptr) return a == b;
  for (; *a != '\0' && *a == *b; ++a) ++b;
  return *a == *b;
}

// The number of the one row of that name and profile; -1 when there is none or more than one.
constexpr int onlyRow(const char* pnName, const char* profile) {
  int found = -1;
  int number = 0;
  for (const auto& row : mediaProfileTable) {
    if (same(row.profile, profile) && same(row.pnName, pnName)) {
      if (found != -1) return -1;
      found = number;
    }
    ++number;
  }
  return found;
}

constexpr uint32_t maskOf(int number) { return mediaProfileTable[static_cast<size_t>(number)].regionMask; }

constexpr auto isPartnerOf(const TarqDmrMediaProfile& row) {
  return [&row](const MultiplexProfile& pair) {
    return same(pair.secondaryName, row.pnName) && same(pair.secondaryProfile, row.profile);
  };
}

static_assert(mediaProfileTable.size() == 134 && multiplexProfileTable.size() == 22 &&
              profileGroupTable.size() == 14);
static_assert(std::ranges::all_of(mediaProfileTable,
                                  [](auto& row) { return onlyRow(row.pnName, row.profile) != -1; }),
              "a profile is listed twice under the same name");
static_assert(std::ranges::all_of(mediaProfileTable,
                                  [](auto& row) {
                                    return std::string_view(row.profile).starts_with("DTCP_") ==
                                           (row.isDtcp == 1);
                                  }),
              "isDtcp stands exactly on the DTCP_ profiles");
static_assert(std::ranges::all_of(mediaProfileTable,
                                  [](auto& row) {
                                    const bool counterpart =
                                        same(row.pnName, kOrsaPn) || same(row.pnName, kAribPn);
                                    return std::ranges::count_if(multiplexProfileTable, isPartnerOf(row)) ==
                                           (counterpart ? 1 : 0);
                                  }),
              "a vendor or ARIB profile is the secondary of exactly one pair");
static_assert(std::ranges::all_of(multiplexProfileTable,
                                  [](auto& pair) {
                                    const int primary = onlyRow(pair.primaryName, pair.primaryProfile);
                                    const int secondary = onlyRow(pair.secondaryName, pair.secondaryProfile);
                                    return same(pair.primaryName, kDlnaPn) && primary != -1 &&
                                           secondary != -1 && maskOf(primary) == maskOf(secondary);
                                  }),
              "both rows of a pair exist and are offered in the same regions");
static_assert(std::ranges::all_of(mediaProfileTable,
                                  [](auto& row) {
                                    return row.pnName == nullptr ||
                                           std::ranges::count_if(profileGroupTable, [&](auto& group) {
                                             return same(group.group, row.formatGroup);
                                           }) == 1;
                                  }),
              "the format group of a named profile has exactly one group row");

}  // namespace media_profile_tables

#endif  // MEDIA_PROFILE_TABLES_H_
