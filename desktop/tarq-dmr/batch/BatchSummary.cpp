#include "BatchSummary.h"

#include <algorithm>
#include <functional>

#include "JsonObject.h"
#include "ResultText.h"
#include "TarqResourceCheckerInterface.h"
#include "TextOutput.h"
#include "TextTable.h"

namespace {

const char* message(std::optional<int> code) {
  if (!code) return "undecided: depends on the server's answer";
  return *code == kInvalidLine ? "not valid input" : describe(*code);
}

const char* kindOf(std::optional<int> code) {
  if (!code) return "undecided";
  return *code == kAccepted ? "accepted" : *code == kInvalidLine ? "not valid" : "refused";
}

std::string formatName(const std::optional<std::string>& format) {
  return format ? printable(*format) : "(no name)";
}

// `name` takes a key of the map; keys of one name are counted together.
template <class Counts, class Name>
std::vector<BatchCount> mostFirst(const Counts& counts, Name name) {
  std::map<std::string, int64_t> named;
  for (const auto& [key, lines] : counts) named[name(key)] += lines;
  std::vector<BatchCount> all;
  all.reserve(named.size());
  for (const auto& [text, lines] : named) all.push_back({text, lines});
  std::ranges::stable_sort(all, std::greater(), &BatchCount::lines);
  return all;
}

// `write` takes the JsonObject, a key of the map and its count.
template <class Counts, class Write>
void addCounts(JsonObject& object, std::string_view key, const Counts& counts, Write write) {
  auto next = counts.begin();
  object.addObjects(key, counts.size(), [&](JsonObject& each, size_t) {
    write(each, next->first);
    each.add("lines", next->second);
    ++next;
  });
}

}  // namespace

void BatchSummary::add(const BatchOutcome& outcome) {
  ++lines_;
  ++codes_[outcome.code];
  if (outcome.code.value_or(kAccepted) == kAccepted) ++formats_[outcome.format];
}

std::vector<BatchCount> BatchSummary::kinds() const { return mostFirst(codes_, kindOf); }

std::vector<BatchCount> BatchSummary::results() const { return mostFirst(codes_, message); }

std::vector<BatchCount> BatchSummary::formats() const { return mostFirst(formats_, formatName); }

std::string BatchSummary::words() const {
  std::map<std::string, int64_t> kinds;
  for (const auto& [code, count] : codes_) kinds[kindOf(code)] += count;
  std::string words;
  for (const auto& [kind, count] : kinds)
    words += (words.empty() ? "" : ", ") + std::to_string(count) + ' ' + kind;
  return words;
}

std::string BatchSummary::text() const {
  TextTable codes({">lines", ">code", "result"});
  for (const auto& [code, count] : codes_)
    codes.addRow({std::to_string(count), code ? std::to_string(*code) : "", message(code)});
  codes.addRow({std::to_string(lines_), "", "all lines"});
  TextTable formats({">lines", "format"});
  for (const auto& [format, count] : formats_) formats.addRow({std::to_string(count), formatName(format)});
  return codes.text() + (formats_.empty() ? "" : '\n' + formats.text());
}

std::string BatchSummary::json() const {
  JsonWriter json;
  {
    JsonObject object(json);
    object.add("lines", lines_);
    addCounts(object, "codes", codes_, [](JsonObject& each, const std::optional<int>& code) {
      code ? each.add("code", *code) : each.addNull("code");
      each.add("message", message(code));
    });
    addCounts(object, "formats", formats_, [](JsonObject& each, const std::optional<std::string>& format) {
      each.add("format", format ? format->c_str() : nullptr);
    });
  }
  return json.str();
}
