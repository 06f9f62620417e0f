#include <algorithm>
#include <array>

#include "ResContest.h"
#include "ResolutionProxy.h"
#include "TarqDlnaResSelection.h"
#include "TextMatch.h"

namespace {

// JPEG_TN is missing on purpose: a thumbnail is never shown.
constexpr auto photoProfileTable = std::to_array<NamedFormat>({
    {"JPEG_LRG", "JPEG", "image/jpeg"},
    {"JPEG_MED", "JPEG", "image/jpeg"},
    {"JPEG_SM", "JPEG", "image/jpeg"},
    {"KZR", "KZR", "image/x-orsa-kzr"},
});
static_assert(photoProfileTable.size() == 4);

// A known format earns nothing of its own: position and size decide among photos.
bool classifyPhoto(TarqDlnaResMetadata& record) {
  const bool named = record.dlnaPn.c_str() != nullptr;
  const auto row =
      named ? std::ranges::find(photoProfileTable, viewOf(record.dlnaPn), &NamedFormat::profile)
            : std::ranges::find(photoProfileTable, viewOf(record.mimeType), &NamedFormat::mimeType);
  if (row == photoProfileTable.end()) return false;
  record.format = row->format;
  record.score.rule = named ? ResRule::kProfile : ResRule::kMimeType;
  return true;
}

int rankOf(int32_t entries, bool notConverted) {
  const int converted = entries == 2 || entries == 4                   ? 5
                        : entries == 3 || entries == 5 || entries == 6 ? 3
                                                                       : 1;
  return notConverted ? converted + 1 : converted;
}

MpoRank classifyMpo(const TarqDlnaResMetadata& record) {
  if (record.resolution == nullptr) return {};
  resolutionProxy proxy{record.resolution, nullptr};
  const int32_t width = proxy.GetWidth();
  const int32_t height = proxy.GetHeight();
  TARQ_Resolution_Destroy(proxy.parsed);

  const bool usable = width >= 1 && width <= kMaxSide && height >= 1 && height <= kMaxSide;
  if (!usable || record.dlnaPn.c_str() != nullptr || record.mpfEntries == 0) return {};
  return {.rank = rankOf(record.mpfEntries, record.notConverted),
          .overArea = width * height - kFullHdArea,
          .fullHd = width == kFullHdWidth && height == kFullHdHeight};
}

// Whether `photo` takes the lead from `best`. In a tie the best stays unless the candidate's size is better.
bool beats(const MpoRank& photo, const MpoRank& best) {
  if (photo.rank != best.rank) return photo.rank > best.rank;
  if (best.fullHd) return false;
  if (photo.fullHd) return true;
  if (photo.overArea > 0 && best.overArea > 0) return photo.overArea < best.overArea;
  if (photo.overArea < 0 && best.overArea < 0) return photo.overArea > best.overArea;
  return best.overArea < 0 && photo.overArea > 0;
}

// The multi-picture contest alone.
int pickMpo(int count, TarqDlnaResMetadata* records) {
  int index = -1;
  MpoRank best;
  for (int i = 0; i < count; ++i) {
    const MpoRank photo = classifyMpo(records[i]);
    records[i].score = {};
    records[i].score.rule = photo.rank == 0 ? ResRule::kNotMultiPicture : ResRule::kMultiPicture;
    records[i].score.mpo = photo;
    if (photo.rank == 0 || !beats(photo, best)) continue;
    best = photo;
    index = i;
  }
  return index;
}

}  // namespace

int TarqDlnaResSelection::selectPhotoResIndex(int count, TarqDlnaResMetadata* records) {
  return runPictureContest(kPhotoPoints, count, records, classifyPhoto);
}

int TarqDlnaResSelection::selectPhotoResIndex_MPO(int count, TarqDlnaResMetadata* records) {
  mpoPresent = false;
  const int index = pickMpo(count, records);
  if (index == -1) return selectPhotoResIndex(count, records);
  if (viewOf(records[index].mimeType) == "image/jpeg") records[index].format = "MPO";
  return index;
}
