#include "ExplainWords.h"

#include <algorithm>
#include <array>

#include "ResultText.h"

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
      "The highest rank wins; among equals full HD, else the nearest above it, else the nearest "
      "below."}},
    {ResContestKind::kMusic, {"music", "music", kHighestTotal}},
    {ResContestKind::kWma,
     {"wma", "Windows Media audio",
      "The first of the highest primary totals wins; the secondary ones count only when none of those is "
      "above 0.",
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
  const char* words;
};
constexpr auto kRules = std::to_array<RuleRow>({
    {ResRule::kProfile, "profile", "known profile name"},
    {ResRule::kMimeType, "mimeType", "known MIME type"},
    {ResRule::kMimeAndExtension, "mimeAndExtension", "MIME type and extension"},
    {ResRule::kMimeAlone, "mimeAlone", "MIME type alone"},
    {ResRule::kMimeGuess, "mimeGuess", "guessed from the MIME type"},
    {ResRule::kUnknownProfileMime, "unknownProfileMime", "unknown profile, known MIME type"},
    {ResRule::kSeekable, "seekable", "Windows Media, byte seek"},
    {ResRule::kNotSeekable, "notSeekable", "Windows Media, no byte seek"},
    {ResRule::kWindowsMediaMime, "windowsMediaMime", "Windows Media by MIME type"},
    {ResRule::kMultiPicture, "multiPicture", "multi-picture file"},
    {ResRule::kUnknown, "unknown", "no contest was held"},
    {ResRule::kSkipped, "skipped", "skipped"},
    {ResRule::kOtherKind, "otherKind", "another kind"},
    {ResRule::kUnknownProfile, "unknownProfile", "unknown profile name, no help from the MIME type"},
    {ResRule::kNoMimeType, "noMimeType", "no MIME type"},
    {ResRule::kUnknownMimeType, "unknownMimeType", "unknown MIME type"},
    {ResRule::kProfileNotInRegion, "profileNotInRegion", "profile name not played in this region"},
    {ResRule::kThreeGppAmr, "threeGppAmr", "3GPP audio whose extension is \"amr\" or missing"},
    {ResRule::kNotMultiPicture, "notMultiPicture",
     "it needs av:mpfEntries, a usable resolution and no profile name"},
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

const char* ruleWords(ResRule rule) { return rowOf(rule).words; }

std::span<const PointCause> pointCauses() {
  static constexpr PointCause kCauses[] = {{"format", "format", &ResPoints::format},
                                           {"position", "position", &ResPoints::position},
                                           {"original", "notConverted", &ResPoints::notConverted},
                                           {"size", "resolution", &ResPoints::resolution},
                                           {"nearest", "nearest", &ResPoints::nearest}};
  return kCauses;
}

const char* categoryWord(MediaCategory category) {
  constexpr const char* kWords[] = {"photo", "music", "video", "unknown"};
  return kWords[category];
}

const char* categoryNoun(MediaCategory category) {
  return category == kCategoryPhoto ? "a photo" : category == kCategoryMusic ? "music" : "a video";
}

const char* stageWord(CategoryStage stage) {
  constexpr const char* kWords[] = {nullptr, "MIME type", "profile name", "extension"};
  return kWords[static_cast<size_t>(stage)];
}

const char* skipKey(ResSkip skip) {
  constexpr const char* kKeys[] = {nullptr,           "noProtocolInfo",   "noColon",       "noUrl",
                                   "badProtocolInfo", "badContentFormat", "badFourthField"};
  return kKeys[static_cast<size_t>(skip)];
}

const char* skipWords(ResSkip skip) {
  constexpr const char* kWords[] = {
      nullptr,
      "it has no protocolInfo",
      "its protocolInfo has no \":\"",
      "it has no URL",
      "its protocolInfo does not parse",
      "its third protocolInfo field, with a CONTENTFORMAT, does not parse",
      "its fourth protocolInfo field does not parse (a \"=\" without a name before it)",
  };
  return kWords[static_cast<size_t>(skip)];
}

const char* metadataKey(const MetadataFacts& metadata) {
  if (metadata.problem) return metadata.problem->key;
  constexpr const char* kKeys[] = {"absent", "notParsed", "noObject", "noRes", "read"};
  return kKeys[static_cast<size_t>(metadata.state)];
}

std::string metadataWords(const MetadataFacts& metadata) {
  if (metadata.problem) return metadata.problem->words;
  constexpr const char* kWords[] = {"there is none", "it does not parse", "it has no item or container",
                                    "its first object has no res element", "read"};
  return kWords[static_cast<size_t>(metadata.state)];
}

const char* transferModeWord(TransferMode mode) {
  if (mode == kTransferUnspecified) return nullptr;
  return mode == kTransferStreaming ? "Streaming" : "Interactive";
}

NoProbe whyNotProbed(const Explanation& explanation) {
  if (explanation.quick.accepted != nullptr) return {"quickTest", "a quick test accepted the resource"};
  if (explanation.uri.url == nullptr) return {"noUrl", "the URI is not a URL"};
  if (!explanation.uri.homeNetwork) return {"internet", "only servers on the home network are asked"};
  return {"rvu", "RVU content is never probed"};
}

std::span<const ProbeOutcome> probeOutcomes() {
  static const ProbeOutcome kOutcomes[] = {
      {"a status below 300", resultOfStatus(200)},
      {"403", resultOfStatus(403)},
      {"503", resultOfStatus(503)},
      {"any other from 300 on", resultOfStatus(300)},
      {"not reachable", resultOfClientError(kVondHspConnectFailed)},
      {"name not resolved", resultOfClientError(kVondHspNameNotResolved)},
      {"no answer in time", resultOfClientError(kVondHspTimedOut)},
      {"anything else", resultOfClientError(kVondHspInvalidAnswer)},
  };
  return kOutcomes;
}

// Asked again, the client says what the result code hides: that no request was sent.
const char* refusalWords(const Verdict& verdict) {
  const bool unusable = verdict.answer && verdict.answer->clientError == kVondHspRefused;
  return unusable ? VondHspErrorText(kVondHspRefused) : describe(*verdict.code);
}

std::string formatKeyWords(const char* mimeType, const char* contentFeatures) {
  const VondPI4thField parameters(contentFeatures == nullptr ? "" : contentFeatures);
  const FormatKey key = formatKeyOf(mimeType, parameters);
  if (key.profile != nullptr) return "profile name " + quoted(key.profile);
  return key.mimeType == nullptr ? "nothing: the server sent neither" : "MIME type " + quoted(key.mimeType);
}

std::string quoted(std::string_view string) { return '"' + std::string(string) + '"'; }
