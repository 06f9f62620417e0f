#include <algorithm>
#include <array>
#include <string_view>

#include "Region.h"
#include "TarqDlnaResSelection.h"
#include "TextMatch.h"

// The format of a video without a profile name: by MIME type and extension, or by the MIME type alone.

namespace {

constexpr const char* kRealMediaFormat = "RMVB";

struct CodecRow {
  uint32_t regionMask;
  std::string_view mimeType;  // equals
  const char* extension;      // equals, ignoring case
  const char* format;
};

constexpr auto videoCodecTable = std::to_array<CodecRow>({
    {kVideoRegions, "video/mpeg", "m2t", "MPEG2_TS"},
    {kVideoRegions, "video/mpeg", "m2ts", "AVC_TTS"},
    {kVideoRegions, "video/mpeg", "mts", "AVC_TTS"},
    {kVideoRegions, "video/mpeg", "mpg", "MPEG_Unknown"},
    {kVideoRegions, "video/mpeg", "mpe", "MPEG_Unknown"},
    {kVideoRegions, "video/mpeg", "mpeg", "MPEG_Unknown"},
    {kVideoRegions, "video/vnd.dlna.mpeg-tts", "tts", "AVC_TTS"},
    {kVideoRegions, "video/vnd.dlna.mpeg-tts", "m2ts", "AVC_TTS"},
    {kVideoRegions, "video/vnd.dlna.mpeg-tts", "mts", "AVC_TTS"},
    {kVideoRegions, "video/mp4", "mp4", "MPEG4"},
    {kVideoRegions, "video/mp4", "m2ts", "AVC_TTS"},
    {kVideoRegions, "video/mp4", "mts", "AVC_TTS"},
    {kVideoRegions, "application/x-mpegURL", "m3u8", "M3U8"},
    {kVideoRegions, "application/vnd.apple.mpegURL", "m3u8", "M3U8"},
    {kVideoRegions, "video/3gpp", "3gp", "3GPP"},
    {kVideoRegions, "video/3gpp2", "3g2", "3GPP"},
    {kVideoRegions, "video/x-mkv", "mkv", "MKV"},
    {kVideoRegions, "video/x-matroska", "mkv", "MKV"},
    {kVideoRegions, "video/webm", "webm", "WebM"},
    {kVideoRegions, "video/quicktime", "mov", "MOV"},
    {kSatelliteRegion, "video/vnd.directv.mpeg", "mpeg", "MPEG2_TS"},
    {kSatelliteRegion, "video/vnd.directv.mpeg-tts", "tts", "MPEG2_TTS"},
    {kSatelliteRegion, "video/vnd.directv.dss-ts-tts.es.mpeg2", "tts", "MPEG2_TTS"},
});
static_assert(videoCodecTable.size() == 23);

using MimeMatch = bool (*)(std::string_view mime, std::string_view wanted);
constexpr MimeMatch kEquals = [](std::string_view mime, std::string_view wanted) { return mime == wanted; };
constexpr MimeMatch kBegins = [](std::string_view mime, std::string_view wanted) {
  return mime.starts_with(wanted);
};

// In every region; "video/x-msvideo" and "video/avi" whole, the others with whatever follows.
struct MimeAndExtension {
  MimeMatch matches;
  std::string_view mimeType;
  const char* extension;
  const char* format;
};
constexpr MimeAndExtension kAviPairs[] = {
    {kEquals, "video/x-msvideo", "avi", "AVI_Unknown"},  {kEquals, "video/avi", "avi", "AVI_Unknown"},
    {kBegins, "video/x-avi", "avi", "AVI_Unknown"},      {kBegins, "video/x-xvid", "xvid", "Xvid"},
    {kBegins, "video/x-ms-video", "avi", "AVI_Unknown"},
};

// The first that holds; "video/vnd.directv.mpeg" stands after the longer name that it is a part of.
struct MimeAlone {
  MimeMatch matches;
  std::string_view mimeType;
  const char* format;
  ResRule rule = ResRule::kMimeAlone;
};
constexpr MimeAlone kMimeTypes[] = {
    {kEquals, "video/x-mp2t-mphl-188", "MPEG2_TS"},
    {kEquals, "video/mpeg", "MPEG_Unknown"},
    {kEquals, "video/vnd.dlna.mpeg-tts", "AVC_TTS"},
    {kEquals, "video/mp4", "MPEG4", ResRule::kMimeGuess},
    {kBegins, "video/x-ms-wmv", "WMV", ResRule::kMimeGuess},
    {kBegins, "video/x-ms-asf", "WMV", ResRule::kMimeGuess},
    {kBegins, "video/3gpp", "3GPP"},
    {kBegins, "video/x-mkv", "MKV"},
    {kBegins, "video/x-matroska", "MKV"},
    {kBegins, "video/webm", "WebM"},
    {kBegins, "video/quicktime", "MOV"},
    {kBegins, "video/vnd.directv.mpeg-tts", "MPEG2_TTS"},
    {kBegins, "video/vnd.directv.dss-ts-tts.es.mpeg2", "MPEG2_TTS"},
    {kBegins, "video/vnd.directv.mpeg", "MPEG2_TS"},
    {kBegins, "application/x-mpegURL", "M3U8"},
    {kBegins, "application/vnd.apple.mpegURL", "M3U8"},
    {kEquals, "video/avi", "AVI_Unknown"},
    {kBegins, "video/x-msvideo", "AVI_Unknown"},
    {kBegins, "video/x-avi", "AVI_Unknown"},
    {kBegins, "video/x-xvid", "Xvid"},
};

constexpr std::string_view kRealMediaTypes[] = {"video/x-pn-realmedia", "application/vnd.rn-realmedia-vbr",
                                                "application/vnd.rn-realmedia", "video/vnd.rn-realvideo"};

bool isRealMediaType(std::string_view mime) {
  return std::ranges::any_of(kRealMediaTypes, [&](auto& type) { return mime.starts_with(type); });
}

bool isRealMediaFile(std::string_view mime, const char* extension) {
  const bool rmvbOrRm = equalsIgnoringCase(extension, "rmvb") || equalsIgnoringCase(extension, "rm");
  if (mime.starts_with("application/octet-stream")) return rmvbOrRm;
  return isRealMediaType(mime) && (rmvbOrRm || equalsIgnoringCase(extension, "rmv"));
}

const char* formatByExtension(int32_t region, std::string_view mime, const char* extension) {
  for (const CodecRow& row : videoCodecTable) {
    if (sharesBit(region, row.regionMask) && mime == row.mimeType &&
        equalsIgnoringCase(extension, row.extension)) {
      return row.format;
    }
  }
  for (const MimeAndExtension& pair : kAviPairs) {
    if (pair.matches(mime, pair.mimeType) && equalsIgnoringCase(extension, pair.extension))
      return pair.format;
  }
  return region == kRealMediaRegion && isRealMediaFile(mime, extension) ? kRealMediaFormat : nullptr;
}

struct CodecFormat {
  const char* format;  // null: unknown
  ResRule rule;
};

CodecFormat findFormat(int32_t region, std::string_view mime, const char* extension) {
  if (extension != nullptr) {
    const char* format = formatByExtension(region, mime, extension);
    if (format != nullptr) return {format, ResRule::kMimeAndExtension};
  }
  for (const MimeAlone& test : kMimeTypes) {
    if (test.matches(mime, test.mimeType)) return {test.format, test.rule};
  }
  const bool realMedia = region == kRealMediaRegion && isRealMediaType(mime);
  return {realMedia ? kRealMediaFormat : nullptr, ResRule::kMimeAlone};
}

}  // namespace

const char* TarqDlnaResSelection::getVideoCodecFormat(const char* mime, const char* extension, int* weight,
                                                      ResRule* rule) const {
  if (mime == nullptr) return nullptr;
  const CodecFormat found = findFormat(region, mime, extension);
  if (found.format == nullptr) return nullptr;
  *weight = found.rule == ResRule::kMimeGuess ? kWeakFormatPoints : kKnownFormatPoints;
  if (rule != nullptr) *rule = found.rule;
  return found.format;
}
