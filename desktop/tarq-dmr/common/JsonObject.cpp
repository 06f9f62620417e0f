#include "JsonObject.h"

void JsonObject::addNumbers(std::string_view key, std::span<const int> numbers) {
  json_.key(key);
  json_.openArray();
  for (const int number : numbers) json_.value(number);
  json_.closeArray();
}

void JsonObject::addStrings(std::string_view key, const std::vector<std::string>& strings) {
  json_.key(key);
  json_.openArray();
  for (const std::string& string : strings) json_.value(string.c_str());
  json_.closeArray();
}
