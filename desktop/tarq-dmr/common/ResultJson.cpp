#include "ResultJson.h"

#include "JsonObject.h"
#include "ResultText.h"

namespace {

void writeAccepted(JsonWriter& json, const TarqResourceInfo& resource) {
  JsonObject object(json);
  object.add("code", kAccepted);
  object.add("uri", resource.uri);
  object.add("mimeType", resource.mimeType);
  object.add("additionalInfo", resource.additionalInfo);
  object.add("resIndex", resource.resIndex);
  object.add("size", resource.size);
  object.add("duration", resource.duration);
  object.add("reserved", resource.reserved);
  object.add("operation", resource.operation);
  object.add("contentFormat", formatOf(resource));
}

}  // namespace

void writeResult(JsonWriter& json, int code, const TarqResourceInfo& resource) {
  code == kAccepted ? writeAccepted(json, resource) : writeRefused(json, code, describe(code));
}

void writeRefused(JsonWriter& json, int code, const char* message) {
  JsonObject object(json);
  object.add("code", code);
  object.add("message", message);
}
