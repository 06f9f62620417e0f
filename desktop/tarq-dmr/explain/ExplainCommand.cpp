#include "ExplainCommand.h"

#include <cstdio>

#include "BatchRun.h"
#include "CommandError.h"
#include "ExplainReport.h"
#include "InputFile.h"
#include "JsonWriter.h"

namespace {

int explainOne(TarqDmrParamsInterface& params, const ExplainOptions& options) {
  std::optional<HtmlReport> report;
  if (options.htmlFile) report.emplace(*options.htmlFile);
  std::optional<std::string> didl;
  if (options.metadataFile) didl = readMetadata(*options.metadataFile);
  const char* metadata = didl ? didl->c_str() : nullptr;
  const Explanation explanation =
      explain(params, options.uri.c_str(), metadata, options.region, options.probe);
  requireNoShortage();
  if (options.json) {
    JsonWriter json(stdout);
    writeExplanation(json, explanation);
    json.endLine();
  } else {
    std::fputs(explanationText(explanation).c_str(), stdout);
  }
  if (report) writeReport(*report, explanation);
  return explanation.verdict.code.value_or(kAccepted) == kAccepted ? kExitOk : kExitRefused;
}

int explainBatch(TarqDmrParamsInterface& params, const ExplainOptions& options) {
  std::optional<ExplainReport> report;
  if (options.htmlFile) report.emplace(*options.htmlFile, *options.batchFile);
  const auto answer = [&](JsonWriter& json, const BatchRequest& request) {
    const Explanation explanation =
        explain(params, request.uri, request.metadata, request.region, options.probe);
    writeExplanation(json, explanation);
    BatchOutcome outcome{.code = explanation.verdict.code};
    if (const char* format = explanation.playedFormat()) outcome.format = format;
    if (report) outcome.item = itemJson(explanation);
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
