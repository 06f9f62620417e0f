#ifndef MEDIA_FOURTH_FIELD_H_
#define MEDIA_FOURTH_FIELD_H_

#include <array>

// The parameters of the fourth protocolInfo field that the rules read.
// Source: DLNA guidelines, part 1-1, 7.4.1.3.17; the two vendor names are the vendors' own.

inline constexpr const char* kDlnaPn = "DLNA.ORG_PN";  // profile name
inline constexpr const char* kOrsaPn = "ORSA.COM_PN";
inline constexpr const char* kAribPn = "ARIB.OR.JP_PN";
inline constexpr const char* kOperations = "DLNA.ORG_OP";  // seek operations that the server supports
inline constexpr const char* kConversion = "DLNA.ORG_CI";  // "1": the server converts the content

// The order in which one profile name is looked for. The first that is present counts, known or not.
inline constexpr std::array<const char*, 3> kProfileNameParameters = {kDlnaPn, kOrsaPn, kAribPn};

#endif  // MEDIA_FOURTH_FIELD_H_
