#ifndef TARQ_DMR_BATCH_ANSWER_H_
#define TARQ_DMR_BATCH_ANSWER_H_

#include <functional>
#include <optional>
#include <string>

#include "BatchLine.h"
#include "JsonWriter.h"

constexpr int kInvalidLine = -1;  // in the place of a result code

// What a summary counts, and what else a listener takes.
struct BatchOutcome {
  std::optional<int> code = {};  // none: it depends on a server that was not asked
  std::optional<std::string> format =
      {};                 // of what is played, or would be if the server agreed; none: not known
  std::string item = {};  // of a page; empty: nobody listens
};

// Writes the one JSON object that answers a line, while the plug-in's region is that of the line.
// Threads: called on several at once when there are several jobs.
// Errors: std::bad_alloc.
using BatchAnswer = std::function<BatchOutcome(JsonWriter& json, const BatchRequest& request)>;

// A result line, without its newline.
struct BatchResult {
  std::string line;
  BatchOutcome outcome;
};

// The answer to a request, or what is wrong with it; the members that are passed on come last.
// Errors: std::bad_alloc.
BatchResult answerBatchLine(const BatchRequest& request, const BatchAnswer& answer);

#endif  // TARQ_DMR_BATCH_ANSWER_H_
