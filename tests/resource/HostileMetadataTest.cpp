// Metadata that is made to exhaust the renderer: whoever is on the network may send it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/resource.h>

#include <ctime>
#include <string>

#include "Checker.h"
#include "Didl.h"
#include "TestRows.h"

namespace {

constexpr size_t kMetadataBytes = size_t{4} << 20;  // the most that is read at all
constexpr long kMostKiB = 16 * (kMetadataBytes >> 10);
constexpr std::clock_t kMostTime = 1 * CLOCKS_PER_SEC;  // of the processor: a busy machine does not count

struct HostileCase {
  const char* name;
  std::string (*properties)();
  const char* outcome;  // how it begins
};

long peakKiB() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

const std::string kRes = "<res protocolInfo='::audio/L16:";
const HostileCase kHostile[] = {
    {"NestedElements",
     [] { return kRes + "'>" + repeated("<nest>", 8'000) + repeated("</nest>", 8'000) + "u</res>"; },
     "0 0 audio/L16 []  LPCM"},
    {"ManyRes", [] { return repeated(kRes + "'>u</res>", 8'000); }, "0 0 audio/L16 []  LPCM"},
    {"DenseRes", [] { return kRes + "'>u</res>" + repeated("<res/>", 16'000); }, "0 0 audio/L16 []  LPCM"},
    {"TextPieces", [] { return kRes + "'>u" + repeated("u<a/>", 16'000) + "</res>"; },
     "0 0 audio/L16 []  LPCM"},
    {"Attributes", [] { return kRes + "'" + repeated(" a=''", 65'000) + ">u</res>"; },
     "0 0 audio/L16 []  LPCM"},
    {"TooManyTags", [] { return repeated("<res/>", 699'000); }, "55106"},
    {"LongAttribute", [] { return kRes + std::string(3 << 20, 'x') + "'>u</res>"; }, "0 0 audio/L16 [xxx"},
    {"LongList", [] { return kRes + repeated("x;", 3 << 19) + "'>u</res>"; }, "0 0 audio/L16 [x;x;x;"},
};

// ctest runs each in a process of its own: memory that an earlier one has freed would hide what it takes.
TEST_ROWS(HostileMetadata, IsCheckedSoonAndInLittleMemory, kHostile) {
  std::string metadata = "<DIDL-Lite><item>" + row.properties() + "</item></DIDL-Lite>";
  ASSERT_LE(metadata.size(), kMetadataBytes) << "would not be read";
  metadata.resize(kMetadataBytes, ' ');
  const auto checker = newChecker();
  malloc_trim(0);
  const long kiBBefore = peakKiB();
  const std::clock_t start = std::clock();
  const int code = checker->CheckResource("http://h.example/", metadata.c_str());
  const std::clock_t time = std::clock() - start;
  const long kiB = peakKiB() - kiBBefore;

  EXPECT_THAT(outcomeOf(*checker, code), testing::StartsWith(row.outcome));
  EXPECT_TRUE(kiB <= kMostKiB || !TARQ_COSTS_COUNT) << kiB << " KiB";
  EXPECT_TRUE(time <= kMostTime || !TARQ_COSTS_COUNT) << time / (CLOCKS_PER_SEC / 1000) << " ms";
}

}  // namespace
