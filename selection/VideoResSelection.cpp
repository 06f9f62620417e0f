#include <algorithm>
#include <string_view>
#include <utility>

#include "ResContest.h"
#include "TarqDlnaResSelection.h"
#include "TextMatch.h"
#include "VideoProfileTables.h"

namespace {

bool passes(const VideoMimeRow& row, const char* extension, int32_t region) {
  if (row.format == nullptr || (row.realMedia && region != kRealMediaRegion)) return false;
  return row.anyExtension || std::ranges::any_of(row.extensions, [&](const char* wanted) {
           return wanted != nullptr && equalsIgnoringCase(extension, wanted);
         });
}

// The one profile name that counts; absent when the record has none.
const VondString& profileName(const TarqDlnaResMetadata& record) {
  if (record.dlnaPn.c_str() != nullptr) return record.dlnaPn;
  return record.orsaPn.c_str() != nullptr ? record.orsaPn : record.aribPn;
}

}  // namespace

bool TarqDlnaResSelection::classifyVideo(TarqDlnaResMetadata& record) const {
  ResScore& score = record.score;
  if (!record.hasProfileName()) {
    score.primary.format = classifyByCodec(record);
    return score.primary.format != 0;
  }
  const int number = std::as_const(profileMap).get(profileName(record));
  if (number < 1) return classifyByMimeRow(record);
  const VideoProfileRow& row = videoProfileTable[static_cast<size_t>(number - 1)];
  if (!sharesBit(region, row.regionMask)) {  // its MIME type does not save it
    score.rule = ResRule::kProfileNotInRegion;
    return false;
  }
  record.format = row.format;
  score.rule = ResRule::kProfile;
  score.primary.format = kKnownFormatPoints;
  return true;
}

// By MIME type and extension.
// Returns: the points of the format, or 0 when there is none.
int32_t TarqDlnaResSelection::classifyByCodec(TarqDlnaResMetadata& record) const {
  int weight = 0;
  const char* format =
      getVideoCodecFormat(record.mimeType.c_str(), record.extension.c_str(), &weight, &record.score.rule);
  if (format != nullptr) record.format = format;
  return weight;
}

bool TarqDlnaResSelection::classifyByMimeRow(TarqDlnaResMetadata& record) const {
  const int position = std::as_const(mimeMap).get(record.mimeType);
  if (position < 1) return false;
  ResScore& score = record.score;
  for (const VideoMimeRow* row = &videoMimeTypes[static_cast<size_t>(position - 1)];; ++row) {
    if (passes(*row, record.extension.c_str(), region)) {
      record.format = row->format;
      score.rule = ResRule::kUnknownProfileMime;
      score.primary.format += kKnownFormatPoints;
    }
    if (!row->chained) return score.primary.format != 0;
  }
}

int TarqDlnaResSelection::selectVideoResIndex(int count, TarqDlnaResMetadata* records) {
  return runPictureContest(kVideoPoints, count, records,
                           [this](TarqDlnaResMetadata& record) { return classifyVideo(record); });
}

bool TarqDlnaResSelection::IsM3U8Content(int count, const TarqDlnaResMetadata* records) const {
  return firstThat(count, records, [](const TarqDlnaResMetadata& record) {
           const std::string_view mimeType = viewOf(record.mimeType);
           return record.notConverted && (mimeType.starts_with("application/x-mpegURL") ||
                                          mimeType.starts_with("application/vnd.apple.mpegURL"));
         }) != -1;
}
