#ifndef TARQ_DMR_METADATA_H_
#define TARQ_DMR_METADATA_H_

#include <string>
#include <string_view>

// What people paste where DIDL-Lite is wanted.

// DIDL-Lite as a trace shows it: inside a SOAP envelope, or escaped once more ("&lt;DIDL-Lite").
struct UnwrappedMetadata {
  std::string didl;            // what was inside; otherwise the metadata as it came
  const char* from = nullptr;  // what it was taken from; null: it was not wrapped
};
UnwrappedMetadata unwrapMetadata(std::string metadata);

// Why metadata that is not null does not parse as DIDL-Lite.
struct MetadataProblem {
  const char* key;
  std::string words;
};
MetadataProblem diagnoseMetadata(std::string_view metadata);

#endif  // TARQ_DMR_METADATA_H_
