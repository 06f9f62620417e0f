#ifndef TARQ_DMR_EXPLAIN_COMMAND_LINE_H_
#define TARQ_DMR_EXPLAIN_COMMAND_LINE_H_

#include <string>

#include "ResourceOptions.h"

// Returns: a command line that shows, from any folder, why a check refused the resource with that code. It can be
// pasted into a shell as it is, and tricks no terminal. It asks the server when its answer decided.
std::string explainCommandLine(const ResourceOptions& options, int code);

#endif  // TARQ_DMR_EXPLAIN_COMMAND_LINE_H_
