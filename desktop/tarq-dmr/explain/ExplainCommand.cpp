#include "ExplainCommand.h"

#include <cstdio>

#include "BatchRun.h"
#include "CommandError.h"
#include "ExplainReport.h"
#include "Explanation.h"
#include "InputFile.h"
#include "JsonWriter.h"
#include "ResultJson.h"

namespace {

Asking askingOf(const ExplainOptions& options) {
  return options.probe ? Asking::kWhenUnclear : Asking::kNever;
}

int explainOne(TarqDmrParamsInterface& params, const ExplainOptions& options) {
  std::optional<HtmlReport> report;
  if (options.htmlFile) report.emplace(*options.htmlFile);
  std::optional<std::string> didl;
  if (options.metadataFile) didl = readMetadata(*options.metadataFile);
  const char* metadata = didl ? didl->c_str() : nullptr;
  const auto made = std::make_shared<const Explanation>(
      explain(params, options.uri.c_str(), metadata, options.region, askingOf(options)));
  const Explanation& explanation = *made;
  requireNoShortage();
  if (options.json) {
    JsonWriter json(stdout);
    writeExplanation(json, explanation);
    json.endLine();
  } else {
    std::fputs(explanationText(explanation).c_str(), stdout);
  }
  if (report) writeReport(*report, factsOf(made));
  return explanation.verdict.code.value_or(kAccepted) == kAccepted ? kExitOk : kExitRefused;
}

int explainBatch(TarqDmrParamsInterface& params, const ExplainOptions& options) {
  std::optional<ExplainReport> report;
  if (options.htmlFile) report.emplace(*options.htmlFile, *options.batchFile);
  const auto answer = [&](JsonWriter& json, const BatchRequest& request) {
    const auto made = std::make_shared<const Explanation>(
        explain(params, request.uri, request.metadata, request.region, askingOf(options)));
    const Explanation& explanation = *made;
    writeExplanation(json, explanation);
    const TarqResourceInfo* resource = explanation.verdict.resource();
    BatchOutcome outcome{.code = explanation.verdict.code};
    const char* format = resource == nullptr ? explanation.format() : formatOf(*resource);
    if (format != nullptr) outcome.format = format;
    if (report) outcome.item = itemJson(factsOf(made));
    return outcome;
  };
  runBatch(params, options, answer, report ? &*report : nullptr);
  return kExitOk;
}

}  // namespace

int runExplain(const ExplainOptions& options) {
  TarqDmrParamsInterface& params = *openHost(options.host).GetParams();
  return options.batchFile ? explainBatch(params, options) : explainOne(params, options);
}
