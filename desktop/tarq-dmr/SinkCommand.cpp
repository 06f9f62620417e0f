#include "SinkCommand.h"

#include <cstdio>
#include <string_view>

#include "CommaList.h"
#include "CommandError.h"
#include "HostSession.h"
#include "TextOutput.h"

int runSink(const SinkOptions& options) {
  TarqDmrParamsInterface& params = *openHost(options.host).GetParams();
  params.SetCurrentRegion(options.region);
  const char* sink = params.GetSinkProtocolInfo();
  if (options.raw) {
    std::puts(sink);
    return kExitOk;
  }
  const auto entries = splitCommas(sink);
  for (const std::string_view entry : entries) {
    std::puts(printable(entry).c_str());
  }
  std::printf("%zu entries\n", entries.size());
  return kExitOk;
}
