#include <algorithm>
#include <array>
#include <string_view>

#include "RealMedia.h"
#include "TarqDlnaResSelection.h"
#include "TextMatch.h"
#include "VideoProfileTables.h"

namespace {

constexpr PictureContest kVideoContest = {.firstPosition = 1000, .tooLarge = -3000};
constexpr int32_t kKnownFormatPoints = 200;

// What a MIME type is worth beside a profile name that nobody knows, by its position in `videoMimeTypes`.
// An extension of "" passes an empty one; an absent extension passes nothing.
struct MimeRule {
  int position;
  std::string_view format;
  std::array<const char*, 4> extensions;  // filled up with null
  bool anyExtension = false;              // even an absent one
  bool realMedia = false;                 // only in the region that plays RealMedia
};
constexpr auto kMimeRules = std::to_array<MimeRule>({
    {1, "AVC_TTS", {"m2ts", "mts"}},
    {2, "AVC_TTS", {"m2ts", "mts", "tts"}},
    {3, "MPEG4", {}, true},
    // 4 and 5, the playlists, never pass.
    {6, "3GPP", {"3gp", "3g2", ""}},
    {7, "3GPP", {"3gp", "3g2", ""}},
    {8, "MKV", {"mkv", ""}},
    {9, "MKV", {"mkv", ""}},
    {10, "WebM", {"webm", ""}},
    {11, "MOV", {"mov", ""}},
    {12, kRealMediaFormat, {"rmvb", "rm"}, false, true},
    {13, kRealMediaFormat, {"rmvb", "rm", "rmv", ""}, false, true},
    {14, kRealMediaFormat, {"rmvb", "rm", "rmv", ""}, false, true},
    {15, kRealMediaFormat, {"rmvb", "rm", "rmv", ""}, false, true},
    {16, kRealMediaFormat, {"rmvb", "rm", "rmv", ""}, false, true},
    {17, "AVI_Unknown", {"avi", ""}},
    {18, "AVI_Unknown", {"avi"}},
    {19, "AVI_Unknown", {"avi"}},
    {20, "Xvid", {"xvid", ""}},
});

// These three are one chain: a MIME type passes its own rule and then those of the types after it, and earns
// points for each, so that "video/x-msvideo" with "avi" earns them twice.
constexpr int kChainFirst = 18;
constexpr int kChainLast = 20;

bool passes(const MimeRule& rule, const char* extension, int32_t region) {
  if (rule.realMedia && region != kRealMediaRegion) return false;
  return rule.anyExtension || std::ranges::any_of(rule.extensions, [&](const char* wanted) {
           return wanted != nullptr && equalsIgnoringCase(extension, wanted);
         });
}

// The one profile name that counts; absent when the record has none.
const VondString& profileName(const TarqDlnaResMetadata& record) {
  if (record.dlnaPn.c_str() != nullptr) return record.dlnaPn;
  return record.orsaPn.c_str() != nullptr ? record.orsaPn : record.aribPn;
}

}  // namespace

bool TarqDlnaResSelection::classifyVideo(TarqDlnaResMetadata& record, ResScore& score) const {
  const VondString& name = profileName(record);
  if (name.c_str() == nullptr) {
    score.primary.format = classifyByCodec(record, score.rule);
    return score.primary.format != 0;
  }
  const int number = std::as_const(profileMap).get(name);
  if (number < 1) return classifyByMimeRule(record, score);
  const VideoProfileRow& row = videoProfileTable[static_cast<size_t>(number - 1)];
  if (!row.appliesIn(region)) {  // its MIME type does not save it
    score.rule = ResRule::kProfileNotInRegion;
    return false;
  }
  record.format.refer(row.format);
  score.rule = ResRule::kProfile;
  score.primary.format = kKnownFormatPoints;
  return true;
}

// By MIME type and extension: the weight of the format, or 0 when there is none.
int32_t TarqDlnaResSelection::classifyByCodec(TarqDlnaResMetadata& record, ResRule& rule) const {
  int weight = 0;
  const char* format = getVideoCodecFormat(record.mimeType.c_str(), record.extension.c_str(), &weight);
  if (format == nullptr) return 0;
  record.format.refer(format);
  rule = weight == kKnownFormatPoints ? ResRule::kMimeAndExtension : ResRule::kMimeGuess;
  return weight;
}

bool TarqDlnaResSelection::classifyByMimeRule(TarqDlnaResMetadata& record, ResScore& score) const {
  const int position = std::as_const(mimeMap).get(record.mimeType);
  const int last = position >= kChainFirst && position <= kChainLast ? kChainLast : position;
  for (const MimeRule& rule : kMimeRules) {
    if (rule.position < position || rule.position > last) continue;
    if (!passes(rule, record.extension.c_str(), region)) continue;
    record.format.refer(rule.format);
    score.rule = ResRule::kUnknownProfileMime;
    score.primary.format += kKnownFormatPoints;
  }
  return score.primary.format != 0;
}

int TarqDlnaResSelection::selectVideoResIndex(int count, TarqDlnaResMetadata* records) {
  const auto scores = newScores(count);
  return scores == nullptr ? -1 : selectVideoResIndex(count, records, scores.get());
}

int TarqDlnaResSelection::selectVideoResIndex(int count, TarqDlnaResMetadata* records,
                                              ResScore* scores) const {
  return runPictureContest(
      kVideoContest, count, records, scores,
      [this](TarqDlnaResMetadata& record, ResScore& score) { return classifyVideo(record, score); });
}

bool TarqDlnaResSelection::IsM3U8Content(int count, const TarqDlnaResMetadata* records) const {
  return std::any_of(records, records + std::max(count, 0), [](const TarqDlnaResMetadata& record) {
    return record.notConverted && (beginsWith(record.mimeType, "application/x-mpegURL") ||
                                   beginsWith(record.mimeType, "application/vnd.apple.mpegURL"));
  });
}
