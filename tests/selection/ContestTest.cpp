#include <gtest/gtest.h>

#include <regex>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Didl.h"
#include "TarqDlnaResSelection.h"
#include "TestRows.h"

namespace {

// A candidate is "content format:fourth field|URL|resolution|mpfEntries"; what is left out is absent, and a
// URL left out has no extension. PN, OP and CI stand for DLNA.ORG_PN and so on, i/, a/, v/ and app/ for
// image/ and so on. "3 * candidate" is three.
constexpr std::pair<std::string_view, const char*> kTypes[] = {
    {"i/", "image/"}, {"a/", "audio/"}, {"v/", "video/"}, {"app/", "application/"}};

std::string candidateElement(const std::string& candidate) {
  std::vector<std::string> parts(4);
  std::istringstream in(candidate);
  for (std::string& part : parts) std::getline(in, part, '|');
  std::string info = std::regex_replace(parts[0], std::regex("([:;])(PN|OP|CI)="), "$1DLNA.ORG_$2=");
  for (const auto& [brief, type] : kTypes)
    if (info.starts_with(brief)) info.replace(0, brief.size(), type);
  std::string attributes;
  if (!parts[2].empty()) attributes = " resolution='" + parts[2] + "'";
  if (!parts[3].empty()) attributes += " av:mpfEntries='" + parts[3] + "'";
  return resElement("http-get:*:" + info, parts[1].empty() ? "http://h/a" : parts[1], attributes);
}

std::vector<std::string> resElements(const std::string& candidates) {
  std::vector<std::string> elements;
  for (size_t begin = 0, end = 0; end != std::string::npos; begin = end + 3) {
    end = candidates.find(" & ", begin);
    const std::string candidate = candidates.substr(begin, end == std::string::npos ? end : end - begin);
    const size_t times = candidate.find(" * ");
    if (times == std::string::npos) {
      elements.push_back(candidateElement(candidate));
    } else {
      elements.insert(elements.end(), std::stoul(candidate), candidateElement(candidate.substr(times + 3)));
    }
  }
  return elements;
}

using enum ResContestKind;

struct ContestCase {
  const char* name;
  ResContestKind contest;  // the one that decides
  const char* candidates;  // separated by " & "
  // The winner, its format, and each candidate's points; "...": many zeros; -42: the caller's index stays.
  const char* expected;
  int region = 1;
  int excludeHls = 0;
};
constexpr int kExcludeHls = 1;

// "primary/secondary" when a candidate has both.
std::string pointsOf(const ResScore& score) {
  const std::string primary = std::to_string(score.primary.total());
  return score.secondary.total() == 0 ? primary : primary + "/" + std::to_string(score.secondary.total());
}

// One row a case: the tables read across.
// clang-format off
#define JPEG "i/jpeg:*|/a.jpg|"
#define TS "v/mpeg:PN=MPEG_TS_SD_NA"
#define WMV "v/x-ms-wmv:PN=WMVHIGH_FULL;OP="
#define X ":PN=X|/a"  // a profile name that nobody knows
#define PLAYLIST "app/x-mpegURL;q=1:*|/a.m3u8"
const ContestCase kCases[] = {
    {"PhotoFullHd", kPhoto, JPEG "640x480 & " JPEG "1920x1080 & " JPEG "4000x3000", "1 JPEG 1100 1790 1580"},
    {"PhotoAbove", kPhoto, JPEG "4000x3000 & " JPEG "1921x1080 & " JPEG "1080x1921", "1 JPEG 1100 1590 1080"},
    {"PhotoNearestTieKeepsFirst", kPhoto, JPEG "100x200 & " JPEG "200x100", "0 JPEG 1600 1090"},
    {"PhotoTooLarge", kPhoto, JPEG "20000x100 & " JPEG "16384x16384", "1 JPEG -600 1590"},
    {"PhotoAreaGetsNothing", kPhoto, JPEG "1080x1920 & " JPEG "0x9 & " JPEG "65535x65535 & "
     JPEG "65536x32768", "0 JPEG 1100 1090 1080 1070"},
    {"PhotoUnparsableIsTiny", kPhoto, JPEG "1920X1080 & " JPEG, "0 JPEG 1600 1090"},
    {"PhotoThumbnailNever", kPhoto, "i/jpeg:PN=JPEG_TN|/a.jpg|1920x1080", "-1 0"},
    {"PhotoProfileWhateverTheType", kPhoto, "i/png:PN=JPEG_LRG & i/jpeg:PN=JPEG_SMX", "0 JPEG 1100 0"},
    {"PhotoTypeIsWhole", kPhoto, "i/jpeg;q=1:* & IMAGE/JPEG:* & i/x-orsa-kzr:*", "2 KZR 0 0 1080"},
    {"PhotoOfOnePicture", kPhoto, JPEG "10x10|1", "0 JPEG 1600"},
    {"MpoOriginalBeforeConverted", kMpo, "i/jpeg:CI=1|/a|1920x1080|4 & " JPEG "10x10|2", "1 MPO"},
    {"MpoAboveBeatsBelow", kMpo, JPEG "1280x720|2 & " JPEG "2560x1440|4 & " JPEG "1281x720|2", "1 MPO"},
    {"MpoFullHdTakesTheLead", kMpo, JPEG "2560x1440|2 & " JPEG "1920x1080|2 & " JPEG "1921x1080|2", "1 MPO"},
    {"MpoSameAreaLosesToNobody", kMpo, JPEG "1080x1920|2 & " JPEG "2560x1440|2", "0 MPO"},
    {"MpoSidesWithinTheLimits", kMpo, JPEG "0x9|2 & " JPEG "9x0|2 & " JPEG "16385x1|2 & " JPEG "1x16385|2 & "
     JPEG "16384x1|7", "4 MPO"},
    {"MpoNamedProfileFallsBack", kPhoto, "i/jpeg:PN=JPEG_LRG|/a|10x10|2", "0 JPEG 1600"},
    {"MpoNoJpegHasNoFormat", kMpo, "i/png:*|/a|10x10|2", "0 -"},
    {"MpoSixIsNoSeven", kMpo, JPEG "10x10|7 & " JPEG "10x10|6", "1 MPO"},
    {"MpoSmallestAbove", kMpo, JPEG "4000x3000|2 & " JPEG "2560x1440|2 & " JPEG "1440x2560|2", "1 MPO"},
    {"MpoTwoFullHdKeepFirst", kMpo, JPEG "1920x1080|2 & " JPEG "1920x1080|2", "0 MPO"},
    {"MpoLargestBelow", kMpo, JPEG "100x100|2 & " JPEG "100x200|2 & " JPEG "200x100|2", "1 MPO"},
    {"MpoSameAreaDoesNotBeatBelow", kMpo, JPEG "1280x720|2 & " JPEG "1080x1920|2", "0 MPO"},
    {"MpoNegativeCountTakesPart", kMpo, JPEG "10x10|-1 & " JPEG "|2", "0 MPO"},
    {"MusicConvertedWmaIsUnknown", kMusic, "a/x-ms-wma:CI=1 & a/ogg:*", "1 OggVorbis 0 1990"},
    {"MusicLongerProfileFallsToTheList", kMusic, "a/mpeg:PN=MP3X & a/mp4:PN=MP3X", "1 AUDIO_MPEG4 0 1990"},
    {"MusicTableTypesBegin", kMusic, "a/L16;rate=44100:* & a/mpeg2:* & a/x:PN=MP3", "0 LPCM 2000 1990 1980"},
    {"MusicListTypesAreWhole", kMusic, "a/mp4;codecs=1:* & AUDIO/ogg:* & a/wav2:*", "-1 0 0 0"},
    {"MusicAmrIsOut", kMusic, "a/3gpp:*|/a.AMR & a/3gpp:*|a.3gp & a/3gpp2:*|/a & a/3gpp2:*|/a.amr & "
     "a/aac:*|/a.amr", "2 AUDIO_3GPP 0 0 1980 0 1960"},
    {"MusicApplicationOggIsLast", kMusic, "app/ogg:* & a/ogg:*", "1 OggVorbis 1900 1990"},
    {"MusicPhotoBesideMusic", kMusic, "a/x-flac:* & " JPEG "1920x1080", "0 FLAC 2000 0"},
    {"WmaSeekValues", kWma, "a/x:PN=WMABASE;OP=10 & a/x:PN=WMAFULL;OP=0 & a/x:PN=WMABASE;OP=011 & "
     "a/x:PN=WMABASE2;OP=11 & a/x:PN=WMABASE;OP=00 & a/x:PN=WMABASE;OP=",
     "1 WMA 0/2100 2190 0/2080 2170 0/2060 2150"},
    {"WmaSecondaryWhenAlone", kWma, "a/ogg:* & a/x-ms-wma;x=1:OP=01", "1 WMA 0 0/2090"},
    {"WmaLateGetsNoConvertedBonus", kWma,  // 200 - 100 + 1000 and 200 - 250: what is below 0 gets no bonus
     "110 * text/plain:* & a/x:PN=WMABASE;OP=01 & 14 * text/plain:* & a/x:PN=WMABASE;OP=01",
     "110 WMA ... 1100 ... -50"},
    {"WmaProfilesBegin", kWma, "a/x-ms-wma:* & a/x:PN=MP3X;CI=1 & a/mpeg:PN=AAC", "1 MP3 0/2100 1190 0"},
    {"WmaNoSeekDeclared", kWma, "a/x:PN=WMABASE & a/x-ms-wma:*", "0 WMA 0/2100 0/2090"},
    {"WmaLongerName", kWma, "a/x:PN=WMAFULLX", "0 WMA 0/2100"},
    {"VideoFirstRow", kVideo, "v/x:PN=AVC_TS_HD_24_AC3", "0 AVC_TTS 2200", 8},
    {"VideoVendorName", kVideo, "v/x:ORSA.COM_PN=HD2_60_T;ARIB.OR.JP_PN=MPEG_TTS_CP", "0 MPEG2_TTS 2200"},
    {"VideoOneWholeName", kVideo, "v/mpeg:PN=MPEG_TS_SD_NA_X;ORSA.COM_PN=HD2_60_T|/a.MTS", "0 AVC_TTS 2200"},
    {"VideoMp4WhateverTheExtension", kVideo, "v/mp4:PN=X|a.txt", "0 MPEG4 2200"},
    {"VideoRuleMpeg", kVideo, "v/mpeg" X ".m2ts & v/mpeg" X ".mts & v/mpeg" X ".tts & v/mpeg" X " & "
     "v/vnd.dlna.mpeg-tts" X ".m2ts & v/vnd.dlna.mpeg-tts" X ".mts & v/vnd.dlna.mpeg-tts" X ".tts",
     "0 AVC_TTS 2200 2190 0 0 2160 2150 2140"},
    {"VideoRule3gpp", kVideo, "v/3gpp" X ".3gp & v/3gpp" X ".3g2 & v/3gpp" X " & v/3gpp2" X ".3gp & "
     "v/3gpp2" X ".3g2 & v/3gpp2" X " & v/3gpp" X ".mp4", "0 3GPP 2200 2190 2180 2170 2160 2150 0"},
    {"VideoRuleMkv", kVideo, "v/x-mkv" X ".mkv & v/x-mkv" X " & v/x-matroska" X ".MKV & v/x-matroska" X " & "
     "v/webm" X ".webm & v/webm" X " & v/quicktime" X ".mov & v/quicktime" X " & v/avi" X ".avi & v/avi" X,
     "0 MKV 2200 2190 2180 2170 2160 2150 2140 2130 2120 2110"},
    {"VideoRuleRealMedia", kVideo, "app/octet-stream" X ".rmvb & app/octet-stream" X ".rm & "
     "app/octet-stream" X ".rmv & app/octet-stream" X " & v/x-pn-realmedia" X ".rmvb & "
     "v/x-pn-realmedia" X ".rm & v/x-pn-realmedia" X ".rmv & v/x-pn-realmedia" X " & app/vnd.rn-realmedia-vbr" X " & "
     "app/vnd.rn-realmedia" X " & v/vnd.rn-realvideo" X,
     "0 RMVB 2200 2190 0 0 2160 2150 2140 2130 2120 2110 2100", 16},
    {"VideoChain", kVideo, "v/x-msvideo" X ".Avi & v/x-avi" X ".avi & v/x-xvid" X ".avi & v/x-msvideo" X " & "
     "v/x-avi" X ".xvid & v/avi" X ".xvid", "0 AVI_Unknown 2400 2190 0 2170 2160 0"},
    {"VideoChainEmpty", kVideo, "v/x-msvideo:PN=X|/a", "0 Xvid 2200"},
    {"VideoNoRule", kVideo, "v/webm:PN=X|webm & app/x-mpegURL" X ".m3u8 & v/mp4;x=1" X ".mp4", "-1 0 0 0"},
    {"VideoRealMediaElsewhere", kVideo, "v/x-pn-realmedia:PN=X|/a.rmv & v/x:PN=MPEG1", "1 MPEG1 0 2190", 18},
    {"VideoTooLarge", kVideo, TS "|/a|20000x100 & " TS "|/a|100x20000 & " TS "|/a|16384x16384 & "
     TS "|/a|1920x1080", "3 MPEG2_TTS -800 -810 2680 2870"},
    {"VideoLaterKindDecides", kVideo, "a/mpeg:*|/a.mp3 & v/mpeg:*|/a.mpg", "1 MPEG_Unknown 0 2190"},
    {"WmvSecondaryWinsWhenHigher", kWmv, WMV "10 & " TS ";CI=1", "0 WMV 0/2100 1190"},
    {"WmvPrimaryWinsTies", kWmv, WMV "10 & 9 * text/b:* & " WMV "01", "10 WMV 0/2100 ... 2100"},
    {"WmvNamesByPrefix", kWmv, WMV "10 & v/x:PN=MPEG_TS_HD_NA_ISO & v/x:PN=AVC_TS_HD_24_AC3_ISO",
     "1 MPEG2_TTS 0/2100 2190 2180"},
    {"WmvEachNameByItsOwnRows", kWmv, WMV "10 & v/x:PN=N;ORSA.COM_PN=HD2_60_T", "1 MPEG2_TTS 0/2100 2190"},
    {"WmvUnknownNameIsOut", kWmv, WMV "10 & v/x-matroska:PN=X|/a.mkv & v/mp4v:PN=X & "
     "v/x-matroska:ARIB.OR.JP_PN=X|/a.mkv & v/x-matroska:ORSA.COM_PN=X|/a.mkv", "2 MPEG4 0/2100 0 2180 0 0"},
    {"WmvNoTableInRegion16", kWmv, WMV "01 & v/x-ms-wmv:*|/a.wmv", "1 WMV 0 0/2090", 16},
    {"WmvGuessIsSecondary", kWmv, "v/x-ms-asf2:*|/a.asf|1920x1080 & v/mp4:*|/a.mov", "0 WMV 0/2800 0/2090"},
    {"WmvTooLargeFromBoth", kWmv, WMV "01|/a|20000x100 & " WMV "10|/a|20000x100", "-1 -800/-3000 -3000/-910"},
    {"WmvNearestOnlyToPositive", kWmv, WMV "01|/a|720x480 & " WMV "10|/a|640x480", "0 WMV 2700 0/2090"},
    {"WmvLongerName", kWmv, "v/x:PN=WMVHIGH_FULLX;OP=01", "0 WMV 2200"},
    {"WmvOutTakesNoNearest", kWmv, WMV "10|/a|640x480 & v/x:PN=X|/a|1280x720", "0 WMV 0/2600 0"},
    {"VideoForeignNameHidesTheType", kVideo, "v/x-ms-wmv:PN=X & v/x-matroska:PN=X|/a.mkv", "1 MKV 0 2190"},
    {"VideoConvertedIsNoWindowsMedia", kVideo, WMV "01;CI=1 & v/mp4:*|/a.mp4", "1 MPEG4 0 2190"},
    {"NothingClassified", kNone, "text/plain:*|/a.txt", "-42"},
    {"VideoPlaylistRefused", kHlsRefused, PLAYLIST, "-42", 1, kExcludeHls},
    {"VideoApplePlaylistRefused", kHlsRefused, "app/vnd.apple.mpegURL:*", "-42", 1, kExcludeHls},
    {"VideoConvertedPlaylistTaken", kVideo, "app/x-mpegURL:CI=1|/a.m3u8", "0 M3U8 1200", 1, kExcludeHls},
    {"WmvBesidePlaylist", kWmv, PLAYLIST " & v/x-ms-wmv9:*", "0 M3U8 2200 0/2090", 1, kExcludeHls},
};
// clang-format on

TEST_ROWS(ResContest, PicksTheWinnerForItsPoints, kCases) {
  const std::vector<std::string> elements = resElements(row.candidates);
  const Didl didl(elements);
  const int count = static_cast<int>(elements.size());
  std::vector<TarqDlnaResMetadata> records(elements.size());
  std::vector<TarqDlnaResMetadata> explained(elements.size());
  int selected = -42;
  TarqDlnaResSelection(row.region)
      .selectMediaResIndex(didl.object(), records.data(), count, &selected, row.excludeHls);
  const ResChoice choice =
      TarqDlnaResSelection(row.region).choose(didl.object(), explained.data(), count, row.excludeHls);
  EXPECT_EQ(static_cast<int>(choice.contest), static_cast<int>(row.contest)) << "another contest decided";

  std::string outcome = std::to_string(selected);
  if (selected >= 0) {
    const char* format = records[static_cast<size_t>(selected)].format;
    outcome += std::string(" ") + (format == nullptr ? "-" : format);
  }
  if (choice.contestHeld() && choice.contest != kMpo) {  // which has ranks instead of points
    for (const TarqDlnaResMetadata& record : explained) outcome += " " + pointsOf(record.score);
    outcome = std::regex_replace(outcome, std::regex("( 0){9,}"), " ...");
  }
  EXPECT_EQ(outcome, row.expected);
}

}  // namespace
