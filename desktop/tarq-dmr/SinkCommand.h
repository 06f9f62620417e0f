#ifndef TARQ_DMR_SINK_COMMAND_H_
#define TARQ_DMR_SINK_COMMAND_H_

#include "HostSession.h"

struct SinkOptions {
  HostOptions host;
  int32_t region = 0;
  bool raw = false;
};
int runSink(const SinkOptions& options);

#endif  // TARQ_DMR_SINK_COMMAND_H_
