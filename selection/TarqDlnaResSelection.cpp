#include "TarqDlnaResSelection.h"

#include <cstdlib>
#include <cstring>

#include "TextMatch.h"
#include "VideoProfileTables.h"
#include "VondNameValueList.h"
#include "VondProtocolInfo.h"

namespace {

// Decimal digits as C's atoi reads them, wrapping around instead of overflowing.
int32_t toInteger(const char* text) {
  return static_cast<int32_t>(static_cast<uint32_t>(std::strtoll(text, nullptr, 10)));
}

const char* attributeValue(const TARQ_Attributes* attributes, const char* name) {
  return plainText(TARQ_Attributes_GetValue(attributes, cdsText(name)));
}

// The third protocolInfo field, or what link-protected content wraps into it. False when that does not parse.
bool readMimeType(const char* contentFormat, VondString& mimeType) {
  if (contentFormat == nullptr) return true;
  if (!TarqDlnaResSelection::wrapsMimeType(contentFormat)) {
    mimeType = contentFormat;
    return true;
  }
  const VondPI4thField parameters(contentFormat);
  if (!parameters.IsValid()) return false;
  mimeType = parameters.GetParameter("CONTENTFORMAT");
  return true;
}

}  // namespace

bool TarqDlnaResSelection::wrapsMimeType(const char* contentFormat) {
  return contentFormat != nullptr && std::strstr(contentFormat, "CONTENTFORMAT") != nullptr;
}

int TarqDlnaResSelection::getFileExtension(const char* url, VondString& extension) {
  const char* segment = std::strrchr(url, '/');
  if (segment == nullptr) return -1;
  const char* dot = std::strchr(segment, '.');
  const char* begin = dot == nullptr ? "" : dot + 1;
  const char* query = std::strchr(begin, '?');
  extension.assign(begin, query == nullptr ? std::strlen(begin) : static_cast<size_t>(query - begin));
  return 0;
}

// False when the element does not parse; the record may then be half filled.
bool TarqDlnaResSelection::readRecord(const TARQ_Object* object, unsigned int index,
                                      TarqDlnaResMetadata& record) {
  const TARQ_Attributes* attributes = TARQ_Object_GetAttributes(object, cdsText("res"), index);
  if (attributes == nullptr) return false;
  const char* protocolInfo = attributeValue(attributes, "protocolInfo");
  if (protocolInfo == nullptr) return false;
  const char* url = resUrl(object, index);
  if (url == nullptr) return false;
  const VondProtocolInfo fields(protocolInfo);  // not valid without a ":"
  if (!fields.IsValid() || !readMimeType(fields.GetField(3), record.mimeType)) return false;
  getFileExtension(url, record.extension);

  const char* fourthField = fields.GetField(4);
  if (fourthField == nullptr) return true;  // unclassified, yet its MIME type may still win a contest
  const VondPI4thField parameters(fourthField);
  if (!parameters.IsValid()) return false;
  record.fourthField.refer(fourthField);  // the end of the attribute's own text
  record.dlnaPn = parameters.GetParameter("DLNA.ORG_PN");
  record.orsaPn = parameters.GetParameter("ORSA.COM_PN");
  record.aribPn = parameters.GetParameter("ARIB.OR.JP_PN");
  const char* converted = parameters.GetParameter("DLNA.ORG_CI");
  record.notConverted = converted == nullptr || std::strcmp(converted, "0") == 0;

  record.category =
      selectMediaCategory(record.mimeType.c_str(), record.extension.c_str(), record.dlnaPn.c_str());
  if (record.category == kCategoryPhoto || record.category == kCategoryVideo) {
    record.resolution.refer(attributeValue(attributes, "resolution"));
  }
  if (record.category == kCategoryPhoto) {
    const char* entries = attributeValue(attributes, "av:mpfEntries");
    record.mpfEntries = entries == nullptr ? 0 : toInteger(entries);
    if (record.mpfEntries >= 2) mpoPresent = true;
  }
  return true;
}

int TarqDlnaResSelection::readRecords(const TARQ_Object* object, TarqDlnaResMetadata* records, int count) {
  int lastClassified = -1;
  for (int i = 0; i < count; ++i) {
    if (!readRecord(object, static_cast<unsigned int>(i), records[i])) {
      records[i] = TarqDlnaResMetadata();  // what does not parse leaves no trace
    } else if (records[i].category != kCategoryUnknown) {
      lastClassified = i;
    }
  }
  return lastClassified;
}

// Music and video outrank photos; between those two the later element decides.
int TarqDlnaResSelection::decidingRecord(const TarqDlnaResMetadata* records, int lastClassified) {
  for (int i = lastClassified; i >= 0; --i) {
    if (records[i].category == kCategoryMusic || records[i].category == kCategoryVideo) return i;
  }
  return lastClassified;
}

ResContestKind TarqDlnaResSelection::contestFor(const TarqDlnaResMetadata* records, int count,
                                                int lastClassified, int excludeHls) const {
  if (lastClassified == -1) return ResContestKind::kNone;
  switch (records[decidingRecord(records, lastClassified)].category) {
    case kCategoryPhoto:
      return mpoPresent ? ResContestKind::kMpo : ResContestKind::kPhoto;
    case kCategoryMusic:
      return IsWMAContent(count, records) ? ResContestKind::kWma : ResContestKind::kMusic;
    default:
      if (IsWMVContent(count, records)) return ResContestKind::kWmv;
      return excludeHls != 0 && IsM3U8Content(count, records) ? ResContestKind::kHlsRefused
                                                              : ResContestKind::kVideo;
  }
}

int TarqDlnaResSelection::selectMediaResIndex(const TARQ_Object* object, TarqDlnaResMetadata* records,
                                              int count, int* selected, int excludeHls) {
  if (!profilesMapped) maptheProfiles();
  if (count < 1) return 0;
  const int lastClassified = readRecords(object, records, count);
  switch (contestFor(records, count, lastClassified, excludeHls)) {
    case ResContestKind::kPhoto:
      *selected = selectPhotoResIndex(count, records);
      break;
    case ResContestKind::kMpo:
      *selected = selectPhotoResIndex_MPO(count, records);
      break;
    case ResContestKind::kMusic:
      *selected = selectMusicResIndex(count, records);
      break;
    case ResContestKind::kWma:
      *selected = selectMusicResIndex_WMA(count, records);
      break;
    case ResContestKind::kVideo:
      *selected = selectVideoResIndex(count, records);
      break;
    case ResContestKind::kWmv:
      *selected = selectVideoResIndex_WMV(count, records);
      break;
    case ResContestKind::kNone:
    case ResContestKind::kHlsRefused:
      break;
  }
  return 0;
}
