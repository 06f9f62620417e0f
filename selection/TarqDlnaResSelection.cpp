#include "TarqDlnaResSelection.h"

#include <cstdlib>
#include <cstring>
#include <memory>

#include "FourthField.h"
#include "ResContest.h"
#include "VideoProfileTables.h"
#include "VondNameValueList.h"
#include "VondProtocolInfo.h"

namespace {

// Decimal digits as C's atoi reads them, wrapping around instead of overflowing.
int32_t toInteger(const char* string) {
  return static_cast<int32_t>(static_cast<uint32_t>(std::strtoll(string, nullptr, 10)));
}

const char* attributeValue(const TARQ_Attributes* attributes, const char* name) {
  return plainText(TARQ_Attributes_GetValue(attributes, cdsText(name)));
}

// Reads the third protocolInfo field, which wraps the MIME type of link-protected content.
// Returns: false when it should wrap one but does not parse.
bool readMimeType(const char* contentFormat, TarqDlnaResMetadata& record) {
  if (contentFormat == nullptr) return true;
  if (std::strstr(contentFormat, "CONTENTFORMAT") == nullptr) {
    record.mimeType = contentFormat;
    return true;
  }
  const VondPI4thField parameters(contentFormat);
  if (!parameters.IsValid()) return false;
  record.mimeType = parameters.GetParameter("CONTENTFORMAT");
  record.mimeTypeWrapped = true;
  return true;
}

// The fourth protocolInfo field as the document has it: everything after the third colon.
// Null: returned when there are fewer colons.
const char* afterThirdColon(const char* protocolInfo) {
  const char* rest = protocolInfo;
  for (int colons = 0; colons < 3 && rest != nullptr; ++colons) {
    rest = std::strchr(rest, ':');
    if (rest != nullptr) ++rest;
  }
  return rest;
}

void readParameters(const VondPI4thField& parameters, TarqDlnaResMetadata& record) {
  record.dlnaPn = parameters.GetParameter(kDlnaPn);
  record.orsaPn = parameters.GetParameter(kOrsaPn);
  record.aribPn = parameters.GetParameter(kAribPn);
  const char* conversion = parameters.GetParameter(kConversion);
  record.notConverted = conversion == nullptr || std::strcmp(conversion, "0") == 0;
}

// The record whose category is the media kind of the object: music and video outrank photos, and between
// those two the later element decides.
// Returns: its index, -1 when no record is photo, music or video.
int kindDecidingRecord(const TarqDlnaResMetadata* records, int count) {
  int lastPhoto = -1;
  for (int i = count - 1; i >= 0; --i) {
    if (records[i].category == kCategoryMusic || records[i].category == kCategoryVideo) return i;
    if (records[i].category == kCategoryPhoto && lastPhoto == -1) lastPhoto = i;
  }
  return lastPhoto;
}

// What the contest leaves open: why no rule knows a record.
ResRule finalRule(const TarqDlnaResMetadata& record, MediaCategory kind) {
  if (record.skip != ResSkip::kNone) return ResRule::kSkipped;
  if (record.score.rule != ResRule::kUnknown) return record.score.rule;
  if (record.category != kCategoryUnknown && record.category != kind) return ResRule::kOtherKind;
  if (record.hasProfileName()) return ResRule::kUnknownProfile;
  return record.mimeType.c_str() == nullptr ? ResRule::kNoMimeType : ResRule::kUnknownMimeType;
}

}  // namespace

int TarqDlnaResSelection::getFileExtension(const char* url, VondString& extension) {
  const char* segment = std::strrchr(url, '/');
  if (segment == nullptr) return -1;
  const char* dot = std::strchr(segment, '.');
  const char* begin = dot == nullptr ? "" : dot + 1;
  const char* query = std::strchr(begin, '?');
  if (query == nullptr) {
    extension = begin;
  } else {
    const std::unique_ptr<char, void (*)(void*)> cut(strndup(begin, static_cast<size_t>(query - begin)),
                                                     std::free);
    extension = cut.get();
  }
  return 0;
}

// Returns: why the element was skipped; the record may then be half filled.
ResSkip TarqDlnaResSelection::readRecord(const TARQ_Object* object, unsigned int index,
                                         TarqDlnaResMetadata& record) {
  const TARQ_Attributes* attributes = TARQ_Object_GetAttributes(object, cdsText("res"), index);
  const char* protocolInfo = attributes == nullptr ? nullptr : attributeValue(attributes, "protocolInfo");
  if (protocolInfo == nullptr) return ResSkip::kNoProtocolInfo;
  if (std::strchr(protocolInfo, ':') == nullptr) return ResSkip::kNoColon;
  const char* url = resUrl(object, index);
  if (url == nullptr) return ResSkip::kNoUrl;
  const VondProtocolInfo fields(protocolInfo);
  if (!fields.IsValid()) return ResSkip::kBadProtocolInfo;
  if (!readMimeType(fields.GetField(3), record)) return ResSkip::kBadContentFormat;
  getFileExtension(url, record.extension);

  if (fields.GetField(4) == nullptr) return ResSkip::kNone;  // its MIME type may still win a contest
  record.fourthField = afterThirdColon(protocolInfo);
  const VondPI4thField parameters(record.fourthField);
  if (!parameters.IsValid()) return ResSkip::kBadFourthField;
  readParameters(parameters, record);
  classifyMedia(attributes, record);
  return ResSkip::kNone;
}

