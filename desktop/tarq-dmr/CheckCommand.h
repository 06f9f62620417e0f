#ifndef TARQ_DMR_CHECK_COMMAND_H_
#define TARQ_DMR_CHECK_COMMAND_H_

#include <optional>

#include "HostSession.h"

struct CheckOptions {
  HostOptions host;
  std::string uri;
  std::optional<std::string> metadataFile;  // "-": standard input
  std::optional<std::string> batchFile;     // "-": standard input; instead of the two above
  int32_t region = 0;                       // in a batch, of lines without one
  int jobs = 1;                             // of a batch
  bool json = false;
};
int runCheck(const CheckOptions& options);

#endif  // TARQ_DMR_CHECK_COMMAND_H_
