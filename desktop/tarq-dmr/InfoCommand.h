#ifndef TARQ_DMR_INFO_COMMAND_H_
#define TARQ_DMR_INFO_COMMAND_H_

#include "HostSession.h"

struct InfoOptions {
  HostOptions host;
  bool json = false;
};
int runInfo(const InfoOptions& options);

#endif  // TARQ_DMR_INFO_COMMAND_H_
