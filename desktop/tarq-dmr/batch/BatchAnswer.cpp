#include "BatchAnswer.h"

#include "ResultJson.h"

BatchResult answerBatchLine(const BatchRequest& request, const BatchAnswer& answer) {
  JsonWriter json;
  BatchResult result;
  if (request.problem == nullptr) {
    result.outcome = answer(json, request);
  } else {
    writeRefused(json, kInvalidLine, request.problem);
    result.outcome.code = kInvalidLine;
  }
  result.line = json.take();
  result.line.insert(result.line.size() - 1, request.passed);  // before the closing brace
  return result;
}
