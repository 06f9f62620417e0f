#ifndef TARQ_DMR_RESULT_JSON_H_
#define TARQ_DMR_RESULT_JSON_H_

#include "JsonWriter.h"
#include "TarqResourceCheckerInterface.h"

// Null: the format is not known.
inline const char* formatOf(const TarqResourceInfo& resource) {
  return resource.contentFormat == nullptr ? nullptr : resource.contentFormat->c_str();
}

// The result of one check as one object. The keys and their order are fixed.

// What to play when accepted, otherwise the code in words; `resource` counts only when accepted.
void writeResult(JsonWriter& json, int code, const TarqResourceInfo& resource);
void writeRefused(JsonWriter& json, int code, const char* message);

#endif  // TARQ_DMR_RESULT_JSON_H_
