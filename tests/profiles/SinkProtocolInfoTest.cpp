#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>

#include "LoadedPlugin.h"
#include "SinkProtocolInfo.h"
#include "TarqDmrMediaProfile.h"
#include "TestRows.h"

namespace {

struct RegionCase {
  const char* name;
  int region;
  std::ptrdiff_t entries;
  const char* file = nullptr;  // with the entries, one a line; null: their number is enough
};
const RegionCase kRegions[] = {
    {"NoBit", 0, 4},
    {"Usual", 1, 94},
    {"LinkProtected", 2, 105, "sink-region-2.txt"},
    {"RealMedia", 16, 99, "sink-region-16.txt"},
    {"RealMediaInTheWholeRegionOnly", 18, 105},
    {"EveryBit", -1, 105},
    {"HighestBitOfTheMasks", 0x80, 94},
    {"BitBeyondTheMasks", 0x100, 4},
};

TEST_ROWS(SinkProtocolInfo, ListsWhatTheRegionPlays, kRegions) {
  LoadedPlugin::instance();
  TarqDmrPluginManager::GetInstance()->GetParams()->SetCurrentRegion(row.region);
  TarqDmrMediaProfile_GetProtocolInfo();  // the next one starts anew
  std::string list = TarqDmrMediaProfile_GetProtocolInfo();
  EXPECT_EQ(std::ranges::count(list, ',') + 1, row.entries);
  if (row.file == nullptr) return;
  std::ifstream file(TARQ_TEST_DATA "/" + std::string(row.file));
  std::ranges::replace(list, ',', '\n');
  EXPECT_EQ(list + "\n", std::string(std::istreambuf_iterator<char>(file), {}));
}

TEST(MediaProfileTable, StaysAtItsEnd) {
  TarqDmrMediaProfileTableIterator rows;
  while (rows.Next() != nullptr) continue;
  EXPECT_EQ(rows.Next(), nullptr);
}

}  // namespace
