#include "CheckCommand.h"

#include <cstdio>

#include "BatchRun.h"
#include "CommandError.h"
#include "ExplainCommandLine.h"
#include "InputFile.h"
#include "ResultJson.h"
#include "ResultText.h"
#include "TextOutput.h"

namespace {

void printResult(int code, const TarqResourceInfo& resource, const CheckOptions& options) {
  if (options.json) {
    JsonWriter json(stdout);
    writeResult(json, code, resource);
    json.endLine();
  } else if (code == kAccepted) {
    std::puts(describe(code));
    printResource(resource);
  } else {
    std::printf("refused (%d): %s\nwhy: %s\n", code, describe(code),
                explainCommandLine(options, code).c_str());
  }
}

int checkOne(TarqDmrParamsInterface& params, const CheckOptions& options, const char* metadata) {
  params.SetCurrentRegion(options.region);
  const auto checker = newChecker(params);
  const int code = checker->CheckResource(options.uri.c_str(), metadata);
  requireNoShortage();
  printResult(code, *checker->GetResource(), options);
  return code == kAccepted ? kExitOk : kExitRefused;
}

int checkBatch(TarqDmrParamsInterface& params, const CheckOptions& options) {
  const auto check = [&params](JsonWriter& json, const BatchRequest& request) {
    const auto checker = newChecker(params);
    const int code = checker->CheckResource(request.uri, request.metadata);
    const TarqResourceInfo& resource = *checker->GetResource();
    writeResult(json, code, resource);
    BatchOutcome outcome{.code = code};
    const char* format = code == kAccepted ? formatOf(resource) : nullptr;
    if (format != nullptr) outcome.format = format;
    return outcome;
  };
  runBatch(params, options, check);
  return kExitOk;
}

}  // namespace

int runCheck(const CheckOptions& options) {
  std::optional<std::string> metadata;
  if (options.metadataFile) metadata = readMetadata(*options.metadataFile);
  TarqDmrParamsInterface& params = *openHost(options.host).GetParams();
  if (options.batchFile) return checkBatch(params, options);
  return checkOne(params, options, metadata ? metadata->c_str() : nullptr);
}
