#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "LoadedPlugin.h"
#include "SinkProtocolInfo.h"
#include "TarqDmrMediaProfile.h"

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

void setRegion(int region) {
  LoadedPlugin::instance();
  TarqDmrPluginManager::GetInstance()->GetParams()->SetCurrentRegion(region);
}

std::vector<std::string> entriesIn(int region) {
  setRegion(region);
  std::istringstream text(TarqDmrMediaProfile_GetProtocolInfo());
  std::vector<std::string> entries;
  for (std::string entry; std::getline(text, entry, ',');) entries.push_back(entry);
  return entries;
}

TEST(MediaProfileTable, ShowsWhatTheRegionAllows) {
  const std::pair<int, int> cases[] = {{0, 4},    {1, 107},  {2, 127},  {16, 112},
                                       {18, 127}, {-1, 127}, {0x100, 4}};
  for (const auto& [region, expected] : cases) {
    setRegion(region);
    TarqDmrMediaProfileTableIterator rows;
    int count = 0;
    for (; const TarqDmrMediaProfile* row = rows.Next(); ++count)
      EXPECT_THAT(row->profile, Not(HasSubstr("divx")));
    EXPECT_EQ(count, expected) << "region " << region;
    EXPECT_EQ(rows.Next(), nullptr);
  }
}

TEST(SinkProtocolInfo, IsOneWellFormedListInEveryRegion) {
  for (const int region : {0, 1, 2, 16}) {
    const std::vector<std::string> entries = entriesIn(region);
    for (const std::string& entry : entries) {
      EXPECT_EQ(std::count(entry.begin(), entry.end(), ':'), 3) << entry;
      EXPECT_THAT(entry, testing::StartsWith("http-get:*:"));
    }
    // DLNA entries first, all others behind them.
    EXPECT_TRUE(
        std::ranges::is_partitioned(entries, [](auto& e) { return e.find(":DLNA.ORG_PN=") != e.npos; }));
  }
  EXPECT_THAT(entriesIn(0), ElementsAre("http-get:*:video/x-msvideo:*", "http-get:*:video/avi:*",
                                        "http-get:*:video/x-avi:*", "http-get:*:video/x-xvid:*"));
}

TEST(SinkProtocolInfo, WordsTheEntriesExactly) {
  const std::string flags = ";DLNA.ORG_FLAGS=8d700000000000000000000000000000";
  const std::string dtcp =
      "http-get:*:application/x-dtcp1;CONTENTFORMAT=\"video/vnd.dlna.mpeg-tts\":DLNA.ORG_PN=";
  const std::string dtcpFlags = ";DLNA.ORG_FLAGS=8d710000000000000000000000000000";
  const std::vector<std::string> entries = entriesIn(2);
  const std::string expected[] = {
      "http-get:*:image/jpeg:DLNA.ORG_PN=JPEG_LRG;DLNA.ORG_FLAGS=8cf00000000000000000000000000000",
      dtcp + "DTCP_AVC_TS_HD_60_AC3_T;ORSA.COM_PN=DTCP_AVC_TS_HD_60_AC3_T" + dtcpFlags,
      dtcp + "DTCP_MPEG_TS_JP_T;ARIB.OR.JP_PN=MPEG_TTS_CP" + dtcpFlags,  // two rows further on
      "http-get:*:video/mpeg:DLNA.ORG_PN=MPEG_TS_HD_60_L2_ISO;ORSA.COM_PN=HD2_60_ISO" + flags,
      "http-get:*:video/x-ms-asf:DLNA.ORG_PN=VC1_ASF_AP_L1_WMA" + flags,
      "http-get:*:video/x-ms-wmv:DLNA.ORG_PN=WMVMED_BASE" + flags,
      "http-get:*:video/x-mp2t-mphl-188:*",
  };
  for (const std::string& entry : expected) EXPECT_THAT(entries, Contains(entry));
  EXPECT_EQ(entries.back(), "http-get:*:image/x-orsa-kzr:*");
  EXPECT_THAT(entries, Not(Contains(HasSubstr(":ORSA.COM_PN"))));  // only ever the second name of an entry

  const std::vector<std::string> unprotected = entriesIn(1);
  EXPECT_THAT(unprotected, Not(Contains(HasSubstr("dtcp"))));
  EXPECT_THAT(unprotected, Not(Contains(HasSubstr("ARIB"))));
  EXPECT_THAT(entriesIn(16), Contains("http-get:*:application/octet-stream:*"));
}

}  // namespace
