#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "Didl.h"
#include "TarqDlnaResSelection.h"
#include "TestRows.h"

namespace {

const char* nameOf(int category) {
  constexpr const char* kNames[] = {"photo", "music", "video", "unknown"};
  return kNames[category];
}

// Of "MIME-type extension profile"; "-" is absent.
const OutcomeRow kCategories[] = {
    {"MimeTypeFirst", "IMAGE/Jpeg;x=1 mp4 MP3", "photo"},
    {"MimeTypeBeforeAll", "application/octet-stream mp3 MP3", "video"},
    {"ApplicationOgg", "application/ogg - -", "music"},
    {"ProfileBeforeExtension", "audio/ mpg JPEG_TN", "photo"},
    {"ProfileMayGoOn", "text/plain - WMABASEX", "music"},
    {"LongerProfile", "- avi MP3X", "video"},
    {"VideoProfile", "- jpg MPEG1", "video"},
    {"FirstVideoProfile", "- - AVC_TS_HD_24_AC3", "video"},
    {"LongerVideoProfile", "- jpg MPEG1_X", "photo"},
    {"ExtensionIsWhole", "- mp3x -", "unknown"},
    {"Nothing", "- - -", "unknown"},
};

TEST_ROWS(MediaCategory, ComesFromTheFirstStageThatDecides, kCategories) {
  std::string words[3];
  std::istringstream in(row.input);
  for (std::string& word : words) in >> word;
  const auto text = [](const std::string& word) { return word == "-" ? nullptr : word.c_str(); };
  EXPECT_STREQ(
      nameOf(TarqDlnaResSelection(1).selectMediaCategory(text(words[0]), text(words[1]), text(words[2]))),
      row.outcome);
}

// What one word tells alone: a MIME type has a "/", an extension begins with ".", the others are profiles.
const OutcomeRow kWords[] = {
    {"Photo", "image/x JPEG_LRG JPEG_MED JPEG_SM JPEG_TN .jpg .kzr", "photo"},
    {"Music", "audio/x LPCM MP3 WMABASE WMAFULL .lpcm .MP3 .3gp .3g2", "music"},
    {"VideoTypes",
     "video/x application/x-dtcp1 application/vnd.rn-realmedia-vbr application/vnd.rn-realmedia "
     "application/x-mpegURL application/vnd.apple.mpegURL",
     "video"},
    {"VideoExtensions",
     ".mpg .m2t .m2ts .mts .tts .mp4 .mpeg .mpe .divx .avi .mkv .webm .mov .rmvb .rm .rmv .xvid .XVID",
     "video"},
};

TEST_ROWS(MediaCategory, IsToldByOneWord, kWords) {
  std::istringstream in(row.input);
  for (std::string word; in >> word;) {
    const bool type = word.find('/') != word.npos;
    const bool extension = word[0] == '.';
    EXPECT_STREQ(nameOf(TarqDlnaResSelection(1).selectMediaCategory(
                     type ? word.c_str() : nullptr, extension ? word.c_str() + 1 : nullptr,
                     type || extension ? nullptr : word.c_str())),
                 row.outcome)
        << word;
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
    {"MpegOther", "1 video/mpeg ts", "MPEG_Unknown 200"},
    {"Mp4M2ts", "1 video/mp4 m2ts", "AVC_TTS 200"},
    {"Mp4Mts", "1 video/mp4 mts", "AVC_TTS 200"},
    // Identified, or guessed where no row of the region applies.
    {"Mp4", "8 video/mp4 mp4", "MPEG4 200"},
    {"Mp4NoRow", "16 video/mp4 mp4", "MPEG4 100"},
    {"Mp4NoExtension", "1 video/mp4", "MPEG4 100"},
    {"Directv", "4 video/vnd.directv.mpeg mpeg", "MPEG2_TS 200"},
    {"Asf", "1 video/x-ms-asf asf", "WMV 100"},
    // Types that begin, the longer name first, and types that are whole.
    {"WmvBegins", "1 video/x-ms-wmv9", "WMV 100"},
    {"ThreeGpp2", "1 video/3gpp2 mp4", "3GPP 200"},
    {"XvidAvi", "1 video/x-xvid avi", "Xvid 200"},
    {"PlaylistBegins", "1 application/x-mpegURL;q=1", "M3U8 200"},
    {"DirectvTts", "1 video/vnd.directv.mpeg-tts ts", "MPEG2_TTS 200"},
    {"Mp4IsWhole", "1 video/mp4;codecs=avc1 mp4", "none -7"},
    {"MsvideoBegins", "1 video/x-msvideo2 avi", "AVI_Unknown 200"},
    {"AviIsWhole", "1 video/avi2 avi", "none -7"},
    {"MsVideoAvi", "1 video/x-ms-video AVI", "AVI_Unknown 200"},
    {"MsVideoOther", "1 video/x-ms-video wmv", "none -7"},
    // RealMedia in region 16 as a whole.
    {"OctetRmvb", "16 application/octet-stream rmvb", "RMVB 200"},
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
    {"Query", "http://h/clip.mp4?x=1", "mp4"},
    {"FirstDot", "http://h/clip.tar.gz", "tar.gz"},
    {"NoDot", "http://h/clip", ""},
    {"DotInTheFolder", "http://h/a.b/clip", ""},
    {"SlashInTheQuery", "http://h/clip?a=/b.c", "c"},
    {"EmptyBeforeQuery", "/.?", ""},
    {"NoSlash", "clip.mp4", "none"},
    {"Empty", "", "none"},
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
  const auto text = [](const VondString& s) { return s.c_str() == nullptr ? std::string("-") : s.c_str(); };
  return text(record.mimeType) + " " + text(record.fourthField) + " " + text(record.dlnaPn) + " " +
         text(record.extension) + " " + text(record.resolution) + " " + std::to_string(record.category) +
         (record.notConverted ? " original" : " converted") + " " + std::to_string(record.mpfEntries);
}

// clang-format off
const OutcomeRow kRecords[] = {
    {"NoProtocolInfo", "<res>http://h/a.mp4</res>", "- - - - - 3 converted 0"},
    {"NoColon", "<res protocolInfo='video'>http://h/a.mp4</res>", "- - - - - 3 converted 0"},
    {"NoUrl", "<res protocolInfo='a:*:video/mp4:*'/>", "video/mp4 * - - - 2 original 0"},
    {"NoMimeType", "<res protocolInfo='a:b'>http://h/a.mp4</res>", "- - - mp4 - 3 converted 0"},
    {"NoFourthField", "<res protocolInfo='a:*:video/mp4' resolution='1x1'>/a.mp4</res>", "video/mp4 - - mp4 - 3 converted 0"},
    {"EmptyFourthField", "<res protocolInfo='a:*:video/mp4:' resolution='1x1'>http://h/a</res>", "video/mp4  -  1x1 2 original 0"},
    {"FourthFieldDoesNotParse", "<res protocolInfo='a:*:video/mp4:=1'>http://h/a.mp4</res>", "- - - - - 3 converted 0"},
    {"Converted", "<res protocolInfo='a:*:video/mp4:DLNA.ORG_CI=1;DLNA.ORG_PN=X'>a</res>", "video/mp4 DLNA.ORG_CI=1;DLNA.ORG_PN=X X - - 2 converted 0"},
    {"ConvertedIsNotZero", "<res protocolInfo='a:*:video/mp4:DLNA.ORG_CI=00'>a</res>", "video/mp4 DLNA.ORG_CI=00 - - - 2 converted 0"},
    // What link-protected content wraps.
    {"Wrapped", "<res protocolInfo='a:*:application/x-dtcp1;P=1;CONTENTFORMAT=\"video/mpeg\":*'>/a.m</res>", "video/mpeg * - m - 2 original 0"},
    {"WrappingDoesNotParse", "<res protocolInfo='a:*:=1;CONTENTFORMAT=video/mpeg:*'>/a.m</res>", "- - - - - 3 converted 0"},
    {"NothingWrapped", "<res protocolInfo='a:*:CONTENTFORMATS=1:*'>/a.mpg</res>", "- * - mpg - 2 original 0"},
    // Only photos and video have a resolution, only photos are of several pictures.
    {"Music", "<res protocolInfo='a:*:audio/mpeg:*' resolution='1x1'>/a.mp3</res>", "audio/mpeg * - mp3 - 1 original 0"},
    {"Photo", "<res protocolInfo='a:*:image/jpeg:*' resolution='1x1' av:mpfEntries=' 12x'>/a.jpg</res>", "image/jpeg * - jpg 1x1 0 original 12"},
    {"VideoOfPictures", "<res protocolInfo='a:*:video/mp4:*' av:mpfEntries='2'>/a.mp4</res>", "video/mp4 * - mp4 - 2 original 0"},
};
// clang-format on

TEST_ROWS(ResRecord, HoldsWhatTheElementSaysOrNothing, kRecords) {
  EXPECT_EQ(readRecord(row.input), row.outcome);
}

}  // namespace
