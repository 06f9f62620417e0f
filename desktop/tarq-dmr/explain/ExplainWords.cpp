#include "ExplainWords.h"

#include <algorithm>
#include <array>

namespace {

constexpr const char* kHighestTotal = "The first of the highest totals above 0 wins.";

struct ContestRow {
  ResContestKind kind;
  ContestWords words;
};
constexpr auto kContests = std::to_array<ContestRow>({
    {ResContestKind::kPhoto, {"photo", "photo", kHighestTotal}},
    {ResContestKind::kMpo,
     {"mpo", "multi-picture photo",
      "The highest rank wins; of equals full HD, else the nearest above it, else the nearest below."}},
    {ResContestKind::kMusic, {"music", "music", kHighestTotal}},
    {ResContestKind::kWma,
     {"wma", "Windows Media audio",
      "The first of the highest primary totals wins; only when none is above 0, of the secondary ones.",
      true}},
    {ResContestKind::kVideo, {"video", "video", kHighestTotal}},
    {ResContestKind::kWmv,
     {"wmv", "Windows Media video",
      "The first of the highest totals wins; a secondary one must be above every primary one.", true}},
});
constexpr ContestWords kNoContest = {"none", "no", ""};

struct RuleRow {
  ResRule rule;
  const char* key;
  const char* words = nullptr;  // null: out
};
constexpr auto kRules = std::to_array<RuleRow>({
    {ResRule::kUnknown, "unknown"},
    {ResRule::kProfile, "profile", "known profile name"},
    {ResRule::kProfileNotInRegion, "profileNotInRegion"},
    {ResRule::kMimeType, "mimeType", "known MIME type"},
    {ResRule::kMimeTypeAmr, "mimeTypeAmr"},
    {ResRule::kMimeAndExtension, "mimeAndExtension", "MIME type and extension"},
    {ResRule::kMimeGuess, "mimeGuess", "guessed by MIME type"},
    {ResRule::kUnknownProfileMime, "unknownProfileMime", "unknown profile, known MIME"},
    {ResRule::kSeekable, "seekable", "Windows Media, byte seek"},
    {ResRule::kNotSeekable, "notSeekable", "Windows Media, no byte seek"},
});

const RuleRow& rowOf(ResRule rule) {
  return *std::ranges::find_if(kRules, [&](const RuleRow& row) { return row.rule == rule; });
}

}  // namespace

const ContestWords& wordsOf(ResContestKind kind) {
  const auto row = std::ranges::find_if(kContests, [&](const ContestRow& r) { return r.kind == kind; });
  return row == kContests.end() ? kNoContest : row->words;
}

const char* ruleKey(ResRule rule) { return rowOf(rule).key; }

bool isOut(ResRule rule) { return rowOf(rule).words == nullptr; }

const char* ruleWords(ResRule rule, const TarqDlnaResMetadata& record) {
  // Without a name nobody looks at what the server declares.
  if (rule == ResRule::kNotSeekable && record.dlnaPn.c_str() == nullptr) return "Windows Media by MIME type";
  return rowOf(rule).words;
}

const char* categoryWord(int category) {
  constexpr const char* kWords[] = {"photo", "music", "video"};
  return category >= kCategoryPhoto && category <= kCategoryVideo ? kWords[category] : "unknown";
}

const char* categoryNoun(int category) {
  return category == kCategoryPhoto ? "a photo" : category == kCategoryMusic ? "music" : "a video";
}

const char* stageWord(CategoryStage stage) {
  switch (stage) {
    case CategoryStage::kMimeType:
      return "MIME type";
    case CategoryStage::kProfileName:
      return "profile name";
    case CategoryStage::kExtension:
      return "extension";
    case CategoryStage::kNone:
      break;
  }
  return nullptr;
}

const char* metadataWords(MetadataState state) {
  switch (state) {
    case MetadataState::kAbsent:
      return "there is none";
    case MetadataState::kNotParsed:
      return "it is no DLNA metadata (DIDL-Lite) that parses";
    case MetadataState::kNoObject:
      return "there is no item or container in it";
    case MetadataState::kNoRes:
      return "its first object has no res element";
    case MetadataState::kRead:
      break;
  }
  return "read";
}

const char* transferModeWord(int mode) {
  constexpr const char* kWords[] = {"Streaming", "Interactive", "Background"};
  return mode >= 0 && mode <= 2 ? kWords[mode] : nullptr;
}

const char* whyNotProbed(const Explanation& explanation) {
  if (explanation.quick.accepted != nullptr) return "a quick test accepted the resource";
  if (explanation.uri.url == nullptr) return "the URI is no URL";
  if (!explanation.uri.homeNetwork) return "only servers on the home network are asked";
  return "RVU content is never asked for";
}

std::span<const ProbeOutcome> probeOutcomes() {
  static const ProbeOutcome kOutcomes[] = {
      {"a status below 300", resultOfStatus(200)},
      {"403", resultOfStatus(403)},
      {"503", resultOfStatus(503)},
      {"another of 300 and above", resultOfStatus(300)},
      {"not reachable", resultOfClientError(kVondHspConnectFailed)},
      {"name not resolved", resultOfClientError(kVondHspNameNotResolved)},
      {"no answer in time", resultOfClientError(kVondHspTimedOut)},
      {"anything else", resultOfClientError(kVondHspInvalidAnswer)},
  };
  return kOutcomes;
}

std::string formatKeyWords(const char* mimeType, const char* contentFeatures) {
  const VondPI4thField parameters(contentFeatures == nullptr ? "" : contentFeatures);
  const FormatKey key = formatKeyOf(mimeType, parameters);
  if (key.profile != nullptr) return "profile name " + quoted(key.profile);
  return key.mimeType == nullptr ? "nothing: the server names neither" : "MIME type " + quoted(key.mimeType);
}

std::string quoted(std::string_view text) { return '"' + std::string(text) + '"'; }
