#include <gtest/gtest.h>

#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "Didl.h"
#include "TarqDlnaResSelection.h"

namespace {

// A candidate is "content format:fourth field|URL|resolution|mpfEntries"; what is left out is absent, and a
// URL left out has no extension. PN, OP and CI stand for DLNA.ORG_PN and so on. "3 * candidate" is three.
std::string resElement(const std::string& candidate) {
  std::vector<std::string> parts(4);
  std::istringstream in(candidate);
  for (std::string& part : parts) std::getline(in, part, '|');
  parts[0] = std::regex_replace(parts[0], std::regex("([:;])(PN|OP|CI)="), "$1DLNA.ORG_$2=");
  std::string element = "<res protocolInfo='http-get:*:" + parts[0] + "'";
  if (!parts[2].empty()) element += " resolution='" + parts[2] + "'";
  if (!parts[3].empty()) element += " av:mpfEntries='" + parts[3] + "'";
  return element + ">" + (parts[1].empty() ? "http://h/a" : parts[1]) + "</res>";
}

std::vector<std::string> resElements(const std::string& candidates) {
  std::vector<std::string> elements;
  for (size_t begin = 0, end = 0; end != std::string::npos; begin = end + 3) {
    end = candidates.find(" & ", begin);
    const std::string candidate = candidates.substr(begin, end == std::string::npos ? end : end - begin);
    const size_t times = candidate.find(" * ");
    if (times == std::string::npos) {
      elements.push_back(resElement(candidate));
    } else {
      elements.insert(elements.end(), std::stoul(candidate), resElement(candidate.substr(times + 3)));
    }
  }
  return elements;
}

using Contest = int (TarqDlnaResSelection::*)(int, TarqDlnaResMetadata*, ResScore*) const;
constexpr Contest kPhoto = &TarqDlnaResSelection::selectPhotoResIndex;
constexpr Contest kMpo = nullptr;   // has ranks instead of points
constexpr Contest kNone = nullptr;  // is held
constexpr Contest kMusic = &TarqDlnaResSelection::selectMusicResIndex;
constexpr Contest kWma = &TarqDlnaResSelection::selectMusicResIndex_WMA;
constexpr Contest kVideo = &TarqDlnaResSelection::selectVideoResIndex;
constexpr Contest kWmv = &TarqDlnaResSelection::selectVideoResIndex_WMV;

struct ContestCase {
  const char* name;
  Contest contest;  // the one that the object must come to
  int region;
  const char* candidates;  // separated by " & "
  // The winner, its format, and each candidate's points; "...": many zeros; -42: the caller's index stays.
  const char* expected;
  int excludeHls = 0;
};

// "primary/secondary" when a candidate has both.
std::string pointsOf(const ResScore& score) {
  const std::string primary = std::to_string(score.primary.total());
  return score.secondary.total() == 0 ? primary : primary + "/" + std::to_string(score.secondary.total());
}

void expectOutcome(const ContestCase& c) {
  const std::vector<std::string> elements = resElements(c.candidates);
  const Didl didl(elements);
  const int count = static_cast<int>(elements.size());
  std::vector<TarqDlnaResMetadata> records(elements.size());
  std::vector<ResScore> scores(elements.size());
  TarqDlnaResSelection selection(c.region);

  int selected = -42;
  selection.selectMediaResIndex(didl.object(), records.data(), count, &selected, c.excludeHls);
  std::string outcome = std::to_string(selected);
  if (selected >= 0) {
    const char* format = records[static_cast<size_t>(selected)].format.c_str();
    outcome += std::string(" ") + (format == nullptr ? "-" : format);
  }
  if (c.contest != nullptr) {
    EXPECT_EQ((selection.*c.contest)(count, records.data(), scores.data()), selected)
        << c.name << ": another contest was held";
    for (const ResScore& score : scores) outcome += " " + pointsOf(score);
    outcome = std::regex_replace(outcome, std::regex("( 0){9,}"), " ...");
  }
  EXPECT_EQ(outcome, c.expected) << c.name;
}

// One row a case: the tables read across.
// clang-format off
#define JPEG "image/jpeg:*|/a.jpg|"
#define TS "video/mpeg:PN=MPEG_TS_SD_NA"
#define WMV "video/x-ms-wmv:PN=WMVHIGH_FULL;OP="
#define PLAYLIST "application/x-mpegURL:*|/a.m3u8"
const ContestCase kCases[] = {
    {"FullHdWins", kPhoto, 1, JPEG "640x480 & " JPEG "1920x1080 & " JPEG "4000x3000", "1 JPEG 1100 1790 1580"},
    {"AboveBeatsCloserBelow", kPhoto, 1, JPEG "1920x1079 & " JPEG "4000x3000", "1 JPEG 1100 1590"},
    {"LargestBelow", kPhoto, 1, JPEG "640x480 & " JPEG "1024x767", "1 JPEG 1100 1590"},
    {"SmallestAbove", kPhoto, 1, JPEG "4000x3000 & " JPEG "1921x1080", "1 JPEG 1100 1590"},
    {"NearestTieKeepsFirst", kPhoto, 1, JPEG "100x200 & " JPEG "200x100", "0 JPEG 1600 1090"},
    {"TooLarge", kPhoto, 1, JPEG "20000x100 & " JPEG "16384x16384", "1 JPEG -600 1590"},
    {"SameAreaGetsNothing", kPhoto, 1, JPEG "1080x1920", "0 JPEG 1100"},
    {"UnparsableIsTiny", kPhoto, 1, JPEG "1920X1080 & " JPEG, "0 JPEG 1600 1090"},
    {"AreaWrapsAround", kPhoto, 1, JPEG "65535x65535 & " JPEG "65536x32768", "0 JPEG 1100 1090"},
    {"ThumbnailNever", kPhoto, 1, "image/jpeg:PN=JPEG_TN|/a.jpg|1920x1080", "-1 0"},
    {"ProfileWhateverTheType", kPhoto, 1, "image/png:PN=JPEG_LRG", "0 JPEG 1100"},
    {"TypeIsWhole", kPhoto, 1, "image/jpeg;q=1:* & IMAGE/JPEG:* & image/x-orsa-kzr:*", "2 KZR 0 0 1080"},
    {"LateConvertedNeverWins", kPhoto, 1, "10 * image/x:* & 2 * image/jpeg:CI=1", "-1 ... -10"},
    {"RankBeforeSize", kMpo, 1, JPEG "1920x1080|3 & " JPEG "10x10|2", "1 MPO"},
    {"OriginalBeforeConverted", kMpo, 1, "image/jpeg:CI=1|/a|1920x1080|4 & " JPEG "10x10|2", "1 MPO"},
    {"ConvertedPairBeforeTriple", kMpo, 1, JPEG "10x10|6 & image/jpeg:CI=1|/a|10x10|2", "1 MPO"},
    {"OneBesideTwo", kMpo, 1, JPEG "1920x1080|1 & " JPEG "10x10|2", "1 MPO"},
    {"AboveBeatsBelow", kMpo, 1, JPEG "1280x720|2 & " JPEG "2560x1440|4", "1 MPO"},
    {"BelowDoesNotBeatAbove", kMpo, 1, JPEG "2560x1440|4 & " JPEG "1280x720|2", "0 MPO"},
    {"FullHdTakesTheLead", kMpo, 1, JPEG "2560x1440|2 & " JPEG "1920x1080|2 & " JPEG "1921x1080|2", "1 MPO"},
    {"SmallerAbove", kMpo, 1, JPEG "4000x3000|2 & " JPEG "2560x1440|2", "1 MPO"},
    {"LargerBelow", kMpo, 1, JPEG "100x100|2 & " JPEG "101x100|2", "1 MPO"},
    {"SameAreaLosesToNobody", kMpo, 1, JPEG "1080x1920|2 & " JPEG "2560x1440|2", "0 MPO"},
    {"TooLargeIsOut", kMpo, 1, JPEG "16385x1|2 & " JPEG "10x10|7", "1 MPO"},
    {"NamedProfileFallsBack", kMpo, 1, "image/jpeg:PN=JPEG_LRG|/a|10x10|2", "0 JPEG"},
    {"NoResolutionFallsBack", kMpo, 1, JPEG "|2", "0 JPEG"},
    {"NoJpegHasNoFormat", kMpo, 1, "image/png:*|/a|10x10|2", "0 -"},
    {"ConvertedWmaIsUnknown", kMusic, 1, "audio/x-ms-wma:CI=1 & audio/ogg:*", "1 OggVorbis 0 1990"},
    {"ProfileWhateverTheType", kMusic, 1, "audio/x:PN=MP3", "0 MP3 2000"},
    {"LongerProfileFallsToTheType", kMusic, 1, "audio/mp4:PN=MP3X", "0 AUDIO_MPEG4 2000"},
    {"UnknownProfileHidesTableTypes", kMusic, 1, "audio/mpeg:PN=MP3X", "-1 0"},
    {"TableTypesBegin", kMusic, 1, "audio/L16;rate=44100:* & audio/mpeg2:*", "0 LPCM 2000 1990"},
    {"ListTypesAreWhole", kMusic, 1, "audio/mp4;codecs=1:* & AUDIO/ogg:* & audio/wav2:*", "-1 0 0 0"},
    {"AmrIsOut", kMusic, 1, "audio/3gpp:*|/a.AMR & audio/3gpp:*|a.3gp & audio/3gpp2:*|/a", "2 AUDIO_3GPP 0 0 1980"},
    {"ApplicationOggIsLast", kMusic, 1, "application/ogg:* & audio/ogg:*", "1 OggVorbis 1900 1990"},
    {"TieKeepsFirst", kMusic, 1, "application/ogg:CI=1 & 9 * audio/x:* & audio/wav:CI=1", "0 OggVorbis 900 ... 900"},
    {"PhotoBesideMusic", kMusic, 1, "audio/x-flac:* & " JPEG "1920x1080", "0 FLAC 2000 0"},
    {"PrimaryBeatsHigherSecondary", kWma, 1, "audio/x:PN=WMABASE;OP=01;CI=1 & audio/x-ms-wma:*", "0 WMA 1200 0/2090"},
    {"SeekValues", kWma, 1, "audio/x:PN=WMABASE;OP=10 & audio/x:PN=WMAFULL;OP=0 & audio/x:PN=WMABASE;OP=011 & "
     "audio/x:PN=WMABASE2;OP=11 & audio/x:PN=WMABASE;OP=00 & audio/x:PN=WMABASE;OP=",
     "1 WMA 0/2100 2190 0/2080 2170 0/2060 2150"},
    {"SecondaryWhenAlone", kWma, 1, "audio/ogg:* & audio/x-ms-wma;x=1:*", "1 WMA 0 0/2090"},
    {"LateGetsNoConvertedBonus", kWma, 1,  // 200 - 100 + 1000 and 200 - 250: what is below 0 gets no bonus
     "110 * text/plain:* & audio/x:PN=WMABASE;OP=01 & 14 * text/plain:* & audio/x:PN=WMABASE;OP=01",
     "110 WMA ... 1100 ... -50"},
    {"ProfilesBegin", kWma, 1, "audio/x-ms-wma:* & audio/x:PN=MP3X;CI=1 & audio/mpeg:PN=AAC", "1 MP3 0/2100 1190 0"},
    {"NoRowInRegion16", kVideo, 16, TS "|/a.mpg|720x480", "-1 0"},
    {"LinkProtected", kVideo, 2, "video/mp4:PN=DTCP_AVC_TS_HD_60_AC3|/a.mp4", "0 AVC_TTS 2200"},
    {"OneNameCounts", kVideo, 1, "video/webm:PN=X;ORSA.COM_PN=HD2_60_T|/a.webm", "0 WebM 2200"},
    {"VendorName", kVideo, 1, "video/x:ORSA.COM_PN=HD2_60_T;ARIB.OR.JP_PN=MPEG_TTS_CP", "0 MPEG2_TTS 2200"},
    {"AribName", kVideo, 1, "video/x:ARIB.OR.JP_PN=MPEG_TTS_CP", "0 MPEG2_TTS_ARIB 2200"},
    {"LongerNameGoesByType", kVideo, 1, "video/mpeg:PN=MPEG_TS_SD_NA_X|/a.MTS", "0 AVC_TTS 2200"},
    {"Mp4WhateverTheExtension", kVideo, 1, "video/mp4:PN=X|a.txt", "0 MPEG4 2200"},
    {"AbsentIsNotEmpty", kVideo, 1, "video/webm:PN=X|webm & video/webm:PN=X|/webm", "1 WebM 0 2190"},
    {"ChainTwice", kVideo, 1, "video/x-msvideo:PN=X|/a.Avi", "0 AVI_Unknown 2400"},
    {"ChainOnce", kVideo, 1, "video/x-avi:PN=X|/a.avi", "0 AVI_Unknown 2200"},
    {"ChainEmpty", kVideo, 1, "video/x-msvideo:PN=X|/a", "0 Xvid 2200"},
    {"ChainXvid", kVideo, 1, "video/x-avi:PN=X|/a.xvid", "0 Xvid 2200"},
    {"ChainEndsAtXvid", kVideo, 1, "video/x-xvid:PN=X|/a.avi", "-1 0"},
    {"AviIsNoChain", kVideo, 1, "video/avi:PN=X|/a.xvid", "-1 0"},
    {"PlaylistRuleNeverPasses", kVideo, 1, "application/x-mpegURL:PN=X|/a.m3u8", "-1 0"},
    {"TypeIsWhole", kVideo, 1, "video/mp4;x=1:PN=X|/a.mp4", "-1 0"},
    {"RealMedia", kVideo, 16, "application/octet-stream:PN=X|/a.rmv & video/x-pn-realmedia:PN=X|/a.rmv", "1 RMVB 0 2190"},
    {"RealMediaElsewhere", kVideo, 18, "video/x-pn-realmedia:PN=X|/a.rmv", "-1 0"},
    {"UnclassifiedStillCompetes", kVideo, 1, "video/mp4|/a.mp4 & video/webm:*|/a.txt", "1 WebM 1200 2190"},
    {"GuessIsHalf", kVideo, 1, "video/mp4:*|/a.mov & video/mp4:*|/a.mp4", "1 MPEG4 2100 2190"},
    {"TooLarge", kVideo, 1, TS "|/a|20000x100 & " TS "|/a|100x20000 & " TS "|/a|16384x16384",
     "2 MPEG2_TTS -800 -810 2680"},
    {"FullHdBeforeUltraHd", kVideo, 1, TS "|/a|3840x2160 & " TS "|/a|1920x1080", "1 MPEG2_TTS 2700 2890"},
    {"UnparsableIsTiny", kVideo, 1, TS "|/a|x & " TS "|/a|10x10", "1 MPEG2_TTS 2200 2690"},
    {"LaterKindDecides", kVideo, 1, "audio/mpeg:*|/a.mp3 & video/mpeg:*|/a.mpg", "1 MPEG_Unknown 0 2190"},
    {"SecondaryWinsWhenHigher", kWmv, 1, WMV "10 & " TS ";CI=1", "0 WMV 0/2100 1190"},
    {"PrimaryWinsTies", kWmv, 1, WMV "10 & 9 * a/b:* & " WMV "01", "10 WMV 0/2100 ... 2100"},
    {"NamesByPrefix", kWmv, 1, WMV "10 & video/x:PN=MPEG_TS_HD_NA_ISO;CI=1 & video/x:PN=AVC_TS_HD_24_AC3_ISO",
     "2 AVC_TTS 0/2100 1190 2180"},
    {"EachNameByItsOwnRows", kWmv, 1, WMV "10 & video/x:PN=N;ORSA.COM_PN=HD2_60_T", "1 MPEG2_TTS 0/2100 2190"},
    {"UnknownNameIsOut", kWmv, 1, WMV "10 & video/x-matroska:PN=X|/a.mkv & video/mp4v:PN=X", "2 MPEG4 0/2100 0 2180"},
    {"NoTableInRegion16", kWmv, 16, WMV "01 & video/x-ms-wmv:*|/a.wmv", "1 WMV 0 0/2090"},
    {"GuessIsSecondary", kWmv, 1, "video/x-ms-asf:*|/a.asf|1920x1080 & video/mp4:*|/a.mov", "0 WMV 0/2800 0/2090"},
    {"TooLargeFromBoth", kWmv, 1, WMV "01|/a|20000x100", "-1 -800/-3000"},
    {"NearestOnlyToPositive", kWmv, 1, WMV "01|/a|720x480 & " WMV "10|/a|640x480", "0 WMV 2700 0/2090"},
    {"ConvertedIsNoWindowsMedia", kVideo, 1, WMV "01;CI=1 & video/mp4:*|/a.mp4", "1 MPEG4 0 2190"},
    {"OtherNameIsNoWindowsMedia", kVideo, 1, "video/x-ms-wmv:PN=MPEG1", "0 MPEG1 2200"},
    {"NothingClassified", kNone, 1, "text/plain:*|/a.txt", "-42"},
    {"PlaylistRefused", kNone, 1, PLAYLIST, "-42", 1},
    {"PlaylistTaken", kVideo, 1, PLAYLIST, "0 M3U8 2200"},
    {"PlaylistBesideWindowsMedia", kWmv, 1, PLAYLIST " & video/x-ms-wmv:*", "0 M3U8 2200 0/2090", 1},
};
// clang-format on

TEST(ResContest, PicksTheWinnerForItsPoints) {
  for (const ContestCase& c : kCases) expectOutcome(c);
}

}  // namespace
