#include "CheckCommand.h"

#include <cstdio>

#include "BatchRun.h"
#include "CommandError.h"
#include "InputFile.h"
#include "ResultJson.h"
#include "ResultText.h"
#include "TextOutput.h"

namespace {

// Quoted for a shell: nothing in the word means anything but itself.
std::string shellWord(const std::string& word) {
  std::string quoted = "'";
  for (const char c : word) quoted += c == '\'' ? "'\\''" : std::string(1, c);
  return printable(quoted + "'");
}

std::string explainCommand(const CheckOptions& options) {
  std::string command = "tarq-dmr explain " + shellWord(options.uri);
  if (options.metadataFile) command += " --metadata " + shellWord(*options.metadataFile);
  if (options.region != 0) command += " --region " + std::to_string(options.region);
  return command;
}

void printResult(int code, const TarqResourceInfo& resource, const CheckOptions& options) {
  if (options.json) {
    JsonWriter json;
    writeResult(json, code, resource);
    std::puts(json.str().c_str());
  } else if (code == kAccepted) {
    std::puts(describe(code));
    printResource(resource);
  } else {
    std::printf("refused (%d): %s\nwhy: %s\n", code, describe(code), explainCommand(options).c_str());
  }
}

int checkOne(TarqDmrParamsInterface& params, const CheckOptions& options, const char* metadata) {
  params.SetCurrentRegion(options.region);
  const auto checker = newChecker(params);
  const int code = checker->CheckResource(options.uri.c_str(), metadata);
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
