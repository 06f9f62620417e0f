#include <cstdio>

#include "Commands.h"
#include "HostSession.h"
#include "InputFile.h"
#include "JsonText.h"
#include "ResultText.h"
#include "TextOutput.h"

namespace {

void printResultLine(int code, const TarqResourceInfo& resource) {
  JsonText json;
  if (code == 0) {
    writeAccepted(json, resource);
  } else {
    writeRefused(json, code, describe(code));
  }
  std::puts(json.text().c_str());
}

// For a shell: nothing in it means anything but itself.
std::string shellWord(const std::string& text) {
  std::string word = "'";
  for (const char c : text) word += c == '\'' ? "'\\''" : std::string(1, c);
  return printable(word + "'");
}

std::string explainCommand(const CheckOptions& options) {
  std::string command = "tarq-dmr explain " + shellWord(options.uri);
  if (options.metadataFile) command += " --metadata " + shellWord(*options.metadataFile);
  if (options.region != 0) command += " --region " + std::to_string(options.region);
  return command;
}

void printResult(int code, const TarqResourceInfo& resource, const CheckOptions& options) {
  if (code == 0) {
    std::puts(describe(code));
    printResource(resource);
  } else {
    std::printf("refused (%d): %s\nwhy: %s\n", code, describe(code), explainCommand(options).c_str());
  }
}

}  // namespace

int runCheck(const CheckOptions& options) {
  std::optional<std::string> metadata;
  if (options.metadataFile) metadata = readMetadata(*options.metadataFile);
  TarqDmrParamsInterface& params = *openHost(options.host).GetParams();
  params.SetCurrentRegion(options.region);

  const auto checker = newChecker(params);
  const int code = checker->CheckResource(options.uri.c_str(), metadata ? metadata->c_str() : nullptr);
  if (options.json) {
    printResultLine(code, *checker->GetResource());
  } else {
    printResult(code, *checker->GetResource(), options);
  }
  return code == 0 ? kExitOk : kExitRefused;
}
