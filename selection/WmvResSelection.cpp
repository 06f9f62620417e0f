#include <algorithm>

#include "TarqDlnaResSelection.h"
#include "TextMatch.h"
#include "VideoProfileTables.h"

// The contest of objects that carry Windows Media video. Unlike the ordinary one it compares profile names by
// prefix (the first row that fits wins) and keeps two scores per candidate.

namespace {

constexpr int32_t kFirstPosition = 1000;
constexpr int32_t kTooLargePoints = -3000;
constexpr int32_t kPrimaryPoints = 200;
constexpr int32_t kSecondaryPoints = 100;

template <class Table>
const VideoProfileRow* findByPrefix(const Table& table, int32_t region, const TarqDlnaResMetadata& record) {
  const auto row = std::ranges::find_if(table, [&](const VideoProfileRow& candidate) {
    return candidate.appliesIn(region) && beginsWith(record.*candidate.keyedOn, candidate.profile);
  });
  return row == table.end() ? nullptr : &*row;
}

void scorePicture(const PictureSize& size, ResScore& score) {
  if (size.kind == PictureSize::kFullHd) score.addWherePositive(&ResPoints::resolution, kFullHdPoints);
  if (size.kind != PictureSize::kTooLarge) return;
  score.primary.resolution += kTooLargePoints;  // from both, whatever their values
  score.secondary.resolution += kTooLargePoints;
}

// One running best over both kinds: a secondary score wins only when it is higher than every primary one.
int pick(int count, const ResScore* scores) {
  BestScore best;
  for (int i = 0; i < count; ++i) best.offer(i, scores[i].primary.total());
  for (int i = 0; i < count; ++i) best.offer(i, scores[i].secondary.total());
  return best.index;
}

}  // namespace

bool TarqDlnaResSelection::IsWMVContent(int count, const TarqDlnaResMetadata* records) const {
  return std::any_of(records, records + std::max(count, 0), [](const TarqDlnaResMetadata& record) {
    if (!record.notConverted) return false;
    if (record.dlnaPn.c_str() == nullptr)
      return beginsWith(record.mimeType, "video/x-ms-wmv") || beginsWith(record.mimeType, "video/x-ms-asf");
    return std::ranges::any_of(wmvProfileTable,
                               [&](auto& row) { return beginsWith(record.dlnaPn, row.profile); });
  });
}

bool TarqDlnaResSelection::classifyWmv(TarqDlnaResMetadata& record, ResScore& score) const {
  if (const VideoProfileRow* row = findByPrefix(wmvProfileTable, region, record)) {
    record.format.refer(row->format);
    const bool seekable = declaresByteSeek(record.fourthField.c_str());
    score.rule = seekable ? ResRule::kSeekable : ResRule::kNotSeekable;
    (seekable ? score.primary : score.secondary).format = seekable ? kPrimaryPoints : kSecondaryPoints;
    return true;
  }
  if (const VideoProfileRow* row = findByPrefix(videoProfileTable, region, record)) {
    record.format.refer(row->format);
    score.rule = ResRule::kProfile;
    score.primary.format = kPrimaryPoints;
    return true;
  }
  const bool named = record.dlnaPn.c_str() != nullptr || record.orsaPn.c_str() != nullptr ||
                     record.aribPn.c_str() != nullptr;
  if (!named) {
    const int32_t weight = classifyByCodec(record, score.rule);
    (weight == kSecondaryPoints ? score.secondary : score.primary).format = weight;
    return weight != 0;
  }
  if (!beginsWith(record.mimeType, "video/mp4")) return false;
  record.format.refer("MPEG4");
  score.rule = ResRule::kUnknownProfileMime;
  score.primary.format = kPrimaryPoints;
  return true;
}

int TarqDlnaResSelection::selectVideoResIndex_WMV(int count, TarqDlnaResMetadata* records) {
  const auto scores = newScores(count);
  return scores == nullptr ? -1 : selectVideoResIndex_WMV(count, records, scores.get());
}

int TarqDlnaResSelection::selectVideoResIndex_WMV(int count, TarqDlnaResMetadata* records,
                                                  ResScore* scores) const {
  NearestFullHd nearest;
  for (int i = 0; i < count; ++i) {
    if (!classifyWmv(records[i], scores[i])) continue;
    scores[i].addWherePositive(&ResPoints::position, kFirstPosition - kPositionStep * i);
    if (records[i].notConverted) scores[i].addWherePositive(&ResPoints::notConverted, kNotConvertedPoints);
    const PictureSize size = measurePicture(records[i].resolution);
    scorePicture(size, scores[i]);
    nearest.offer(i, size);
  }
  if (nearest.candidate() != -1)
    scores[nearest.candidate()].addWherePositive(&ResPoints::nearest, kNearestPoints);
  return pick(count, scores);
}
