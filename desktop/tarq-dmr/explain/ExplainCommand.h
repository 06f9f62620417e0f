#ifndef TARQ_DMR_EXPLAIN_COMMAND_H_
#define TARQ_DMR_EXPLAIN_COMMAND_H_

#include "ResourceOptions.h"

struct ExplainOptions : ResourceOptions {
  bool probe = false;                   // the server may be asked
  std::optional<std::string> htmlFile;  // a page is written there as well
};
int runExplain(const ExplainOptions& options);

#endif  // TARQ_DMR_EXPLAIN_COMMAND_H_
