#include "ExplainCommand.h"

#include <cstdio>

#include "BatchRun.h"
#include "CommandError.h"
#include "Explanation.h"
#include "InputFile.h"
#include "JsonWriter.h"
#include "ResultJson.h"

namespace {

Asking askingOf(const ExplainOptions& options) {
  return options.probe ? Asking::kWhenUnclear : Asking::kNever;
}

int explainOne(TarqDmrParamsInterface& params, const ExplainOptions& options) {
  std::optional<std::string> didl;
  if (options.metadataFile) didl = readMetadata(*options.metadataFile);
  const char* metadata = didl ? didl->c_str() : nullptr;
  const Explanation explanation =
      explain(params, options.uri.c_str(), metadata, options.region, askingOf(options));
  requireNoShortage();
  if (options.json) {
    JsonWriter json(stdout);
    writeExplanation(json, explanation);
    json.endLine();
  } else {
    std::fputs(explanationText(explanation).c_str(), stdout);
  }
  return explanation.verdict.code.value_or(kAccepted) == kAccepted ? kExitOk : kExitRefused;
}

int explainBatch(TarqDmrParamsInterface& params, const ExplainOptions& options) {
  const auto answer = [&](JsonWriter& json, const BatchRequest& request) {
    const Explanation explanation =
        explain(params, request.uri, request.metadata, request.region, askingOf(options));
    writeExplanation(json, explanation);
    const TarqResourceInfo* resource = explanation.verdict.resource();
    BatchOutcome outcome{.code = explanation.verdict.code};
    const char* format = resource == nullptr ? explanation.format() : formatOf(*resource);
    if (format != nullptr) outcome.format = format;
    return outcome;
  };
  runBatch(params, options, answer);
  return kExitOk;
}

}  // namespace

int runExplain(const ExplainOptions& options) {
  TarqDmrParamsInterface& params = *openHost(options.host).GetParams();
  return options.batchFile ? explainBatch(params, options) : explainOne(params, options);
}
