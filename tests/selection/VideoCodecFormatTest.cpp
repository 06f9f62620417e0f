#include <gtest/gtest.h>

#include <string>

#include "TarqDlnaResSelection.h"

namespace {

struct CodecCase {
  const char* name;
  int region;
  const char* mime;
  const char* extension;
  const char* expected;  // format and weight
};

class VideoCodecFormat : public testing::TestWithParam<CodecCase> {};

TEST_P(VideoCodecFormat, IsToldByMimeTypeAndExtension) {
  const CodecCase& c = GetParam();
  int weight = -7;
  const char* format = TarqDlnaResSelection(c.region).getVideoCodecFormat(c.mime, c.extension, &weight);
  EXPECT_EQ(format == nullptr ? "none " + std::to_string(weight) : format + (" " + std::to_string(weight)),
            c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    , VideoCodecFormat,
    testing::Values(
        CodecCase{"ExtensionCaseDoesNotMatter", 1, "video/mpeg", "MPG", "MPEG_Unknown 200"},
        CodecCase{"MimeCaseMatters", 1, "VIDEO/MPEG", "mpg", "none -7"},
        CodecCase{"PairBeforeMimeAlone", 1, "video/mpeg", "m2ts", "AVC_TTS 200"},
        CodecCase{"MimeAloneWhenPairUnknown", 1, "video/mpeg", "ts", "MPEG_Unknown 200"},
        CodecCase{"Mp4Identified", 1, "video/mp4", "mp4", "MPEG4 200"},
        CodecCase{"Mp4GuessedWhereNoRowApplies", 16, "video/mp4", "mp4", "MPEG4 100"},
        CodecCase{"Mp4GuessedWithoutExtension", 1, "video/mp4", nullptr, "MPEG4 100"},
        CodecCase{"Mp4WithParameterIsUnknown", 1, "video/mp4;codecs=avc1", "mp4", "none -7"},
        CodecCase{"NoMimeType", 1, nullptr, "mp4", "none -7"},
        CodecCase{"AsfIsGuessed", 1, "video/x-ms-asf", "asf", "WMV 100"},
        CodecCase{"WmvBeginsWith", 1, "video/x-ms-wmv9", nullptr, "WMV 100"},
        CodecCase{"ThreeGpp2BeginsWith3Gpp", 1, "video/3gpp2", "mp4", "3GPP 200"},
        CodecCase{"DirectvByRow", 4, "video/vnd.directv.mpeg", "mpeg", "MPEG2_TS 200"},
        CodecCase{"DirectvByMimeAlone", 1, "video/vnd.directv.mpeg", "mpeg", "MPEG2_TS 200"},
        CodecCase{"LongerDirectvNameFirst", 1, "video/vnd.directv.mpeg-tts", "ts", "MPEG2_TTS 200"},
        CodecCase{"XvidByMimeAlone", 1, "video/x-xvid", "avi", "Xvid 200"},
        CodecCase{"MsvideoPairWantsTheWholeType", 1, "video/x-msvideo2", "avi", "AVI_Unknown 200"},
        CodecCase{"MsVideoWithAvi", 1, "video/x-ms-video", "AVI", "AVI_Unknown 200"},
        CodecCase{"MsVideoAlone", 1, "video/x-ms-video", "wmv", "none -7"},
        CodecCase{"AviWantsTheWholeType", 1, "video/avi2", "avi", "none -7"},
        CodecCase{"PlaylistWithParameter", 1, "application/x-mpegURL;q=1", nullptr, "M3U8 200"},
        CodecCase{"OctetStreamRmvb", 16, "application/octet-stream", "rmvb", "RMVB 200"},
        CodecCase{"OctetStreamRmvbElsewhere", 17, "application/octet-stream", "rmvb", "none -7"},
        CodecCase{"OctetStreamRmv", 16, "application/octet-stream", "rmv", "none -7"},
        CodecCase{"RealVideoAlone", 16, "video/vnd.rn-realvideo", "rv", "RMVB 200"},
        CodecCase{"RealVideoElsewhere", 1, "video/vnd.rn-realvideo", "rv", "none -7"}),
    [](const auto& i) { return std::string(i.param.name); });

}  // namespace
