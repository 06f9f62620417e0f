#include <array>

#include "ResolutionProxy.h"
#include "TarqDlnaResSelection.h"
#include "TextMatch.h"

namespace {

constexpr PictureContest kPhotoContest = {.firstPosition = 100, .tooLarge = -1700};

// JPEG_TN is missing on purpose: a thumbnail is never shown.
constexpr auto photoProfileTable = std::to_array<NamedFormat>({
    {"JPEG_LRG", "JPEG", "image/jpeg"},
    {"JPEG_MED", "JPEG", "image/jpeg"},
    {"JPEG_SM", "JPEG", "image/jpeg"},
    {"KZR", "KZR", "image/x-orsa-kzr"},
});
static_assert(photoProfileTable.size() == 4);

// A known format earns nothing of its own: position and size decide among photos.
bool classifyPhoto(TarqDlnaResMetadata& record, ResScore& score) {
  const bool named = record.dlnaPn.c_str() != nullptr;
  for (const NamedFormat& row : photoProfileTable) {
    if (named ? equals(record.dlnaPn, row.profile) : equals(record.mimeType, row.mimeType)) {
      record.format.refer(row.format);
      score.rule = named ? ResRule::kProfile : ResRule::kMimeType;
      return true;
    }
  }
  return false;
}

int mpoRank(int32_t entries, bool notConverted) {
  const int converted = entries == 2 || entries == 4                   ? 5
                        : entries == 3 || entries == 5 || entries == 6 ? 3
                                                                       : 1;
  return notConverted ? converted + 1 : converted;
}

MpoPhoto classifyMpo(const TarqDlnaResMetadata& record) {
  if (record.resolution.c_str() == nullptr) return {};
  resolutionProxy proxy{record.resolution.c_str(), nullptr};
  const int32_t width = proxy.GetWidth();
  const int32_t height = proxy.GetHeight();
  TARQ_Resolution_Destroy(proxy.parsed);

  const bool usable = width >= 1 && width <= kMaxSide && height >= 1 && height <= kMaxSide;
  if (!usable || record.dlnaPn.c_str() != nullptr || record.mpfEntries == 0) return {};
  return {.rank = mpoRank(record.mpfEntries, record.notConverted),
          .overArea = width * height - kFullHdArea,
          .fullHd = width == kFullHdWidth && height == kFullHdHeight};
}

// Whether `photo` takes the lead from `best`. In a tie the best stays unless the candidate's size is better.
bool beats(const MpoPhoto& photo, const MpoPhoto& best) {
  if (photo.rank != best.rank) return photo.rank > best.rank;
  if (best.fullHd) return false;
  if (photo.fullHd) return true;
  if (photo.overArea > 0 && best.overArea > 0) return photo.overArea < best.overArea;
  if (photo.overArea < 0 && best.overArea < 0) return photo.overArea > best.overArea;
  return best.overArea < 0 && photo.overArea > 0;
}

}  // namespace

int TarqDlnaResSelection::selectPhotoResIndex(int count, TarqDlnaResMetadata* records) {
  const auto scores = newScores(count);
  return scores == nullptr ? -1 : selectPhotoResIndex(count, records, scores.get());
}

int TarqDlnaResSelection::selectPhotoResIndex(int count, TarqDlnaResMetadata* records,
                                              ResScore* scores) const {
  return runPictureContest(kPhotoContest, count, records, scores, classifyPhoto);
}

int TarqDlnaResSelection::selectPhotoResIndex_MPO(int count, TarqDlnaResMetadata* records) {
  mpoPresent = false;
  const int index = pickMpo(count, records, nullptr);
  if (index == -1) return selectPhotoResIndex(count, records);
  if (equals(records[index].mimeType, "image/jpeg")) records[index].format.refer("MPO");
  return index;
}

int TarqDlnaResSelection::pickMpo(int count, const TarqDlnaResMetadata* records, MpoPhoto* photos) {
  int index = -1;
  MpoPhoto best;
  for (int i = 0; i < count; ++i) {
    const MpoPhoto photo = classifyMpo(records[i]);
    if (photos != nullptr) photos[i] = photo;
    if (photo.rank == 0 || !beats(photo, best)) continue;
    best = photo;
    index = i;
  }
  return index;
}
