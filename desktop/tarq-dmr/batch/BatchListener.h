#ifndef TARQ_DMR_BATCH_LISTENER_H_
#define TARQ_DMR_BATCH_LISTENER_H_

#include "BatchSummary.h"

// Who else takes the answers of a batch, in their order.
// Threads: one at a time.
// Errors: CommandError.
class BatchListener {
 public:
  virtual ~BatchListener() = default;
  virtual void add(const BatchOutcome& outcome) = 0;
  // Once, also when a signal ends the batch before its input ends.
  virtual void end(const BatchSummary& summary) = 0;
};

#endif  // TARQ_DMR_BATCH_LISTENER_H_
