#include "WhatIf.h"

#include <algorithm>
#include <cstring>

#include "Region.h"

namespace {

using Record = TarqDlnaResMetadata;

// Whether the record alone would win the contest of `choice`; writes its format.
bool winsAlone(ResChoice choice, int32_t region, Record& record) {
  const ResContestKind contest = choice.contest;
  TarqDlnaResSelection(region).holdContest(choice, 1, &record);
  return choice.winner == 0 && choice.contest == contest;
}

// The same for the contest that the record would call for without the others.
bool winsWithoutOthers(ResChoice choice, int32_t region, Record& record) {
  TarqDlnaResSelection(region).decideContest(choice, 1, &record, 0);
  return winsAlone(choice, region, record);
}

void dropParameters(Record& record) {
  const char* mimeType = record.mimeType.c_str();
  if (mimeType != nullptr) record.mimeType = std::string(mimeType, std::strcspn(mimeType, "; ")).c_str();
}

void toLowerCase(Record& record) {
  if (record.mimeType.c_str() == nullptr) return;
  std::string mimeType = record.mimeType.c_str();
  std::ranges::transform(mimeType, mimeType.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  record.mimeType = mimeType.c_str();
}

void dropNames(Record& record) { record.dlnaPn = record.orsaPn = record.aribPn = nullptr; }

struct Change {
  const char* key;
  const char* words;
  void (*make)(Record& record);
  bool ofContest =
      false;  // it may lead to another contest; that of a photo depends on its picture count only
};
constexpr Change kChanges[] = {
    {"withoutWindowsMedia", "without Windows Media beside it", [](Record&) {}, true},
    {"notConverted", "if the server had not converted it", [](Record& record) { record.notConverted = true; },
     true},
    {"withoutMimeParameters", "without the parameters of its MIME type", dropParameters},
    {"lowerCaseMimeType", "with its MIME type in lower case", toLowerCase},
    {"withoutProfileName", "without its profile name", dropNames},
};

}  // namespace

std::optional<WhatIf> whatIf(const ResChoice& choice, int32_t region, const TarqDlnaResMetadata& record) {
  for (const int32_t other : {0x01, 0x02, 0x04, 0x08, kRealMediaRegion}) {
    Record copy = record;
    if (other != region && winsAlone(choice, other, copy)) {
      return WhatIf{"region", "in region " + std::to_string(other), other, copy.format};
    }
  }
  for (const Change& change : kChanges) {
    if (change.ofContest && choice.kind == kCategoryPhoto) continue;
    Record copy = record;
    change.make(copy);
    const bool wins =
        change.ofContest ? winsWithoutOthers(choice, region, copy) : winsAlone(choice, region, copy);
    if (wins) return WhatIf{change.key, change.words, region, copy.format};
  }
  return std::nullopt;
}
