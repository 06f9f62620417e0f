#include <algorithm>
#include <string_view>

#include "ResContest.h"
#include "TarqDlnaResSelection.h"
#include "TextMatch.h"
#include "VideoProfileTables.h"

// The contest of objects that carry Windows Media video. Unlike the ordinary one it compares profile names by
// prefix (the first row that fits wins) and keeps two scores per candidate.

namespace {

template <class Table>
const VideoProfileRow* findByPrefix(const Table& table, int32_t region, const TarqDlnaResMetadata& record) {
  const auto row = std::ranges::find_if(table, [&](const VideoProfileRow& candidate) {
    return sharesBit(region, candidate.regionMask) &&
           viewOf(record.*candidate.keyedOn).starts_with(candidate.profile);
  });
  return row == table.end() ? nullptr : &*row;
}

void scorePicture(const PictureSize& size, ResScore& score) {
  if (size.kind == PictureSize::kFullHd) score.addWherePositive(&ResPoints::resolution, kFullHdPoints);
  if (size.kind != PictureSize::kTooLarge) return;
  score.primary.resolution += kVideoPoints.tooLarge;  // from both, whatever their values
  score.secondary.resolution += kVideoPoints.tooLarge;
}

// One running best over both scores: a secondary one wins only when it is higher than every primary one.
int pick(int count, const TarqDlnaResMetadata* records) {
  BestScore best;
  best.offerAll(count, records, &ResScore::primary);
  best.offerAll(count, records, &ResScore::secondary);
  return best.index;
}

// Without a profile name the MIME type counts; with another one it does not.
bool isWindowsMedia(const TarqDlnaResMetadata& record) {
  if (record.dlnaPn.c_str() == nullptr) {
    const std::string_view mimeType = viewOf(record.mimeType);
    return mimeType.starts_with("video/x-ms-wmv") || mimeType.starts_with("video/x-ms-asf");
  }
  const std::string_view profile = viewOf(record.dlnaPn);
  return std::ranges::any_of(wmvProfileTable, [&](auto& row) { return profile.starts_with(row.profile); });
}

void take(TarqDlnaResMetadata& record, const char* format, ResRule rule, ResPoints ResScore::*score,
          int32_t points) {
  record.format = format;
  record.score.rule = rule;
  (record.score.*score).format = points;
}

}  // namespace

int firstWindowsMediaVideo(int count, const TarqDlnaResMetadata* records) {
  return firstThat(count, records, [](const TarqDlnaResMetadata& record) {
    return record.notConverted && isWindowsMedia(record);
  });
}

bool TarqDlnaResSelection::IsWMVContent(int count, const TarqDlnaResMetadata* records) const {
  return firstWindowsMediaVideo(count, records) != -1;
}

bool TarqDlnaResSelection::classifyWmv(TarqDlnaResMetadata& record) const {
  if (const VideoProfileRow* row = findByPrefix(wmvProfileTable, region, record)) {
    if (declaresByteSeek(record.fourthField)) {
      take(record, row->format, ResRule::kSeekable, &ResScore::primary, kKnownFormatPoints);
    } else {
      take(record, row->format, ResRule::kNotSeekable, &ResScore::secondary, kWeakFormatPoints);
    }
    return true;
  }
  if (const VideoProfileRow* row = findByPrefix(videoProfileTable, region, record)) {
    take(record, row->format, ResRule::kProfile, &ResScore::primary, kKnownFormatPoints);
    return true;
  }
  if (!record.hasProfileName()) {
    const int32_t points = classifyByCodec(record);
    (points == kWeakFormatPoints ? record.score.secondary : record.score.primary).format = points;
    return points != 0;
  }
  if (!viewOf(record.mimeType).starts_with("video/mp4")) return false;
  take(record, "MPEG4", ResRule::kUnknownProfileMime, &ResScore::primary, kKnownFormatPoints);
  return true;
}

int TarqDlnaResSelection::selectVideoResIndex_WMV(int count, TarqDlnaResMetadata* records) {
  NearestFullHd nearest;
  for (int i = 0; i < count; ++i) {
    TarqDlnaResMetadata& record = records[i];
    record.score = {};
    if (!classifyWmv(record)) continue;
    record.score.addWherePositive(&ResPoints::position, kVideoPoints.firstPosition - kPositionStep * i);
    if (record.notConverted) record.score.addWherePositive(&ResPoints::notConverted, kNotConvertedPoints);
    const PictureSize size = measurePicture(record.resolution);
    scorePicture(size, record.score);
    nearest.offer(i, size);
  }
  if (nearest.candidate() != -1) {
    records[nearest.candidate()].score.addWherePositive(&ResPoints::nearest, kNearestPoints);
  }
  return pick(count, records);
}
