#ifndef TARQ_DMR_BATCH_RUN_H_
#define TARQ_DMR_BATCH_RUN_H_

#include <functional>
#include <string>

#include "BatchLine.h"
#include "JsonWriter.h"
#include "TarqDmrParamsInterface.h"

struct BatchOptions {
  std::string file;    // "-": standard input
  int32_t region = 0;  // of lines without a region
  int jobs = 1;        // lines answered at once
};

// Writes the one JSON object that answers a line, while the plug-in's region is that of the line.
// Threads: called on several at once when there are several jobs.
// Errors: std::bad_alloc.
using BatchAnswer = std::function<void(JsonWriter& json, const BatchRequest& request)>;

// Answers every line of the input with one line on standard output, in the same order and before it waits for
// more input. A line that is not valid gets the code -1 and a message. Memory does not grow with the input.
// Fewer jobs run where the system allows too few descriptors, and a line on standard error says so.
// Errors: CommandError when the input cannot be read or the output not written, and when there are not even the
//   descriptors for one job; when a request failed for lack of them or of memory, before the result of its line.
void runBatch(TarqDmrParamsInterface& params, const BatchOptions& options, const BatchAnswer& answer);

#endif  // TARQ_DMR_BATCH_RUN_H_
