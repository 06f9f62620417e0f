#include "JobLimit.h"

#include <sys/resource.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>

#include "CommandError.h"

namespace {

// Of a request at most: two for waiting and, until the server's name is resolved, four for the lookup.
constexpr rlim_t kDescriptorsPerJob = 6;

rlim_t openDescriptors() {
  rlim_t count = 0;
  std::error_code error;
  for (std::filesystem::directory_iterator fds("/proc/self/fd", error), end; fds != end; fds.increment(error))
    ++count;
  return count;
}

}  // namespace

int jobsThatFit(int jobs) {
  rlimit limit{};
  if (::getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY) return jobs;
  const std::string reason =
      "no more than " + std::to_string(limit.rlim_cur) + " files may be open (ulimit -n)";
  const rlim_t open = std::min(openDescriptors(), limit.rlim_cur);
  const rlim_t fitting = (limit.rlim_cur - open) / kDescriptorsPerJob;
  if (fitting == 0) throw CommandError("cannot run even one job: " + reason);
  if (fitting >= static_cast<rlim_t>(jobs)) return jobs;
  std::fprintf(stderr, "tarq-dmr: jobs lowered from %d to %d: %s\n", jobs, static_cast<int>(fitting),
               reason.c_str());
  return static_cast<int>(fitting);
}
