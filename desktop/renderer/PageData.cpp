#include "PageData.h"

#include "ResultJson.h"
#include "Steps.h"
#include "TransportValues.h"

namespace {

constexpr size_t kMostUriBytes = 1000;

void writeSource(JsonObject& object, const CheckedSource* source) {
  if (source == nullptr) return object.addNull("uri");
  const TarqResourceInfo& resource = source->resource();
  object.add("uri", shown(source->uri.c_str(), kMostUriBytes));
  object.add("mimeType", resource.mimeType == nullptr ? nullptr : shown(resource.mimeType).c_str());
  object.add("format", formatOf(resource));
}

void writeNow(JsonObject& object, const TransportSnapshot& transport, const RenderingState& rendering) {
  object.add("state", transportValue("TransportState", transport));
  object.add("failed", transport.failed);
  writeSource(object, transport.current.get());
  object.add("positionMs", transport.positionMs);
  object.add("durationMs", transport.durationMs);
  object.add("volume", static_cast<int>(rendering.volume));
  object.add("mute", rendering.mute);
}

}  // namespace

std::string pageData(const std::string& name, const TransportSnapshot& transport,
                     const RenderingState& rendering, const RequestHistory& history, int64_t after) {
  JsonWriter json;
  {
    JsonObject object(json);
    object.add("name", name);
    object.addObject("now", [&](JsonObject& now) {
      writeNow(now, transport, rendering);
      history.writeChoice(now, transport.current.get());
    });
    history.write(object, after);
  }
  return json.take();
}
