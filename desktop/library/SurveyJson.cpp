#include "JsonObject.h"
#include "LargestFirst.h"
#include "SurveyReport.h"

namespace {

constexpr auto kItems = [](const auto& count) { return count.items; };
constexpr auto kTotal = [](const StateCounts& counts) { return counts.total(); };
constexpr auto kTimes = [](const ProblemCount& count) { return count.times; };

const char* endKey(SurveyEnd end) {
  return end == SurveyEnd::kComplete ? "complete" : end == SurveyEnd::kLimit ? "limit" : "interrupted";
}

void writeExample(JsonObject& object, const SurveyExample& example) {
  object.addObject("example", [&](JsonObject& json) {
    json.add("id", example.id);
    json.add("title", example.title);
    json.add("uri", example.uri);
    json.add("line", example.line);
  });
}

void writeCount(JsonObject& object, const WordedCount& count) {
  object.add("message", count.words);
  object.add("items", count.items);
  writeExample(object, count.example);
}

void writeStates(JsonObject& object, const StateCounts& counts) {
  for (const CheckState state : kCheckStates) object.add(stateKey(state), counts[state]);
}

// `write` takes the JsonObject, a key of the map and its count.
template <class Entries, class Write>
void writeEntries(JsonObject& object, std::string_view key, const Entries& entries, Write write) {
  object.addObjects(key, entries.size(),
                    [&](JsonObject& each, size_t i) { write(each, entries[i]->first, entries[i]->second); });
}

void writeRegion(JsonObject& object, const RegionSummary& region) {
  object.add("region", region.region);
  writeStates(object, region.totals);
  writeEntries(object, "formats", largestFirst(region.formats, kTotal),
               [](JsonObject& each, const FormatKind& key, const StateCounts& counts) {
                 each.add("kind", key.kind);
                 each.add("format", key.format);
                 writeStates(each, counts);
               });
  writeEntries(object, "reasons", largestFirst(region.reasons, kItems),
               [](JsonObject& each, const ReasonKey& key, const WordedCount& count) {
                 each.add("state", stateKey(key.state));
                 each.add("key", key.key);
                 writeCount(each, count);
               });
  writeEntries(object, "changes", largestFirst(region.changes, kItems),
               [](JsonObject& each, const ChangeKey& key, const WordedCount& count) {
                 each.add("key", key.key);
                 each.add("value", key.value);
                 writeCount(each, count);
               });
}

}  // namespace

void writeSurvey(JsonWriter& json, const ServerDescription& server, const SurveySummary& summary) {
  JsonObject object(json);
  object.addObject("server", [&](JsonObject& each) {
    each.add("name", server.name);
    each.add("model", server.model);
    each.add("url", server.url);
  });
  object.add("end", endKey(summary.end));
  object.add("items", summary.items);
  object.add("references", summary.references);
  object.add("containers", summary.containers);
  object.addObjects("regions", summary.regions.size(),
                    [&](JsonObject& each, size_t i) { writeRegion(each, summary.regions[i]); });
  writeEntries(object, "differences", largestFirst(summary.differences, kItems),
               [](JsonObject& each, const RegionPattern& pattern, const PatternCount& count) {
                 each.addStrings("regions", pattern);
                 each.add("items", count.items);
                 writeExample(each, count.example);
               });
  writeEntries(object, "problems", largestFirst(summary.problems, kTimes),
               [](JsonObject& each, const std::string& words, const ProblemCount& count) {
                 each.add("message", words);
                 each.add("times", count.times);
                 each.add("container", count.example);
               });
}
