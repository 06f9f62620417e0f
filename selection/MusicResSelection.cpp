#include <algorithm>
#include <array>
#include <string_view>

#include "TarqDlnaResSelection.h"
#include "TextMatch.h"

namespace {

constexpr int32_t kFirstPosition = 1000;

// The format points of the Windows Media contest; music without it is told apart by position and conversion
// alone.
constexpr int32_t kSeekablePoints = 200;
constexpr int32_t kNotSeekablePoints = 100;

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
  std::string_view format;
  int32_t firstPosition = kFirstPosition;
  bool notAmr = false;  // out when the extension is missing or "amr"
};
constexpr auto kMusicMimeTypes = std::to_array<MusicMimeType>({
    {"audio/mp4", "AUDIO_MPEG4"},
    {"audio/x-m4a", "AUDIO_MPEG4"},
    {"audio/aac", "AUDIO_MPEG4"},
    {"audio/3gpp", "AUDIO_3GPP", kFirstPosition, true},
    {"audio/3gpp2", "AUDIO_3GPP", kFirstPosition, true},
    {"audio/wav", "WAVE"},
    {"audio/x-wav", "WAVE"},
    {"audio/ogg", "OggVorbis"},
    {"audio/x-ogg", "OggVorbis"},
    {"application/ogg", "OggVorbis", 900},  // may as well be video
});

// The first row whose profile name `matches` the record's, or whose MIME type begins a record without a name.
template <class Table, class Matches>
const NamedFormat* findFormat(const Table& table, const TarqDlnaResMetadata& record, Matches matches) {
  const auto row = std::ranges::find_if(table, [&](const NamedFormat& candidate) {
    return record.dlnaPn.c_str() != nullptr ? matches(record.dlnaPn, candidate.profile)
                                            : beginsWith(record.mimeType, candidate.mimeType);
  });
  return row == table.end() ? nullptr : &*row;
}

constexpr auto kNameEquals = [](const VondString& name, std::string_view wanted) {
  return equals(name, wanted);
};
constexpr auto kNameBegins = [](const VondString& name, std::string_view wanted) {
  return beginsWith(name, wanted);
};

ResRule ruleOf(const TarqDlnaResMetadata& record) {
  return record.dlnaPn.c_str() != nullptr ? ResRule::kProfile : ResRule::kMimeType;
}

// Writes format and rule; the points of position 0, or 0 when the candidate is out.
int32_t classifyMusic(TarqDlnaResMetadata& record, ResScore& score) {
  if (const NamedFormat* row = findFormat(musicProfileTable, record, kNameEquals)) {
    record.format.refer(row->format);
    score.rule = ruleOf(record);
    return kFirstPosition;
  }
  const char* extension = record.extension.c_str();
  for (const MusicMimeType& row : kMusicMimeTypes) {
    if (!equals(record.mimeType, row.mimeType)) continue;
    if (row.notAmr && (extension == nullptr || equalsIgnoringCase(extension, "amr"))) {
      score.rule = ResRule::kMimeTypeAmr;
      return 0;
    }
    record.format.refer(row.format);
    score.rule = ResRule::kMimeType;
    return row.firstPosition;
  }
  return 0;
}

// Writes format, rule and format points; false when the candidate is out.
bool classifyWma(TarqDlnaResMetadata& record, ResScore& score) {
  if (const NamedFormat* row = findFormat(wmaProfileTable, record, kNameBegins)) {
    record.format.refer(row->format);
    const bool seekable = record.dlnaPn.c_str() != nullptr && declaresByteSeek(record.fourthField.c_str());
    score.rule = seekable ? ResRule::kSeekable : ResRule::kNotSeekable;
    (seekable ? score.primary : score.secondary).format = seekable ? kSeekablePoints : kNotSeekablePoints;
    return true;
  }
  if (const NamedFormat* row = findFormat(musicProfileTable, record, kNameBegins)) {
    record.format.refer(row->format);
    score.rule = ruleOf(record);
    score.primary.format = kSeekablePoints;
    return true;
  }
  return false;
}

}  // namespace

bool TarqDlnaResSelection::IsWMAContent(int count, const TarqDlnaResMetadata* records) const {
  return std::any_of(records, records + std::max(count, 0), [](const TarqDlnaResMetadata& record) {
    return record.notConverted && findFormat(wmaProfileTable, record, kNameBegins) != nullptr;
  });
}

int TarqDlnaResSelection::selectMusicResIndex_WMA(int count, TarqDlnaResMetadata* records) {
  const auto scores = newScores(count);
  return scores == nullptr ? -1 : selectMusicResIndex_WMA(count, records, scores.get());
}

int TarqDlnaResSelection::selectMusicResIndex_WMA(int count, TarqDlnaResMetadata* records,
                                                  ResScore* scores) const {
  for (int i = 0; i < count; ++i) {
    if (!classifyWma(records[i], scores[i])) continue;
    scores[i].addWherePositive(&ResPoints::position, kFirstPosition - kPositionStep * i);
    if (records[i].notConverted) scores[i].addWherePositive(&ResPoints::notConverted, kNotConvertedPoints);
  }
  // Any candidate that can be sought beats every one that cannot.
  const int primary = bestPrimary(count, scores);
  if (primary != -1) return primary;
  BestScore best;
  for (int i = 0; i < count; ++i) best.offer(i, scores[i].secondary.total());
  return best.index;
}

int TarqDlnaResSelection::selectMusicResIndex(int count, TarqDlnaResMetadata* records) {
  const auto scores = newScores(count);
  return scores == nullptr ? -1 : selectMusicResIndex(count, records, scores.get());
}

int TarqDlnaResSelection::selectMusicResIndex(int count, TarqDlnaResMetadata* records,
                                              ResScore* scores) const {
  for (int i = 0; i < count; ++i) {
    const int32_t firstPosition = classifyMusic(records[i], scores[i]);
    if (firstPosition == 0) continue;
    scores[i].primary.position = firstPosition - kPositionStep * i;
    if (records[i].notConverted) scores[i].primary.notConverted = kNotConvertedPoints;
  }
  return bestPrimary(count, scores);
}
