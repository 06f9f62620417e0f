#include <algorithm>
#include <cstdlib>

#include "CheckFacts.h"
#include "ContestWords.h"
#include "ExplainWords.h"
#include "JsonObject.h"
#include "Steps.h"

namespace {

constexpr size_t kMostUriBytes = 1000;
constexpr size_t kMostWordBytes = 60;
constexpr size_t kMostRes = 24;

// "image/jpeg, JPEG_TN, 160x120"
std::string aboutRes(const TarqDlnaResMetadata& record) {
  if (const char* skipped = skipWords(record.skip)) return skipped;
  std::string words;
  for (const char* part : {record.mimeType.c_str(), record.dlnaPn.c_str(), record.orsaPn.c_str(),
                           record.aribPn.c_str(), record.extension.c_str(), record.resolution}) {
    if (part != nullptr && *part != '\0') words += (words.empty() ? "" : ", ") + shown(part, kMostWordBytes);
  }
  return words;
}

// "rank 6, full HD"
std::string mpoWords(const MpoRank& mpo) {
  const std::string rank = "rank " + std::to_string(mpo.rank);
  if (mpo.fullHd) return rank + ", full HD";
  return rank + ", " + std::to_string(std::abs(mpo.overArea)) + " pixels " +
         (mpo.overArea > 0 ? "above" : "below") + " full HD";
}

void writePoints(JsonObject& object, const ResScore& score) {
  const ResPoints& points = score.counted();
  std::vector<int> numbers;
  for (const PointCause& cause : pointCauses()) numbers.push_back(points.*cause.points);
  object.addNumbers("points", numbers);
  if (&points == &score.secondary) object.add("secondary", true);
}

void writeRes(JsonObject& object, const Explanation& explanation, size_t i) {
  const TarqDlnaResMetadata& record = explanation.records[i];
  object.add("index", static_cast<int>(i));
  object.add("about", aboutRes(record));
  if (isOut(record.score.rule)) return object.add("out", exclusionText(explanation, i));
  object.add("rule", ruleWords(record.score.rule));
  if (record.format != nullptr) object.add("format", record.format);
  if (explanation.choice.contest == ResContestKind::kMpo)
    return object.add("played", mpoWords(record.score.mpo));
  writePoints(object, record.score);
}

// The first ones, and the winner in any case.
std::vector<size_t> resToShow(const Explanation& explanation) {
  std::vector<size_t> indices(std::min(explanation.res.size(), kMostRes));
  for (size_t i = 0; i < indices.size(); ++i) indices[i] = i;
  const auto winner = static_cast<size_t>(explanation.choice.winner);
  if (explanation.choice.winner >= 0 && winner >= indices.size()) indices.back() = winner;
  return indices;
}

void writeContest(JsonObject& object, const Explanation& explanation) {
  object.add("contest", wordsOf(explanation.choice.contest).name);
  object.add("reason", contestReason(explanation));
  object.addIndex("winner", explanation.choice.winner);
}

void writeItem(JsonObject& object, const CheckFacts& facts) {
  const Explanation& explanation = *facts.explanation;
  const char* title = explanation.metadata.title;
  if (title != nullptr && *title != '\0') object.add("title", shown(title));
  object.add("uri", shown(explanation.uri.text, kMostUriBytes));
  object.add("region", explanation.region);
  object.add("kind", facts.kind);
  const auto& code = explanation.verdict.code;
  code ? object.add("code", *code) : object.addNull("code");
  if (!facts.format.empty()) object.add("format", shown(facts.format.c_str(), kMostWordBytes));
  const bool refused = facts.state == CheckState::kDoesNotPlay;
  object.add("why", refused ? refusedText(explanation) : facts.line);
  if (explanation.choice.contestHeld()) writeContest(object, explanation);
  const std::vector<size_t> indices = resToShow(explanation);
  object.addObjects("res", indices.size(),
                    [&](JsonObject& res, size_t i) { writeRes(res, explanation, indices[i]); });
  const size_t more = explanation.res.size() - indices.size();
  if (more > 0) object.add("more", static_cast<int>(more));
}

}  // namespace

std::string itemJson(const CheckFacts& facts) {
  JsonWriter json;
  {
    JsonObject object(json);
    writeItem(object, facts);
  }
  return json.take();
}
