// A host of your own: loads the renderer plug-in, and asks it what the renderer can play
// and what plays of one item.
//   my-host URI METADATA_FILE
#include <TarqDmrPluginManager.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

namespace {

int check(TarqDmrParamsInterface& params, const char* uri, const std::string& metadata) {
  const std::unique_ptr<TarqResourceCheckerInterface> checker(params.CreateResourceChecker());
  if (!checker) return 2;
  const int code = checker->CheckResource(uri, metadata.c_str());
  std::printf("check    %d\n", code);
  if (code != kAccepted) return 1;
  const char* const mimeType = checker->GetResource()->mimeType;
  std::printf("plays    %s\n", mimeType == nullptr ? "-" : mimeType);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: my-host URI METADATA_FILE\n");
    return 2;
  }
  std::ifstream file(argv[2]);
  const std::string metadata(std::istreambuf_iterator<char>(file), {});
  TarqDmrPluginManager& host = *TarqDmrPluginManager::GetInstance();
  if (host.Load(PLUGIN, ".") != 0) {
    std::fprintf(stderr, "my-host: %s\n", host.GetLoadError());
    return 2;
  }
  host.GetParams()->SetCurrentRegion(1);
  std::printf("sink     %.70s...\n", host.GetParams()->GetSinkProtocolInfo());
  return check(*host.GetParams(), argv[1], metadata);
}
