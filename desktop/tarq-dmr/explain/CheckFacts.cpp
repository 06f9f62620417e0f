#include "CheckFacts.h"

#include <algorithm>
#include <array>

#include "ContestWords.h"
#include "ExplainWords.h"
#include "Explanation.h"
#include "JsonObject.h"
#include "ResultJson.h"
#include "ResultText.h"

namespace {

struct StateRow {
  const char* key;
  const char* words;
};
constexpr std::array<StateRow, 3> kStates = {
    {{"plays", "plays"}, {"dependsOnServer", "depends on the server"}, {"doesNotPlay", "does not play"}}};

CheckState stateOf(const Verdict& verdict) {
  if (!verdict.code) return CheckState::kDependsOnServer;
  return *verdict.code == kAccepted ? CheckState::kPlays : CheckState::kDoesNotPlay;
}

// What a check would tell of the resource if the server agreed, as far as the metadata says.
void writeUndecided(JsonWriter& json, const Explanation& explanation) {
  JsonObject object(json);
  object.addNull("code");
  object.add("message", "depends on the server's answer");
  object.add("uri", explanation.probe->url);
  object.addIndex("resIndex", explanation.choice.winner);
  object.add("contentFormat", explanation.format());
}

std::string resultOf(const Explanation& explanation) {
  const Verdict& verdict = explanation.verdict;
  JsonWriter json;
  if (verdict.code) {
    writeResult(json, *verdict.code, *verdict.checker->GetResource());
  } else {
    writeUndecided(json, explanation);
  }
  return json.take();
}

// Of a resource whose elements tell nothing, what the MIME type says that it is accepted as.
std::string kindOf(const Explanation& explanation) {
  if (explanation.choice.kindFrom >= 0) return categoryWord(explanation.choice.kind);
  const TarqResourceInfo* resource = explanation.verdict.resource();
  const std::string type = resource == nullptr || resource->mimeType == nullptr ? "" : resource->mimeType;
  return type.starts_with("audio/")   ? "music"
         : type.starts_with("image/") ? "photo"
         : type.starts_with("video/") ? "video"
                                      : "unknown";
}

std::string orEmpty(const char* string) { return string == nullptr ? "" : string; }

std::string formatOf(const Explanation& explanation) {
  const TarqResourceInfo* resource = explanation.verdict.resource();
  std::string format = orEmpty(resource == nullptr ? explanation.format() : formatOf(*resource));
  if (format.empty() && resource != nullptr) format = orEmpty(resource->mimeType);
  if (format.empty() && !explanation.records.empty())
    format = orEmpty(explanation.records.front().mimeType.c_str());
  return format;
}

// The element that says most about why none plays: not one of another kind, and one that was read.
const TarqDlnaResMetadata& excludedRes(const std::vector<TarqDlnaResMetadata>& records) {
  const auto says = [](const TarqDlnaResMetadata& record) {
    const ResRule rule = record.score.rule;
    return isOut(rule) && rule != ResRule::kSkipped && rule != ResRule::kOtherKind;
  };
  const auto found = std::ranges::find_if(records, says);
  return found == records.end() ? records.front() : *found;
}

CheckReason whyNoneIsChosen(const Explanation& explanation) {
  const MetadataFacts& metadata = explanation.metadata;
  if (metadata.state != MetadataState::kRead)
    return {metadataKey(metadata), "the metadata offers nothing: " + metadataWords(metadata)};
  const TarqDlnaResMetadata& res = excludedRes(explanation.records);
  if (!explanation.choice.contestHeld()) {
    const char* skipped = skipWords(res.skip);
    if (skipped != nullptr) return {skipKey(res.skip), std::string("its res is skipped: ") + skipped};
    return {"noKind", "no res is photo, music or video"};
  }
  if (isOut(res.score.rule)) return {ruleKey(res.score.rule), ruleWords(res.score.rule)};
  return {"noPoints", leadWords(explanation)};
}

std::optional<CheckReason> reasonOf(const Explanation& explanation) {
  const Verdict& verdict = explanation.verdict;
  const int code = verdict.code.value_or(kNothingPlayable);
  if (code == kAccepted) return std::nullopt;
  if (code != kNothingPlayable) return CheckReason{std::to_string(code), describe(code)};
  if (explanation.choice.winner < 0) return whyNoneIsChosen(explanation);
  return verdict.code ? std::optional(CheckReason{std::to_string(code), describe(code)}) : std::nullopt;
}

// What of the element the change is about.
std::string changedValue(const WhatIf& change, const TarqDlnaResMetadata& record) {
  const std::string_view key = change.key;
  if (key == "region") return std::to_string(change.region);
  if (key == "withoutMimeParameters" || key == "lowerCaseMimeType") return orEmpty(record.mimeType.c_str());
  if (key != "withoutProfileName") return "";
  for (const VondString* name : {&record.dlnaPn, &record.orsaPn, &record.aribPn})
    if (name->c_str() != nullptr) return name->c_str();
  return "";
}

std::optional<CheckChange> changeOf(const Explanation& explanation) {
  if (!explanation.choice.contestHeld() || explanation.choice.winner >= 0) return std::nullopt;
  const std::optional<ResChange> first = firstChange(explanation);
  if (!first) return std::nullopt;
  const WhatIf& change = first->change;
  const auto index = static_cast<size_t>(first->index);
  return CheckChange{change.key, change.words, changedValue(change, explanation.records[index]),
                     orEmpty(change.format)};
}

}  // namespace

const char* stateKey(CheckState state) { return kStates[static_cast<size_t>(state)].key; }

const char* stateWords(CheckState state) { return kStates[static_cast<size_t>(state)].words; }

CheckFacts checkFacts(TarqDmrParamsInterface& params, const char* uri, const char* metadata, int32_t region,
                      bool probe) {
  return factsOf(std::make_shared<const Explanation>(
      explain(params, uri, metadata, region, probe ? Asking::kAsTheCheck : Asking::kNever)));
}

CheckFacts factsOf(const std::shared_ptr<const Explanation>& explanation) {
  CheckFacts facts{.explanation = explanation,
                   .state = stateOf(explanation->verdict),
                   .result = resultOf(*explanation),
                   .line = choiceLine(*explanation),
                   .kind = kindOf(*explanation),
                   .format = formatOf(*explanation),
                   .reason = reasonOf(*explanation),
                   .change = std::nullopt};
  if (facts.reason) facts.change = changeOf(*explanation);
  return facts;
}
