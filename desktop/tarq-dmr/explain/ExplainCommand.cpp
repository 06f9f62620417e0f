#include <cstdio>

#include "BatchInput.h"
#include "BatchLine.h"
#include "BatchOutput.h"
#include "Commands.h"
#include "Explanation.h"
#include "HostSession.h"
#include "JsonText.h"

namespace {

int explainOne(TarqDmrParamsInterface& params, const ExplainOptions& options) {
  std::optional<std::string> text;
  if (options.metadataFile) text = readMetadata(*options.metadataFile);
  const char* metadata = text ? text->c_str() : nullptr;
  const Explanation explanation =
      explain(params, options.uri.c_str(), metadata, options.region, options.probe);
  if (options.json) {
    JsonText json;
    writeExplanation(json, explanation);
    std::puts(json.text().c_str());
  } else {
    std::fputs(explanationText(explanation).c_str(), stdout);
  }
  return explanation.verdict.code.value_or(kAccepted) == kAccepted ? kExitOk : kExitRefused;
}

int explainBatch(TarqDmrParamsInterface& params, const ExplainOptions& options) {
  BatchInput input(*options.batchFile);
  BatchOutput output;
  JsonText json;
  while (input.fill()) {
    while (const auto line = input.nextLine()) {
      const BatchRequest request = parseBatchLine(*line, options.region);
      json.clear();
      if (request.problem != nullptr) {
        writeRefused(json, kInvalidLine, request.problem);
      } else {
        writeExplanation(json, explain(params, request.uri, request.metadata, request.region, options.probe));
      }
      output.addLine(json.text());
    }
    output.flush();
  }
  return kExitOk;
}

}  // namespace

int runExplain(const ExplainOptions& options) {
  TarqDmrParamsInterface& params = *openHost(options.host).GetParams();
  return options.batchFile ? explainBatch(params, options) : explainOne(params, options);
}
