#ifndef TARQ_DMR_DEMO_COMMAND_H_
#define TARQ_DMR_DEMO_COMMAND_H_

#include "HostSession.h"

struct DemoOptions {
  HostOptions host;
};
int runDemo(const DemoOptions& options);

#endif  // TARQ_DMR_DEMO_COMMAND_H_
