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

void printResult(int code, const TarqResourceInfo& resource) {
  if (code == 0) {
    std::puts(describe(code));
    printResource(resource);
  } else {
    std::printf("refused (%d): %s\n", code, describe(code));
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
  (options.json ? printResultLine : printResult)(code, *checker->GetResource());
  return code == 0 ? kExitOk : kExitRefused;
}
