#include <algorithm>
#include <array>
#include <string_view>

#include "ResContest.h"
#include "TarqDlnaResSelection.h"
#include "TextMatch.h"

namespace {

constexpr auto wmaProfileTable = std::to_array<NamedFormat>({
    {"WMABASE", "WMA", "audio/x-ms-wma"},
    {"WMAFULL", "WMA", "audio/x-ms-wma"},
});

constexpr auto musicProfileTable = std::to_array<NamedFormat>({
    {"LPCM", "LPCM", "audio/L16"},
    {"MP3", "MP3", "audio/mpeg"},
    {"FLAC", "FLAC", "audio/flac"},
    {"FLAC", "FLAC", "audio/x-flac"},
});
static_assert(wmaProfileTable.size() == 2 && musicProfileTable.size() == 4);

// Music that is known by its whole MIME type only.
struct MusicMimeType {
  std::string_view mimeType;
  const char* format;
  int32_t firstPosition = kMusicPoints.firstPosition;
  bool notAmr = false;  // out when the extension is missing or "amr"
};
constexpr auto kMusicMimeTypes = std::to_array<MusicMimeType>({
    {"audio/mp4", "AUDIO_MPEG4"},
    {"audio/x-m4a", "AUDIO_MPEG4"},
    {"audio/aac", "AUDIO_MPEG4"},
    {.mimeType = "audio/3gpp", .format = "AUDIO_3GPP", .notAmr = true},
    {.mimeType = "audio/3gpp2", .format = "AUDIO_3GPP", .notAmr = true},
    {"audio/wav", "WAVE"},
    {"audio/x-wav", "WAVE"},
    {"audio/ogg", "OggVorbis"},
    {"audio/x-ogg", "OggVorbis"},
    {"application/ogg", "OggVorbis", kApplicationOggFirstPosition},
});

constexpr auto kEquals = [](std::string_view name, std::string_view wanted) { return name == wanted; };
constexpr auto kBegins = [](std::string_view name, std::string_view wanted) {
  return name.starts_with(wanted);
};

// The first row whose profile name `matches` the record's; of a record without a name, whose MIME type the
// record's begins with.
template <class Table, class Matches>
const NamedFormat* findFormat(const Table& table, const TarqDlnaResMetadata& record, Matches matches) {
  const bool named = record.dlnaPn.c_str() != nullptr;
  const std::string_view key = viewOf(named ? record.dlnaPn : record.mimeType);
  const auto row = std::ranges::find_if(table, [&](const NamedFormat& candidate) {
    return named ? matches(key, candidate.profile) : key.starts_with(candidate.mimeType);
  });
  return row == table.end() ? nullptr : &*row;
}

ResRule ruleOf(const TarqDlnaResMetadata& record) {
  return record.dlnaPn.c_str() != nullptr ? ResRule::kProfile : ResRule::kMimeType;
}

// Writes format and rule.
// Returns: the points of position 0, or 0 when the candidate is out.
int32_t classifyMusic(TarqDlnaResMetadata& record) {
  if (const NamedFormat* row = findFormat(musicProfileTable, record, kEquals)) {
    record.format = row->format;
    record.score.rule = ruleOf(record);
    return kMusicPoints.firstPosition;
  }
  const auto row = std::ranges::find(kMusicMimeTypes, viewOf(record.mimeType), &MusicMimeType::mimeType);
  if (row == kMusicMimeTypes.end()) return 0;
  const char* extension = record.extension.c_str();
  if (row->notAmr && (extension == nullptr || equalsIgnoringCase(extension, "amr"))) {
    record.score.rule = ResRule::kThreeGppAmr;
    return 0;
  }
  record.format = row->format;
  record.score.rule = ResRule::kMimeType;
  return row->firstPosition;
}

// What tells whether a server supports seeking stands beside a profile name only.
ResRule wmaRule(const TarqDlnaResMetadata& record) {
  if (record.dlnaPn.c_str() == nullptr) return ResRule::kWindowsMediaMime;
  return declaresByteSeek(record.fourthField) ? ResRule::kSeekable : ResRule::kNotSeekable;
}

// Writes format, rule and format points.
// Returns: false when the candidate is out.
bool classifyWma(TarqDlnaResMetadata& record) {
  ResScore& score = record.score;
  if (const NamedFormat* row = findFormat(wmaProfileTable, record, kBegins)) {
    record.format = row->format;
    score.rule = wmaRule(record);
    if (score.rule == ResRule::kSeekable) {
      score.primary.format = kKnownFormatPoints;
    } else {
      score.secondary.format = kWeakFormatPoints;
    }
    return true;
  }
  if (const NamedFormat* row = findFormat(musicProfileTable, record, kBegins)) {
    record.format = row->format;
    score.rule = ruleOf(record);
    score.primary.format = kKnownFormatPoints;
    return true;
  }
  return false;
}

}  // namespace

int firstWindowsMediaAudio(int count, const TarqDlnaResMetadata* records) {
  return firstThat(count, records, [](const TarqDlnaResMetadata& record) {
    return record.notConverted && findFormat(wmaProfileTable, record, kBegins) != nullptr;
  });
}

bool TarqDlnaResSelection::IsWMAContent(int count, const TarqDlnaResMetadata* records) const {
  return firstWindowsMediaAudio(count, records) != -1;
}

int TarqDlnaResSelection::selectMusicResIndex_WMA(int count, TarqDlnaResMetadata* records) {
  for (int i = 0; i < count; ++i) {
    ResScore& score = records[i].score = {};
    if (!classifyWma(records[i])) continue;
    score.addWherePositive(&ResPoints::position, kMusicPoints.firstPosition - kPositionStep * i);
    if (records[i].notConverted) score.addWherePositive(&ResPoints::notConverted, kNotConvertedPoints);
  }
  // Any candidate with a primary score beats all that have a secondary one.
  const int primary = bestPrimary(count, records);
  if (primary != -1) return primary;
  BestScore best;
  best.offerAll(count, records, &ResScore::secondary);
  return best.index;
}

int TarqDlnaResSelection::selectMusicResIndex(int count, TarqDlnaResMetadata* records) {
  for (int i = 0; i < count; ++i) {
    ResScore& score = records[i].score = {};
    const int32_t firstPosition = classifyMusic(records[i]);
    if (firstPosition == 0) continue;
    score.primary.position = firstPosition - kPositionStep * i;
    if (records[i].notConverted) score.primary.notConverted = kNotConvertedPoints;
  }
  return bestPrimary(count, records);
}
