#include "WhatIf.h"

#include <algorithm>
#include <cstring>

namespace {

using Record = TarqDlnaResMetadata;

// The format as which the record alone would win; null: it would not.
const char* formatAlone(ResContestKind kind, int32_t region, Record& record) {
  const TarqDlnaResSelection selection(region);
  ResScore score;
  const int winner = kind == ResContestKind::kMpo ? TarqDlnaResSelection::pickMpo(1, &record, nullptr)
                                                  : runContest(kind, selection, 1, &record, &score);
  if (winner != 0) return nullptr;
  return kind == ResContestKind::kMpo ? "MPO" : record.format.c_str();
}

// The contest that the record would come to without the others.
ResContestKind contestAlone(ResContestKind kind, const Record& record) {
  const TarqDlnaResSelection selection(0);
  switch (kind) {
    case ResContestKind::kMusic:
    case ResContestKind::kWma:
      return selection.IsWMAContent(1, &record) ? ResContestKind::kWma : ResContestKind::kMusic;
    case ResContestKind::kVideo:
    case ResContestKind::kWmv:
      return selection.IsWMVContent(1, &record) ? ResContestKind::kWmv : ResContestKind::kVideo;
    default:
      return kind;
  }
}

void dropParameters(Record& record) {
  const char* text = record.mimeType.c_str();
  if (text != nullptr) record.mimeType = VondString(text, std::strcspn(text, "; "));
}

void toLowerCase(Record& record) {
  if (record.mimeType.c_str() == nullptr) return;
  std::string text = record.mimeType.c_str();
  std::ranges::transform(text, text.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  record.mimeType = text.c_str();
}

void dropNames(Record& record) { record.dlnaPn = record.orsaPn = record.aribPn = VondString(); }

struct Change {
  const char* words;
  void (*make)(Record& record);
  bool alone = false;  // the change is of the contest, or may bring another one
};
constexpr Change kChanges[] = {
    {"without Windows Media beside it", [](Record&) {}, true},
    {"if the server had not converted it", [](Record& record) { record.notConverted = true; }, true},
    {"without the parameters of its MIME type", dropParameters},
    {"with its MIME type in lower case", toLowerCase},
    {"without its profile name", dropNames},
};

std::string wouldBe(const char* format, const std::string& words) {
  return std::string("would be ") + format + " " + words;
}

}  // namespace

int runContest(ResContestKind kind, const TarqDlnaResSelection& selection, int count,
               TarqDlnaResMetadata* records, ResScore* scores) {
  switch (kind) {
    case ResContestKind::kPhoto:
      return selection.selectPhotoResIndex(count, records, scores);
    case ResContestKind::kMusic:
      return selection.selectMusicResIndex(count, records, scores);
    case ResContestKind::kWma:
      return selection.selectMusicResIndex_WMA(count, records, scores);
    case ResContestKind::kVideo:
      return selection.selectVideoResIndex(count, records, scores);
    case ResContestKind::kWmv:
      return selection.selectVideoResIndex_WMV(count, records, scores);
    case ResContestKind::kNone:
    case ResContestKind::kMpo:
    case ResContestKind::kHlsRefused:
      break;
  }
  return -1;
}

std::string whatIf(ResContestKind kind, int32_t region, const TarqDlnaResMetadata& record) {
  for (const int32_t other : {1, 2, 4, 8, 16}) {
    Record copy = record;
    const char* format = other == region ? nullptr : formatAlone(kind, other, copy);
    if (format != nullptr) return wouldBe(format, "in region " + std::to_string(other));
  }
  for (const Change& change : kChanges) {
    Record copy = record;
    change.make(copy);
    const char* format = formatAlone(change.alone ? contestAlone(kind, copy) : kind, region, copy);
    if (format != nullptr) return wouldBe(format, change.words);
  }
  return {};
}
