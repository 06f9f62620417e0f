#include <algorithm>
#include <array>
#include <string_view>

#include "RealMedia.h"
#include "TarqDlnaResSelection.h"
#include "TextMatch.h"

// The format of a video that names no profile: told by MIME type and extension, or by the MIME type alone.

namespace {

constexpr int kIdentified = 200;
constexpr int kGuessed = 100;

struct CodecRow {
  uint32_t regionMask;
  std::string_view mimeType;  // equals; its length tells most of these apart
  const char* extension;      // equals, ignoring case
  const char* format;
};

constexpr auto videoCodecTable = std::to_array<CodecRow>({
    {0x0F, "video/mpeg", "m2t", "MPEG2_TS"},
    {0x0F, "video/mpeg", "m2ts", "AVC_TTS"},
    {0x0F, "video/mpeg", "mts", "AVC_TTS"},
    {0x0F, "video/mpeg", "mpg", "MPEG_Unknown"},
    {0x0F, "video/mpeg", "mpe", "MPEG_Unknown"},
    {0x0F, "video/mpeg", "mpeg", "MPEG_Unknown"},
    {0x0F, "video/vnd.dlna.mpeg-tts", "tts", "AVC_TTS"},
    {0x0F, "video/vnd.dlna.mpeg-tts", "m2ts", "AVC_TTS"},
    {0x0F, "video/vnd.dlna.mpeg-tts", "mts", "AVC_TTS"},
    {0x0F, "video/mp4", "mp4", "MPEG4"},
    {0x0F, "video/mp4", "m2ts", "AVC_TTS"},
    {0x0F, "video/mp4", "mts", "AVC_TTS"},
    {0x0F, "application/x-mpegURL", "m3u8", "M3U8"},
    {0x0F, "application/vnd.apple.mpegURL", "m3u8", "M3U8"},
    {0x0F, "video/3gpp", "3gp", "3GPP"},
    {0x0F, "video/3gpp2", "3g2", "3GPP"},
    {0x0F, "video/x-mkv", "mkv", "MKV"},
    {0x0F, "video/x-matroska", "mkv", "MKV"},
    {0x0F, "video/webm", "webm", "WebM"},
    {0x0F, "video/quicktime", "mov", "MOV"},
    {0x04, "video/vnd.directv.mpeg", "mpeg", "MPEG2_TS"},
    {0x04, "video/vnd.directv.mpeg-tts", "tts", "MPEG2_TTS"},
    {0x04, "video/vnd.directv.dss-ts-tts.es.mpeg2", "tts", "MPEG2_TTS"},
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
  int weight;
};
constexpr MimeAlone kMimeTypes[] = {
    {kEquals, "video/x-mp2t-mphl-188", "MPEG2_TS", kIdentified},
    {kEquals, "video/mpeg", "MPEG_Unknown", kIdentified},
    {kEquals, "video/vnd.dlna.mpeg-tts", "AVC_TTS", kIdentified},
    {kEquals, "video/mp4", "MPEG4", kGuessed},
    {kBegins, "video/x-ms-wmv", "WMV", kGuessed},
    {kBegins, "video/x-ms-asf", "WMV", kGuessed},
    {kBegins, "video/3gpp", "3GPP", kIdentified},
    {kBegins, "video/x-mkv", "MKV", kIdentified},
    {kBegins, "video/x-matroska", "MKV", kIdentified},
    {kBegins, "video/webm", "WebM", kIdentified},
    {kBegins, "video/quicktime", "MOV", kIdentified},
    {kBegins, "video/vnd.directv.mpeg-tts", "MPEG2_TTS", kIdentified},
    {kBegins, "video/vnd.directv.dss-ts-tts.es.mpeg2", "MPEG2_TTS", kIdentified},
    {kBegins, "video/vnd.directv.mpeg", "MPEG2_TS", kIdentified},
    {kBegins, "application/x-mpegURL", "M3U8", kIdentified},
    {kBegins, "application/vnd.apple.mpegURL", "M3U8", kIdentified},
    {kEquals, "video/avi", "AVI_Unknown", kIdentified},
    {kBegins, "video/x-msvideo", "AVI_Unknown", kIdentified},
    {kBegins, "video/x-avi", "AVI_Unknown", kIdentified},
    {kBegins, "video/x-xvid", "Xvid", kIdentified},
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
    if ((static_cast<uint32_t>(region) & row.regionMask) != 0 && mime == row.mimeType &&
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

}  // namespace

const char* TarqDlnaResSelection::getVideoCodecFormat(const char* mime, const char* extension,
                                                      int* weight) const {
  if (mime == nullptr) return nullptr;
  const std::string_view type = mime;
  if (extension != nullptr) {
    if (const char* format = formatByExtension(region, type, extension)) {
      *weight = kIdentified;
      return format;
    }
  }
  for (const MimeAlone& test : kMimeTypes) {
    if (!test.matches(type, test.mimeType)) continue;
    *weight = test.weight;
    return test.format;
  }
  if (region == kRealMediaRegion && isRealMediaType(type)) {
    *weight = kIdentified;
    return kRealMediaFormat;
  }
  return nullptr;
}
