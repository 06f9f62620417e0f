// Metadata that is made to exhaust the renderer: whoever is on the network may send it.
#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <ctime>
#include <string>

#include "Checker.h"
#include "DidlText.h"
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

// Empty: all is as it should be.
std::string complaintOf(const HostileCase& hostile) {
  std::string metadata = "<DIDL-Lite><item>" + hostile.properties() + "</item></DIDL-Lite>";
  if (metadata.size() > kMetadataBytes) return "would not be read";
  metadata.resize(kMetadataBytes, ' ');
  const auto checker = newChecker();
  malloc_trim(0);
  const long kiBBefore = peakKiB();
  const std::clock_t start = std::clock();
  const int code = checker->CheckResource("http://h.example/", metadata.c_str());
  const std::clock_t time = std::clock() - start;
  const long kiB = peakKiB() - kiBBefore;

  const std::string outcome = outcomeOf(*checker, code);
  if (!outcome.starts_with(hostile.outcome)) return "came out as " + outcome.substr(0, 80);
  if (std::string("u") != checker->GetResource()->uri) return "has another URI";
  if (TARQ_COSTS_COUNT && kiB > kMostKiB) return "took " + std::to_string(kiB) + " KiB";
  if (TARQ_COSTS_COUNT && time > kMostTime)
    return "took " + std::to_string(time / (CLOCKS_PER_SEC / 1000)) + " ms";
  std::fprintf(stderr, "%s: %ld KiB, %ld ms\n", hostile.name, kiB, time / (CLOCKS_PER_SEC / 1000));
  return "";
}

// clang-format off
const HostileCase kHostile[] = {
    {"NestedElements",
     [] { return "<res protocolInfo='::audio/L16:'>" + repeated("<nest>", 200'000) + repeated("</nest>", 200'000) + "u</res>"; },
     "0 0 audio/L16 []  LPCM"},
    {"ManyRes", [] { return repeated("<res protocolInfo='::audio/L16:'>u</res>", 100'000); }, "0 0 audio/L16 []  LPCM"},
    {"LongAttribute", [] { return "<res protocolInfo='::audio/L16:" + std::string(3 << 20, 'x') + "'>u</res>"; },
     "0 0 audio/L16 [xxx"},
    {"LongList", [] { return "<res protocolInfo='::audio/L16:" + repeated("x;", 3 << 19) + "'>u</res>"; },
     "0 0 audio/L16 [x;x;x;"},
};
// clang-format on

// Each in a process of its own: memory that an earlier one has freed would hide what it takes.
TEST_ROWS(HostileMetadata, IsAnsweredSoonAndInLittleMemory, kHostile) {
  const pid_t child = fork();
  if (child == 0) {
    const std::string complaint = complaintOf(row);
    std::fputs(complaint.c_str(), stderr);
    _exit(complaint.empty() ? 0 : 1);
  }
  int status = -1;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
}

}  // namespace
