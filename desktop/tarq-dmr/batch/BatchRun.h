#ifndef TARQ_DMR_BATCH_RUN_H_
#define TARQ_DMR_BATCH_RUN_H_

#include "BatchAnswer.h"
#include "BatchListener.h"
#include "ResourceOptions.h"
#include "TarqDmrParamsInterface.h"

// Answers every line of the file `options.batchFile` with one line on standard output, in the same order and before
// it waits for more input. A line that is not valid gets the code -1 and a message. With `options.summary` there are
// counts at the end instead. Memory does not grow with the input. After SIGINT or SIGTERM it ends with a whole line
// or the counts so far, and then the process, by that signal.
// `listener` takes the answers, too. Null: nobody listens.
// Fewer jobs run where the system allows too few descriptors, and a line on standard error says so.
// Errors: CommandError when the input cannot be read or the output not written, and when there are not even the
//   descriptors for one job; when a request failed for lack of them or of memory, before the result of its line.
void runBatch(TarqDmrParamsInterface& params, const ResourceOptions& options, const BatchAnswer& answer,
              BatchListener* listener = nullptr);

#endif  // TARQ_DMR_BATCH_RUN_H_
