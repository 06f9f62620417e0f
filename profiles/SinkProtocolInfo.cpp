#include "SinkProtocolInfo.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "MediaProfileTables.h"

namespace {

// Most pairs differ in the first byte: looking at it here saves a fifth of the whole build.
bool equal(const char* a, const char* b) { return *a == *b && std::strcmp(a, b) == 0; }

bool isDtcpName(const char* profile) { return std::string_view(profile).starts_with("DTCP_"); }

// What an entry says of the content: third field, and DLNA.ORG_FLAGS of the fourth.
struct ContentFormat {
  bool dtcp;             // `mimeType` is what the link-protected stream holds
  const char* mimeType;  // "" for a group that the table does not know
  const char* flags;
};

ContentFormat contentFormatOf(const TarqDmrMediaProfile& row) {
  const auto group = std::ranges::find_if(profileGroupTable, [&](const ProfileGroup& candidate) {
    return equal(candidate.group, row.formatGroup);
  });
  const bool known = group != profileGroupTable.end();
  const char* mimeType = known ? group->mimeType : "";
  const char* flags = known ? group->flags : "";

  if (isDtcpName(row.profile)) return {true, mimeType, "8d710000000000000000000000000000"};
  if (row.isDtcp == 1) return {true, mimeType, "CD310000000000000000000000000000"};
  // VC-1 in ASF is Windows Media video, but not under the group's MIME type.
  if (equal(row.profile, "VC1_ASF_AP_L1_WMA") || equal(row.profile, "VC1_ASF_AP_L2_WMA")) {
    return {false, "video/x-ms-asf", flags};
  }
  return {false, mimeType, flags};
}

void addProfileName(VondString& out, const TarqDmrMediaProfile& row) {
  out.append(row.pnName).append("=").append(row.profile);
}

}  // namespace

const TarqDmrMediaProfile* getMultiplexProfile(const TarqDmrMediaProfile& row,
                                               TarqDmrMediaProfileTableIterator& it) {
  if (row.pnName == nullptr) return nullptr;
  for (const MultiplexProfile& pair : multiplexProfileTable) {
    if (!equal(row.profile, pair.primaryProfile) || !equal(row.pnName, pair.primaryName)) continue;
    while (const TarqDmrMediaProfile* partner = it.Next()) {
      if (partner->pnName != nullptr && equal(partner->profile, pair.secondaryProfile) &&
          equal(partner->pnName, pair.secondaryName)) {
        return partner;
      }
    }
  }
  return nullptr;
}

void addProtocolInfo(VondString& out, const TarqDmrMediaProfile& row, const TarqDmrMediaProfile* partner) {
  out.append("http-get:*:");
  if (row.pnName == nullptr) {
    out.append(row.profile).append(":*");
    return;
  }
  const ContentFormat content = contentFormatOf(row);
  if (content.dtcp) {
    out.append("application/x-dtcp1;CONTENTFORMAT=\"").append(content.mimeType).append("\"");
  } else {
    out.append(content.mimeType);
  }
  out.append(":");
  addProfileName(out, row);
  if (partner != nullptr) {
    out.append(";");
    addProfileName(out, *partner);
  }
  out.append(";DLNA.ORG_FLAGS=").append(content.flags);
}

const char* TarqDmrMediaProfile_GetProtocolInfo() {
  static VondString result;
  result = "";
  VondString others;
  // Of the whole build, not of a list: row 0 is a DLNA row, so the result starts without a comma.
  bool first = true;
  // Stays until it is reached: the partner need not be the next row.
  const TarqDmrMediaProfile* merged = nullptr;

  TarqDmrMediaProfileTableIterator rows;
  while (const TarqDmrMediaProfile* row = rows.Next()) {
    if (row == merged) {
      merged = nullptr;
      continue;
    }
    TarqDmrMediaProfileTableIterator fresh;
    const TarqDmrMediaProfile* partner = getMultiplexProfile(*row, fresh);
    if (partner != nullptr) merged = partner;

    const bool isDlnaRow = row->pnName != nullptr && equal(row->pnName, kDlnaPn);
    VondString& target = isDlnaRow ? result : others;
    if (!first) target.append(",");
    addProtocolInfo(target, *row, partner);
    first = false;
  }
  result.append(others.c_str());
  return result.c_str();
}
