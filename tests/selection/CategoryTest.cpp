#include <gtest/gtest.h>

#include <algorithm>
#include <list>
#include <sstream>
#include <string>

#include "Didl.h"
#include "TarqDlnaResSelection.h"
#include "TestRows.h"

namespace {

// Elements separated by " | ", each of at most a MIME type, which has a "/", a profile name and an extension,
// which begins with "."; => the category of every one of them.
// clang-format off
const OutcomeRow kCategories[] = {
    {"Photo", "image/x | JPEG_LRG | JPEG_MED | JPEG_SM | JPEG_TN | .jpg | .KZR", "photo"},
    {"Music", "audio/x | application/ogg | LPCM | MP3 | WMABASE | WMAFULLX | .lpcm | .MP3 | "
     ".3gp | .3g2", "music"},
    {"VideoType", "video/x | application/x-dtcp1 | application/octet-stream | application/vnd.rn-realmedia | "
     "application/vnd.rn-realmedia-vbr | application/x-mpegURL | application/vnd.apple.mpegURL", "video"},
    {"VideoExtension", ".mpg | .m2t | .m2ts | .mts | .tts | .mp4 | .mpeg | .mpe | .divx | .avi | .mkv | "
     ".webm | .mov | .rmvb | .rm | .rmv | .XVID", "video"},
    {"VideoProfile", "MPEG1 .jpg | AVC_TS_HD_24_AC3", "video"},
    {"TypeFirst", "application/octet-stream MP3 .mp3", "video"},
    {"TypeInAnyCase", "IMAGE/Jpeg;x=1 MP3 .mp4 | audio/ JPEG_TN .mpg", "photo"},
    {"LongerProfile", "text/plain MP3X .jpg | MPEG1_X .jpg", "photo"},
    {"Nothing", "text/plain | MP3X | .mp3x | .", "unknown"},
};
// clang-format on

TEST_ROWS(MediaCategory, ComesFromTheFirstStageThatDecides, kCategories) {
  constexpr const char* kNames[] = {"photo", "music", "video", "unknown"};
  const char* texts[3] = {};
  std::istringstream words(std::string(row.input) + " |");
  for (std::list<std::string> kept; words >> kept.emplace_back();) {
    const std::string& word = kept.back();
    if (word != "|") {
      texts[word.find('/') != word.npos ? 0 : word[0] == '.' ? 1 : 2] = word.c_str() + (word[0] == '.');
      continue;
    }
    const int category = TarqDlnaResSelection(1).selectMediaCategory(texts[0], texts[1], texts[2]);
    EXPECT_STREQ(kNames[category], row.outcome) << testing::PrintToString(kept);
    kept.clear();
    std::ranges::fill(texts, nullptr);
  }
}

// Of "region MIME-type extension": "format weight". A word left out is absent.
const OutcomeRow kCodecs[] = {
    // Pairs before the MIME type alone; the case of the extension alone does not matter.
    {"ExtensionInAnyCase", "1 video/mpeg MPG", "MPEG_Unknown 200"},
    {"TypeInItsCase", "1 VIDEO/MPEG mpg", "none -7"},
    {"Nothing", "1", "none -7"},
    {"MpegM2t", "1 video/mpeg m2t", "MPEG2_TS 200"},
    {"MpegM2ts", "1 video/mpeg m2ts", "AVC_TTS 200"},
    {"MpegMts", "1 video/mpeg mts", "AVC_TTS 200"},
    {"Mp4Mts", "1 video/mp4 mts", "AVC_TTS 200"},
    // Identified, or guessed where no row of the region applies.
    {"Mp4", "8 video/mp4 mp4", "MPEG4 200"},
    {"Mp4NoRow", "16 video/mp4 mp4", "MPEG4 100"},
    {"Directv", "4 video/vnd.directv.mpeg mpeg", "MPEG2_TS 200"},
    // Types that begin, the longer name first, and types that are whole.
    {"ThreeGpp2", "1 video/3gpp2 mp4", "3GPP 200"},
    {"DirectvTts", "1 video/vnd.directv.mpeg-tts ts", "MPEG2_TTS 200"},
    {"Mp4IsWhole", "1 video/mp4;codecs=avc1 mp4", "none -7"},
    {"AviIsWhole", "1 video/avi2 avi", "none -7"},
    {"MsVideoAvi", "1 video/x-ms-video AVI", "AVI_Unknown 200"},
    // RealMedia in region 16 as a whole.
    {"OctetElsewhere", "17 application/octet-stream rmvb", "none -7"},
    {"OctetRmv", "16 application/octet-stream rmv", "none -7"},
    {"RealVideo", "16 video/vnd.rn-realvideo rv", "RMVB 200"},
    {"RealVideoElsewhere", "18 video/vnd.rn-realvideo rv", "none -7"},
};

TEST_ROWS(VideoCodecFormat, IsToldByMimeTypeAndExtension, kCodecs) {
  int region = 0;
  std::string mime, extension;
  std::istringstream(row.input) >> region >> mime >> extension;
  int weight = -7;
  const char* format = TarqDlnaResSelection(region).getVideoCodecFormat(
      mime.empty() ? nullptr : mime.c_str(), extension.empty() ? nullptr : extension.c_str(), &weight);
  EXPECT_EQ((format == nullptr ? "none" : format) + (" " + std::to_string(weight)), row.outcome);
}

const OutcomeRow kUrls[] = {
    {"FirstDot", "http://h/clip.tar.gz", "tar.gz"},   {"DotInTheFolder", "http://h/a.b/clip", ""},
    {"SlashInTheQuery", "http://h/clip?a=/b.c", "c"}, {"NoSlash", "clip.mp4", "none"},
    {"TwoQueries", "http://h/x.a?b?c", "a"},
};

TEST_ROWS(FileExtension, IsCutFromTheLastSegment, kUrls) {
  VondString extension;
  const int result = TarqDlnaResSelection::getFileExtension(row.input, extension);
  EXPECT_EQ(result, extension.c_str() == nullptr ? -1 : 0);
  EXPECT_STREQ(extension.c_str() == nullptr ? "none" : extension.c_str(), row.outcome);
}

// The record of a `res` element as its texts.
std::string readRecord(const std::string& res) {
  const Didl didl({res});
  TarqDlnaResMetadata record;
  int selected = -1;
  TarqDlnaResSelection(1).selectMediaResIndex(didl.object(), &record, 1, &selected, 0);
  const auto text = [](const VondString& s) { return std::string(s.c_str() == nullptr ? "-" : s.c_str()); };
  return text(record.mimeType) + " " + text(record.fourthField) + " " + text(record.dlnaPn) + " " +
         text(record.extension) + " " + text(record.resolution) + " " + std::to_string(record.category) +
         (record.notConverted ? " original" : " converted") + " " + std::to_string(record.mpfEntries);
}

// clang-format off
#define RES "<res protocolInfo='a:*:"
const OutcomeRow kRecords[] = {
    {"NoProtocolInfo", "<res>/a.mp4</res>", "- - - - - 3 converted 0"},
    {"NoUrl", RES "video/mp4:*'/>", "video/mp4 * - - - 2 original 0"},
    {"NoMimeType", "<res protocolInfo='a:b'>/a.mp4</res>", "- - - mp4 - 3 converted 0"},
    {"NoFourthField", RES "video/mp4' resolution='1x1'>/a.mp4</res>", "video/mp4 - - mp4 - 3 converted 0"},
    {"EmptyFourthField", RES "video/mp4:' resolution='1x1'>/a</res>", "video/mp4  -  1x1 2 original 0"},
    {"FourthFieldDoesNotParse", RES "video/mp4:=1'>/a.mp4</res>", "- - - - - 3 converted 0"},
    {"NotZero", RES "video/mp4:DLNA.ORG_CI=00'>a</res>", "video/mp4 DLNA.ORG_CI=00 - - - 2 converted 0"},
    // What link-protected content wraps.
    {"Wrapped", RES "application/x-dtcp1;P=1;CONTENTFORMAT=\"video/mpeg\":*'>/a.m</res>",
     "video/mpeg * - m - 2 original 0"},
    {"WrappingDoesNotParse", RES "=1;CONTENTFORMAT=video/mpeg:*'>/a.m</res>", "- - - - - 3 converted 0"},
    {"NothingWrapped", RES "CONTENTFORMATS=1:*'>/a.mpg</res>", "- * - mpg - 2 original 0"},
    // Only photos and video have a resolution, only photos are of several pictures.
    {"Music", RES "audio/mpeg:*' resolution='1x1'>/a.mp3</res>", "audio/mpeg * - mp3 - 1 original 0"},
    {"Photo", RES "image/jpeg:*' resolution='1x1' av:mpfEntries=' 12x'>/a.jpg</res>",
     "image/jpeg * - jpg 1x1 0 original 12"},
    {"Video", RES "video/mp4:*' av:mpfEntries='2'>/a.mp4</res>", "video/mp4 * - mp4 - 2 original 0"},
};
// clang-format on

TEST_ROWS(ResRecord, HoldsWhatTheElementSaysOrNothing, kRecords) {
  EXPECT_EQ(readRecord(row.input), row.outcome);
}

}  // namespace
