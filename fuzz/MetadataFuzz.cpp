// What people paste as metadata: unwrapped from what a trace puts around it, and diagnosed when it is no DIDL-Lite.
// Input: the metadata.
#include <string>

#include "FuzzInput.h"
#include "Metadata.h"
#include "UpnpCdsResult.h"

namespace {

bool parses(const std::string& didl) { return UpnpCdsResult(didl.c_str()).GetStatus() == 0; }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string pasted(CString({reinterpret_cast<const char*>(data), size}).view());
  const UnwrappedMetadata inner = unwrapMetadata(pasted);
  require(inner.from != nullptr || inner.didl == pasted, "what is not wrapped stays as it is");
  require(!parses(pasted) || inner.from == nullptr, "DIDL-Lite is not taken for something around it");
  if (parses(inner.didl)) return 0;
  const MetadataProblem problem = diagnoseMetadata(inner.didl);
  require(problem.key != nullptr && *problem.key != '\0' && !problem.words.empty(), "a problem has words");
  return 0;
}
