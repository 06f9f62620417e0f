#include <gtest/gtest.h>

#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "Didl.h"
#include "TarqDlnaResSelection.h"
#include "TestRows.h"

namespace {

// A candidate is "content format:fourth field|URL|resolution|mpfEntries"; what is left out is absent, and a
// URL left out has no extension. PN, OP and CI stand for DLNA.ORG_PN and so on. "3 * candidate" is three.
std::string candidateElement(const std::string& candidate) {
  std::vector<std::string> parts(4);
  std::istringstream in(candidate);
  for (std::string& part : parts) std::getline(in, part, '|');
  const std::string info = std::regex_replace(parts[0], std::regex("([:;])(PN|OP|CI)="), "$1DLNA.ORG_$2=");
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

struct Contest {
  ResContestKind kind;
  int (TarqDlnaResSelection::*score)(int, TarqDlnaResMetadata*, ResScore*) const = nullptr;
};
constexpr Contest kPhoto{ResContestKind::kPhoto, &TarqDlnaResSelection::selectPhotoResIndex};
constexpr Contest kMpo{ResContestKind::kMpo};  // has ranks instead of points
constexpr Contest kNone{ResContestKind::kNone};
constexpr Contest kHlsRefused{ResContestKind::kHlsRefused};
constexpr Contest kMusic{ResContestKind::kMusic, &TarqDlnaResSelection::selectMusicResIndex};
constexpr Contest kWma{ResContestKind::kWma, &TarqDlnaResSelection::selectMusicResIndex_WMA};
constexpr Contest kVideo{ResContestKind::kVideo, &TarqDlnaResSelection::selectVideoResIndex};
constexpr Contest kWmv{ResContestKind::kWmv, &TarqDlnaResSelection::selectVideoResIndex_WMV};

struct ContestCase {
  const char* name;
  Contest contest;  // the one that is held
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

// One row a case: the tables read across.
// clang-format off
#define JPEG "image/jpeg:*|/a.jpg|"
#define TS "video/mpeg:PN=MPEG_TS_SD_NA"
#define WMV "video/x-ms-wmv:PN=WMVHIGH_FULL;OP="
#define X ":PN=X|/a"  // a profile name that nobody knows
#define PLAYLIST "application/x-mpegURL:*|/a.m3u8"
const ContestCase kCases[] = {
    {"PhotoFullHdWins", kPhoto, 1, JPEG "640x480 & " JPEG "1920x1080 & " JPEG "4000x3000", "1 JPEG 1100 1790 1580"},
    {"PhotoAboveBeatsCloserBelow", kPhoto, 1, JPEG "1920x1079 & " JPEG "4000x3000", "1 JPEG 1100 1590"},
    {"PhotoLargestBelow", kPhoto, 1, JPEG "640x480 & " JPEG "1024x767", "1 JPEG 1100 1590"},
    {"PhotoSmallestAbove", kPhoto, 1, JPEG "4000x3000 & " JPEG "1921x1080 & " JPEG "1080x1921", "1 JPEG 1100 1590 1080"},
    {"PhotoNearestTieKeepsFirst", kPhoto, 1, JPEG "100x200 & " JPEG "200x100", "0 JPEG 1600 1090"},
    {"PhotoTooLarge", kPhoto, 1, JPEG "20000x100 & " JPEG "16384x16384", "1 JPEG -600 1590"},
    {"PhotoSameAreaGetsNothing", kPhoto, 1, JPEG "1080x1920", "0 JPEG 1100"},
    {"PhotoUnparsableIsTiny", kPhoto, 1, JPEG "1920X1080 & " JPEG, "0 JPEG 1600 1090"},
    {"PhotoAreaWrapsAround", kPhoto, 1, JPEG "65535x65535 & " JPEG "65536x32768", "0 JPEG 1100 1090"},
    {"PhotoThumbnailNever", kPhoto, 1, "image/jpeg:PN=JPEG_TN|/a.jpg|1920x1080", "-1 0"},
    {"PhotoProfileWhateverTheType", kPhoto, 1, "image/png:PN=JPEG_LRG", "0 JPEG 1100"},
    {"PhotoTypeIsWhole", kPhoto, 1, "image/jpeg;q=1:* & IMAGE/JPEG:* & image/x-orsa-kzr:*", "2 KZR 0 0 1080"},
    {"PhotoLateConvertedNeverWins", kPhoto, 1, "10 * image/x:* & 2 * image/jpeg:CI=1", "-1 ... -10"},
    {"MpoRankBeforeSize", kMpo, 1, JPEG "1920x1080|3 & " JPEG "10x10|2", "1 MPO"},
    {"MpoOriginalBeforeConverted", kMpo, 1, "image/jpeg:CI=1|/a|1920x1080|4 & " JPEG "10x10|2", "1 MPO"},
    {"MpoConvertedPairBeforeTriple", kMpo, 1, JPEG "10x10|6 & image/jpeg:CI=1|/a|10x10|2", "1 MPO"},
    {"MpoOneBesideTwo", kMpo, 1, JPEG "1920x1080|1 & " JPEG "10x10|2", "1 MPO"},
    {"MpoAboveBeatsBelow", kMpo, 1, JPEG "1280x720|2 & " JPEG "2560x1440|4", "1 MPO"},
    {"MpoBelowDoesNotBeatAbove", kMpo, 1, JPEG "2560x1440|4 & " JPEG "1280x720|2", "0 MPO"},
    {"MpoFullHdTakesTheLead", kMpo, 1, JPEG "2560x1440|2 & " JPEG "1920x1080|2 & " JPEG "1921x1080|2", "1 MPO"},
    {"MpoSmallerAbove", kMpo, 1, JPEG "4000x3000|2 & " JPEG "2560x1440|2", "1 MPO"},
    {"MpoLargerBelow", kMpo, 1, JPEG "100x100|2 & " JPEG "101x100|2", "1 MPO"},
    {"MpoSameAreaLosesToNobody", kMpo, 1, JPEG "1080x1920|2 & " JPEG "2560x1440|2", "0 MPO"},
    {"MpoTooLargeIsOut", kMpo, 1, JPEG "16385x1|2 & " JPEG "10x10|7", "1 MPO"},
    {"MpoNamedProfileFallsBack", kMpo, 1, "image/jpeg:PN=JPEG_LRG|/a|10x10|2", "0 JPEG"},
    {"MpoNoResolutionFallsBack", kMpo, 1, JPEG "|2", "0 JPEG"},
    {"MpoNoJpegHasNoFormat", kMpo, 1, "image/png:*|/a|10x10|2", "0 -"},
    {"MpoSixIsNoSeven", kMpo, 1, JPEG "10x10|7 & " JPEG "10x10|6", "1 MPO"},
    {"MpoTieAboveKeepsFirst", kMpo, 1, JPEG "2560x1440|2 & " JPEG "1440x2560|2", "0 MPO"},
    {"MpoTwoFullHdKeepFirst", kMpo, 1, JPEG "1920x1080|2 & " JPEG "1920x1080|2", "0 MPO"},
    {"MpoTooHighIsOut", kMpo, 1, JPEG "1x16385|2 & " JPEG "10x10|7", "1 MPO"},
    {"MpoNegativeCountTakesPart", kMpo, 1, JPEG "10x10|-1 & " JPEG "|2", "0 MPO"},
    {"MusicConvertedWmaIsUnknown", kMusic, 1, "audio/x-ms-wma:CI=1 & audio/ogg:*", "1 OggVorbis 0 1990"},
    {"MusicProfileWhateverTheType", kMusic, 1, "audio/x:PN=MP3", "0 MP3 2000"},
    {"MusicLongerProfileFallsToTheType", kMusic, 1, "audio/mp4:PN=MP3X", "0 AUDIO_MPEG4 2000"},
    {"MusicUnknownProfileHidesTableTypes", kMusic, 1, "audio/mpeg:PN=MP3X", "-1 0"},
    {"MusicTableTypesBegin", kMusic, 1, "audio/L16;rate=44100:* & audio/mpeg2:*", "0 LPCM 2000 1990"},
    {"MusicListTypesAreWhole", kMusic, 1, "audio/mp4;codecs=1:* & AUDIO/ogg:* & audio/wav2:*", "-1 0 0 0"},
    {"MusicAmrIsOut", kMusic, 1, "audio/3gpp:*|/a.AMR & audio/3gpp:*|a.3gp & audio/3gpp2:*|/a", "2 AUDIO_3GPP 0 0 1980"},
    {"MusicApplicationOggIsLast", kMusic, 1, "application/ogg:* & audio/ogg:*", "1 OggVorbis 1900 1990"},
    {"MusicTieKeepsFirst", kMusic, 1, "application/ogg:CI=1 & 9 * audio/x:* & audio/wav:CI=1", "0 OggVorbis 900 ... 900"},
    {"MusicPhotoBesideMusic", kMusic, 1, "audio/x-flac:* & " JPEG "1920x1080", "0 FLAC 2000 0"},
    {"WmaPrimaryBeatsHigherSecondary", kWma, 1, "audio/x:PN=WMABASE;OP=01;CI=1 & audio/x-ms-wma:*", "0 WMA 1200 0/2090"},
    {"WmaSeekValues", kWma, 1, "audio/x:PN=WMABASE;OP=10 & audio/x:PN=WMAFULL;OP=0 & audio/x:PN=WMABASE;OP=011 & "
     "audio/x:PN=WMABASE2;OP=11 & audio/x:PN=WMABASE;OP=00 & audio/x:PN=WMABASE;OP=",
     "1 WMA 0/2100 2190 0/2080 2170 0/2060 2150"},
    {"WmaSecondaryWhenAlone", kWma, 1, "audio/ogg:* & audio/x-ms-wma;x=1:OP=01", "1 WMA 0 0/2090"},
    {"WmaLateGetsNoConvertedBonus", kWma, 1,  // 200 - 100 + 1000 and 200 - 250: what is below 0 gets no bonus
     "110 * text/plain:* & audio/x:PN=WMABASE;OP=01 & 14 * text/plain:* & audio/x:PN=WMABASE;OP=01",
     "110 WMA ... 1100 ... -50"},
    {"WmaProfilesBegin", kWma, 1, "audio/x-ms-wma:* & audio/x:PN=MP3X;CI=1 & audio/mpeg:PN=AAC", "1 MP3 0/2100 1190 0"},
    {"WmaNoSeekDeclared", kWma, 1, "audio/x:PN=WMABASE & audio/x-ms-wma:*", "0 WMA 0/2100 0/2090"},
    {"VideoFirstRow", kVideo, 8, "video/x:PN=AVC_TS_HD_24_AC3", "0 AVC_TTS 2200"},
    {"VideoNoRowInRegion16", kVideo, 16, TS "|/a.mpg|720x480", "-1 0"},
    {"VideoLinkProtected", kVideo, 2, "video/mp4:PN=DTCP_AVC_TS_HD_60_AC3|/a.mp4", "0 AVC_TTS 2200"},
    {"VideoOneNameCounts", kVideo, 1, "video/webm:PN=X;ORSA.COM_PN=HD2_60_T|/a.webm", "0 WebM 2200"},
    {"VideoVendorName", kVideo, 1, "video/x:ORSA.COM_PN=HD2_60_T;ARIB.OR.JP_PN=MPEG_TTS_CP", "0 MPEG2_TTS 2200"},
    {"VideoAribName", kVideo, 1, "video/x:ARIB.OR.JP_PN=MPEG_TTS_CP", "0 MPEG2_TTS_ARIB 2200"},
    {"VideoLongerNameGoesByType", kVideo, 1, "video/mpeg:PN=MPEG_TS_SD_NA_X|/a.MTS", "0 AVC_TTS 2200"},
    {"VideoMp4WhateverTheExtension", kVideo, 1, "video/mp4:PN=X|a.txt", "0 MPEG4 2200"},
    {"VideoRuleMpeg", kVideo, 1, "video/mpeg" X ".m2ts & video/mpeg" X ".mts & video/mpeg" X ".tts & video/mpeg" X " & "
     "video/vnd.dlna.mpeg-tts" X ".m2ts & video/vnd.dlna.mpeg-tts" X ".mts & video/vnd.dlna.mpeg-tts" X ".tts",
     "0 AVC_TTS 2200 2190 0 0 2160 2150 2140"},
    {"VideoRule3gpp", kVideo, 1, "video/3gpp" X ".3gp & video/3gpp" X ".3g2 & video/3gpp" X " & video/3gpp2" X ".3gp & "
     "video/3gpp2" X ".3g2 & video/3gpp2" X " & video/3gpp" X ".mp4", "0 3GPP 2200 2190 2180 2170 2160 2150 0"},
    {"VideoRuleMkvAndOthers", kVideo, 1, "video/x-mkv" X ".mkv & video/x-mkv" X " & video/x-matroska" X ".MKV & video/x-matroska" X " & "
     "video/webm" X ".webm & video/webm" X " & video/quicktime" X ".mov & video/quicktime" X " & video/avi" X ".avi & video/avi" X,
     "0 MKV 2200 2190 2180 2170 2160 2150 2140 2130 2120 2110"},
    {"VideoRuleRealMedia", kVideo, 16, "application/octet-stream" X ".rmvb & application/octet-stream" X ".rm & "
     "application/octet-stream" X ".rmv & application/octet-stream" X " & video/x-pn-realmedia" X ".rmvb & video/x-pn-realmedia" X ".rm & "
     "video/x-pn-realmedia" X ".rmv & video/x-pn-realmedia" X " & application/vnd.rn-realmedia-vbr" X " & "
     "application/vnd.rn-realmedia" X " & video/vnd.rn-realvideo" X, "0 RMVB 2200 2190 0 0 2160 2150 2140 2130 2120 2110 2100"},
    {"VideoAbsentIsNotEmpty", kVideo, 1, "video/webm:PN=X|webm & video/webm:PN=X|/webm", "1 WebM 0 2190"},
    {"VideoChainTwice", kVideo, 1, "video/x-msvideo:PN=X|/a.Avi", "0 AVI_Unknown 2400"},
    {"VideoChainOnce", kVideo, 1, "video/x-avi:PN=X|/a.avi", "0 AVI_Unknown 2200"},
    {"VideoChainEmpty", kVideo, 1, "video/x-msvideo:PN=X|/a", "0 Xvid 2200"},
    {"VideoChainXvid", kVideo, 1, "video/x-avi:PN=X|/a.xvid", "0 Xvid 2200"},
    {"VideoChainEndsAtXvid", kVideo, 1, "video/x-xvid:PN=X|/a.avi", "-1 0"},
    {"VideoAviIsNoChain", kVideo, 1, "video/avi:PN=X|/a.xvid", "-1 0"},
    {"VideoPlaylistRuleNeverPasses", kVideo, 1, "application/x-mpegURL:PN=X|/a.m3u8", "-1 0"},
    {"VideoTypeIsWhole", kVideo, 1, "video/mp4;x=1:PN=X|/a.mp4", "-1 0"},
    {"VideoRealMedia", kVideo, 16, "application/octet-stream:PN=X|/a.rmv & video/x-pn-realmedia:PN=X|/a.rmv", "1 RMVB 0 2190"},
    {"VideoRealMediaElsewhere", kVideo, 18, "video/x-pn-realmedia:PN=X|/a.rmv", "-1 0"},
    {"VideoUnclassifiedStillCompetes", kVideo, 1, "video/mp4|/a.mp4 & video/webm:*|/a.txt", "1 WebM 1200 2190"},
    {"VideoGuessIsHalf", kVideo, 1, "video/mp4:*|/a.mov & video/mp4:*|/a.mp4", "1 MPEG4 2100 2190"},
    {"VideoTooLarge", kVideo, 1, TS "|/a|20000x100 & " TS "|/a|100x20000 & " TS "|/a|16384x16384",
     "2 MPEG2_TTS -800 -810 2680"},
    {"VideoFullHdBeforeUltraHd", kVideo, 1, TS "|/a|3840x2160 & " TS "|/a|1920x1080", "1 MPEG2_TTS 2700 2890"},
    {"VideoUnparsableIsTiny", kVideo, 1, TS "|/a|x & " TS "|/a|10x10", "1 MPEG2_TTS 2200 2690"},
    {"VideoLaterKindDecides", kVideo, 1, "audio/mpeg:*|/a.mp3 & video/mpeg:*|/a.mpg", "1 MPEG_Unknown 0 2190"},
    {"WmvSecondaryWinsWhenHigher", kWmv, 1, WMV "10 & " TS ";CI=1", "0 WMV 0/2100 1190"},
    {"WmvPrimaryWinsTies", kWmv, 1, WMV "10 & 9 * a/b:* & " WMV "01", "10 WMV 0/2100 ... 2100"},
    {"WmvNamesByPrefix", kWmv, 1, WMV "10 & video/x:PN=MPEG_TS_HD_NA_ISO & video/x:PN=AVC_TS_HD_24_AC3_ISO",
     "1 MPEG2_TTS 0/2100 2190 2180"},
    {"WmvEachNameByItsOwnRows", kWmv, 1, WMV "10 & video/x:PN=N;ORSA.COM_PN=HD2_60_T", "1 MPEG2_TTS 0/2100 2190"},
    {"WmvUnknownNameIsOut", kWmv, 1, WMV "10 & video/x-matroska:PN=X|/a.mkv & video/mp4v:PN=X & video/x-matroska:ARIB.OR.JP_PN=X|/a.mkv", "2 MPEG4 0/2100 0 2180 0"},
    {"WmvNoTableInRegion16", kWmv, 16, WMV "01 & video/x-ms-wmv:*|/a.wmv", "1 WMV 0 0/2090"},
    {"WmvGuessIsSecondary", kWmv, 1, "video/x-ms-asf:*|/a.asf|1920x1080 & video/mp4:*|/a.mov", "0 WMV 0/2800 0/2090"},
    {"WmvTooLargeFromBoth", kWmv, 1, WMV "01|/a|20000x100", "-1 -800/-3000"},
    {"WmvNearestOnlyToPositive", kWmv, 1, WMV "01|/a|720x480 & " WMV "10|/a|640x480", "0 WMV 2700 0/2090"},
    {"WmvAsfIsWindowsMedia", kWmv, 1, "video/x-ms-asf:*|/a.asf & video/x-matroska:PN=X|/a.mkv", "0 WMV 0/2100 0"},
    {"WmvLongerName", kWmv, 1, "video/x:PN=WMVHIGH_FULLX;OP=01", "0 WMV 2200"},
    {"WmvOutTakesNoNearest", kWmv, 1, WMV "10|/a|640x480 & video/x:PN=X|/a|1280x720", "0 WMV 0/2600 0"},
    {"VideoForeignNameHidesTheType", kVideo, 1, "video/x-ms-wmv:PN=X & video/x-matroska:PN=X|/a.mkv", "1 MKV 0 2190"},
    {"VideoConvertedIsNoWindowsMedia", kVideo, 1, WMV "01;CI=1 & video/mp4:*|/a.mp4", "1 MPEG4 0 2190"},
    {"VideoOtherNameIsNoWindowsMedia", kVideo, 1, "video/x-ms-wmv:PN=MPEG1", "0 MPEG1 2200"},
    {"NothingClassified", kNone, 1, "text/plain:*|/a.txt", "-42"},
    {"VideoPlaylistRefused", kHlsRefused, 1, PLAYLIST, "-42", 1},
    {"VideoConvertedPlaylistIsNotRefused", kVideo, 1, "application/x-mpegURL:CI=1|/a.m3u8", "0 M3U8 1200", 1},
    {"VideoPlaylistTaken", kVideo, 1, PLAYLIST, "0 M3U8 2200"},
    {"WmvPlaylistBesideWindowsMedia", kWmv, 1, PLAYLIST " & video/x-ms-wmv:*", "0 M3U8 2200 0/2090", 1},
};
// clang-format on

TEST_ROWS(ResContest, PicksTheWinnerForItsPoints, kCases) {
  const std::vector<std::string> elements = resElements(row.candidates);
  const Didl didl(elements);
  const int count = static_cast<int>(elements.size());
  std::vector<TarqDlnaResMetadata> records(elements.size());
  TarqDlnaResSelection held(row.region);
  const int lastClassified = held.readRecords(didl.object(), records.data(), count);
  const ResContestKind kind = held.contestFor(records.data(), count, lastClassified, row.excludeHls);
  EXPECT_EQ(static_cast<int>(kind), static_cast<int>(row.contest.kind)) << "another contest is held";

  int selected = -42;
  TarqDlnaResSelection selection(row.region);
  selection.selectMediaResIndex(didl.object(), records.data(), count, &selected, row.excludeHls);
  std::string outcome = std::to_string(selected);
  if (selected >= 0) {
    const char* format = records[static_cast<size_t>(selected)].format.c_str();
    outcome += std::string(" ") + (format == nullptr ? "-" : format);
  }
  if (row.contest.score != nullptr) {
    std::vector<ResScore> scores(elements.size());
    (selection.*row.contest.score)(count, records.data(), scores.data());
    for (const ResScore& score : scores) outcome += " " + pointsOf(score);
    outcome = std::regex_replace(outcome, std::regex("( 0){9,}"), " ...");
  }
  EXPECT_EQ(outcome, row.expected);
}

}  // namespace
