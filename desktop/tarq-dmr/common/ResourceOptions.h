#ifndef TARQ_DMR_RESOURCE_OPTIONS_H_
#define TARQ_DMR_RESOURCE_OPTIONS_H_

#include <optional>

#include "HostSession.h"

// What a command looks at: one resource, or all those of a batch.
struct ResourceOptions {
  HostOptions host;
  std::string uri;
  std::optional<std::string> metadataFile;  // "-": standard input
  std::optional<std::string> batchFile;     // "-": standard input; instead of the two above
  int32_t region = 0;                       // in a batch, of lines without one
  int jobs = 1;                             // of a batch
  bool summary = false;                     // of a batch: counts instead of results
  bool json = false;
};

#endif  // TARQ_DMR_RESOURCE_OPTIONS_H_