void TarqDlnaResSelection::classifyMedia(const TARQ_Attributes* attributes, TarqDlnaResMetadata& record) {
  record.category = selectMediaCategory(record.mimeType.c_str(), record.extension.c_str(),
                                        record.dlnaPn.c_str(), &record.categoryBy);
  if (record.category == kCategoryPhoto || record.category == kCategoryVideo) {
    record.resolution = attributeValue(attributes, "resolution");
  }
  if (record.category != kCategoryPhoto) return;
  const char* entries = attributeValue(attributes, "av:mpfEntries");
  record.mpfEntries = entries == nullptr ? 0 : toInteger(entries);
  if (record.mpfEntries >= 2) mpoPresent = true;
}

void TarqDlnaResSelection::readRecords(const TARQ_Object* object, TarqDlnaResMetadata* records, int count) {
  for (int i = 0; i < count; ++i) {
    const ResSkip skip = readRecord(object, static_cast<unsigned int>(i), records[i]);
    if (skip == ResSkip::kNone) continue;
    records[i] = TarqDlnaResMetadata();  // what does not parse leaves no trace
    records[i].skip = skip;
  }
}

void TarqDlnaResSelection::decideContest(ResChoice& choice, int count, const TarqDlnaResMetadata* records,
                                         int excludeHls) const {
  switch (choice.kind) {
    case kCategoryPhoto:
      choice.contest = mpoPresent ? ResContestKind::kMpo : ResContestKind::kPhoto;
      choice.contestFrom = firstThat(count, records, [](auto& record) { return record.mpfEntries >= 2; });
      return;
    case kCategoryMusic:
      choice.contestFrom = firstWindowsMediaAudio(count, records);
      choice.contest = choice.contestFrom == -1 ? ResContestKind::kMusic : ResContestKind::kWma;
      return;
    case kCategoryVideo: {
      choice.contestFrom = firstWindowsMediaVideo(count, records);
      const bool refused = excludeHls != 0 && IsM3U8Content(count, records);
      choice.contest = choice.contestFrom != -1 ? ResContestKind::kWmv
                       : refused                ? ResContestKind::kHlsRefused
                                                : ResContestKind::kVideo;
      return;
    }
    case kCategoryUnknown:
      choice.contest = ResContestKind::kNone;
      return;
  }
}

int TarqDlnaResSelection::runContest(ResContestKind contest, int count, TarqDlnaResMetadata* records) {
  switch (contest) {
    case ResContestKind::kPhoto:
      return selectPhotoResIndex(count, records);
    case ResContestKind::kMpo:
      return selectPhotoResIndex_MPO(count, records);
    case ResContestKind::kMusic:
      return selectMusicResIndex(count, records);
    case ResContestKind::kWma:
      return selectMusicResIndex_WMA(count, records);
    case ResContestKind::kVideo:
      return selectVideoResIndex(count, records);
    case ResContestKind::kWmv:
      return selectVideoResIndex_WMV(count, records);
    case ResContestKind::kNone:
    case ResContestKind::kHlsRefused:
      break;
  }
  return -1;
}

void TarqDlnaResSelection::holdContest(ResChoice& choice, int count, TarqDlnaResMetadata* records) {
  choice.winner = runContest(choice.contest, count, records);
  if (choice.contest != ResContestKind::kMpo) return;
  const bool byRank = choice.winner != -1 && records[choice.winner].score.rule == ResRule::kMultiPicture;
  if (!byRank) choice.contest = ResContestKind::kPhoto;
}

ResChoice TarqDlnaResSelection::choose(const TARQ_Object* object, TarqDlnaResMetadata* records, int count,
                                       int excludeHls) {
  if (!profilesMapped) maptheProfiles();
  readRecords(object, records, count);
  ResChoice choice;
  choice.kindFrom = kindDecidingRecord(records, count);
  if (choice.kindFrom == -1) return choice;
  choice.kind = records[choice.kindFrom].category;
  decideContest(choice, count, records, excludeHls);
  holdContest(choice, count, records);
  for (int i = 0; i < count; ++i) records[i].score.rule = finalRule(records[i], choice.kind);
  return choice;
}

int TarqDlnaResSelection::selectMediaResIndex(const TARQ_Object* object, TarqDlnaResMetadata* records,
                                              int count, int* selected, int excludeHls) {
  const ResChoice choice = choose(object, records, count, excludeHls);
  if (choice.contestHeld()) *selected = choice.winner;
  return 0;
}
