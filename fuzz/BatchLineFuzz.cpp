// One line of a batch: read, answered, and both compared as another JSON library reads them.
// Input: the line.
#include <nlohmann/json.hpp>
#include <string>

#include "BatchAnswer.h"
#include "FuzzInput.h"
#include "JsonObject.h"
#include "PassedMembers.h"

namespace {

using nlohmann::json;

constexpr int kDefaultRegion = 7;

// What a line asks for comes back as its answer.
BatchOutcome echo(JsonWriter& writer, const BatchRequest& request) {
  JsonObject object(writer);
  object.add("uri", request.uri);
  object.add("metadata", request.metadata);
  object.add("region", request.region);
  return {.code = 0};
}

std::string answerTo(std::string line) {
  const InputLine input{line.data(), line.size(), line.size()};
  return answerBatchLine(parseBatchLine(input, kDefaultRegion), echo).line;
}

json parsed(const std::string& text) { return json::parse(text, nullptr, false); }

json orDefault(const json& object, const char* key, const json& absent) {
  const json value = object.value(key, json());
  return value.is_null() ? absent : value;
}

// The other library takes the last of two equal keys, too.
void compare(const json& asked, const json& answer) {
  for (const auto& [key, value] : asked.items()) {
    if (!PassedMembers::takes(key) || key.find('\0') != key.npos) continue;
    require(answer.contains(key) && answer[key] == value, "id and x- keys are passed on");
  }
  if (answer.contains("code")) return;
  require(answer["uri"] == asked["uri"] && answer["metadata"] == orDefault(asked, "metadata", json()) &&
              answer["region"] == orDefault(asked, "region", kDefaultRegion),
          "what a line asks for is what it says");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string line(FuzzInput(data, size).line());
  const std::string answer = answerTo(line);
  require(answer.find_first_of("\r\n") == answer.npos, "an answer is one line");
  require(answerTo(line + '\r') == answer || line.find('\0') != line.npos,
          "white space at the end does not matter");
  // The other library rejects half a surrogate pair wherever it is.
  if (line.find("\\ud") != line.npos || line.find("\\uD") != line.npos) return 0;

  const json answered = parsed(answer);
  require(answered.is_object(), "an answer is a JSON object");
  if (answered.value("message", "").starts_with("the line is")) return 0;  // it cannot be read
  const json asked = parsed(line);
  require(asked.is_object(), "a line that can be read is a JSON object");
  compare(asked, answered);
  return 0;
}
