#ifndef TARQ_DMR_EXPLAIN_COMMAND_H_
#define TARQ_DMR_EXPLAIN_COMMAND_H_

#include <optional>

#include "HostSession.h"

struct ExplainOptions {
  HostOptions host;
  std::string uri;
  std::optional<std::string> metadataFile;  // "-": standard input
  std::optional<std::string> batchFile;     // "-": standard input; instead of the two above
  int32_t region = 0;                       // in a batch, of lines without one
  bool json = false;
  bool probe = false;  // the server may be asked
};
int runExplain(const ExplainOptions& options);

#endif  // TARQ_DMR_EXPLAIN_COMMAND_H_
