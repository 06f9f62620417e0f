#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "Didl.h"
#include "OutcomeRows.h"
#include "TarqDlnaResSelection.h"

namespace {

// "-" is absent.
TEST(MediaCategory, ComesFromTheFirstStageThatDecides) {
  const auto categoryOf = [](const char* row) {
    std::string words[3];
    std::istringstream in(row);
    for (std::string& word : words) in >> word;
    const auto text = [](const std::string& word) { return word == "-" ? nullptr : word.c_str(); };
    constexpr const char* kNames[] = {"photo", "music", "video", "unknown"};
    return std::string(
        kNames[TarqDlnaResSelection(1).selectMediaCategory(text(words[0]), text(words[1]), text(words[2]))]);
  };
  expectOutcomes(categoryOf, {"IMAGE/Jpeg;x=1 mp4 MP3 => photo", "application/ogg - - => music",
                              "application/octet-stream mp3 MP3 => video", "audio/ mpg JPEG_TN => photo",
                              "text/plain - WMABASEX => music", "- avi MP3X => video", "- jpg MPEG1 => video",
                              "- jpg MPEG1_X => photo", "- Mp3 - => music", "- 3gp - => music",
                              "- mp3x - => unknown", "- - - => unknown"});
}

// Of "region MIME-type extension": "format weight". A word left out is absent.
TEST(VideoCodecFormat, IsToldByMimeTypeAndExtension) {
  const auto formatOf = [](const char* row) {
    int region = 0;
    std::string mime, extension;
    std::istringstream(row) >> region >> mime >> extension;
    int weight = -7;
    const char* format = TarqDlnaResSelection(region).getVideoCodecFormat(
        mime.empty() ? nullptr : mime.c_str(), extension.empty() ? nullptr : extension.c_str(), &weight);
    return (format == nullptr ? "none" : format) + (" " + std::to_string(weight));
  };
  expectOutcomes(
      formatOf,
      {// Pairs before the MIME type alone; the case of the extension alone does not matter.
       "1 video/mpeg MPG => MPEG_Unknown 200", "1 VIDEO/MPEG mpg => none -7", "1 => none -7",
       "1 video/mpeg m2ts => AVC_TTS 200", "1 video/mpeg ts => MPEG_Unknown 200",
       // Identified, or guessed where no row of the region applies.
       "1 video/mp4 mp4 => MPEG4 200", "16 video/mp4 mp4 => MPEG4 100", "1 video/mp4 => MPEG4 100",
       "4 video/vnd.directv.mpeg mpeg => MPEG2_TS 200", "1 video/x-ms-asf asf => WMV 100",
       // Types that begin, the longer name first, and types that are whole.
       "1 video/x-ms-wmv9 => WMV 100", "1 video/3gpp2 mp4 => 3GPP 200", "1 video/x-xvid avi => Xvid 200",
       "1 application/x-mpegURL;q=1 => M3U8 200", "1 video/vnd.directv.mpeg mpeg => MPEG2_TS 200",
       "1 video/vnd.directv.mpeg-tts ts => MPEG2_TTS 200", "1 video/mp4;codecs=avc1 mp4 => none -7",
       "1 video/x-msvideo2 avi => AVI_Unknown 200", "1 video/avi2 avi => none -7",
       "1 video/x-ms-video AVI => AVI_Unknown 200", "1 video/x-ms-video wmv => none -7",
       // RealMedia in region 16 as a whole.
       "16 application/octet-stream rmvb => RMVB 200", "17 application/octet-stream rmvb => none -7",
       "16 application/octet-stream rmv => none -7", "16 video/vnd.rn-realvideo rv => RMVB 200",
       "1 video/vnd.rn-realvideo rv => none -7"});
}

TEST(FileExtension, IsCutFromTheLastSegment) {
  const auto extensionOf = [](const char* url) {
    VondString extension;
    const int result = TarqDlnaResSelection::getFileExtension(url, extension);
    EXPECT_EQ(result, extension.c_str() == nullptr ? -1 : 0) << url;
    return std::string(extension.c_str() == nullptr ? "none" : extension.c_str());
  };
  expectOutcomes(extensionOf, {"http://h/clip.mp4?x=1 => mp4", "http://h/clip.tar.gz => tar.gz",
                               "http://h/clip => ", "http://h/a.b/clip => ", "http://h/clip?a=/b.c => c",
                               "/.? => ", "clip.mp4 => none", " => none", "http://h/x.a?b?c => a"});
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

TEST(ResRecord, HoldsWhatTheElementSaysOrNothing) {
  expectOutcomes(
      readRecord,
      {"<res>http://h/a.mp4</res> => - - - - - 3 converted 0",
       "<res protocolInfo='video'>http://h/a.mp4</res> => - - - - - 3 converted 0",
       "<res protocolInfo='a:b'>http://h/a.mp4</res> => - - - mp4 - 3 converted 0",
       "<res protocolInfo='a:*:video/mp4' resolution='1x1'>/a.mp4</res> => video/mp4 - - mp4 - 3 converted 0",
       "<res protocolInfo='a:*:video/mp4:' resolution='1x1'>http://h/a</res> => video/mp4  -  1x1 2 original "
       "0",
       "<res protocolInfo='a:*:video/mp4:=1'>http://h/a.mp4</res> => - - - - - 3 converted 0",
       "<res protocolInfo='a:*:video/mp4:DLNA.ORG_CI=1;DLNA.ORG_PN=X'>a</res> => "
       "video/mp4 DLNA.ORG_CI=1;DLNA.ORG_PN=X X - - 2 converted 0",
       "<res protocolInfo='a:*:video/mp4:DLNA.ORG_CI=00'>a</res> => video/mp4 DLNA.ORG_CI=00 - - - 2 "
       "converted 0",
       // What link-protected content wraps.
       "<res protocolInfo='a:*:application/x-dtcp1;P=1;CONTENTFORMAT=\"video/mpeg\":*'>/a.m</res> => "
       "video/mpeg * - m - 2 original 0",
       "<res protocolInfo='a:*:=1;CONTENTFORMAT=video/mpeg:*'>/a.m</res> => - - - - - 3 converted 0",
       "<res protocolInfo='a:*:CONTENTFORMATS=1:*'>/a.mpg</res> => - * - mpg - 2 original 0",
       // Only photos and video have a resolution, only photos are of several pictures.
       "<res protocolInfo='a:*:audio/mpeg:*' resolution='1x1'>/a.mp3</res> => audio/mpeg * - mp3 - 1 "
       "original 0",
       "<res protocolInfo='a:*:image/jpeg:*' av:mpfEntries=' 12x'>/a.jpg</res> => "
       "image/jpeg * - jpg - 0 original 12",
       "<res protocolInfo='a:*:video/mp4:*' av:mpfEntries='2'>/a.mp4</res> => video/mp4 * - mp4 - 2 original "
       "0"});
}

}  // namespace
