#ifndef TARQ_DMR_INFO_COMMAND_H_
#define TARQ_DMR_INFO_COMMAND_H_

#include <string>

#include "HostSession.h"

struct InfoOptions {
  HostOptions host;
  bool json = false;
};
int runInfo(const InfoOptions& options);

// Returns: the version of the program, the commit that it was built of, and what the installed plug-in says
// of itself.
std::string versionText();

#endif  // TARQ_DMR_INFO_COMMAND_H_
