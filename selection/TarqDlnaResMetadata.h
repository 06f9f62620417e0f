#ifndef TARQ_DLNA_RES_METADATA_H_
#define TARQ_DLNA_RES_METADATA_H_

#include <cstdint>

#include "VondString.h"

// The media category of a `res` element, and the media kind of a whole object.
enum : int32_t {
  kCategoryPhoto = 0,
  kCategoryMusic = 1,
  kCategoryVideo = 2,
  kCategoryUnknown = 3,
};

// What a selection knows of one `res` element. Record i of an array describes `res` element i of the object.
// Every text is absent until it is read; texts stand as the server wrote them, in its case.
// Texts that need not be cut are not copied: they refer to the document, which must outlive the record, or to
// constants.
struct TarqDlnaResMetadata {
  VondString mimeType;     // content format; for link-protected content what its CONTENTFORMAT parameter says
  VondString fourthField;  // whole
  VondString format;       // written by the contests: what the renderer would play it as
  VondString dlnaPn;       // DLNA.ORG_PN, ORSA.COM_PN and ARIB.OR.JP_PN of the fourth field
  VondString orsaPn;
  VondString aribPn;
  VondString extension;   // of the URL's last path segment
  VondString resolution;  // read for photos and videos only
  int32_t category = kCategoryUnknown;
  bool notConverted = false;  // DLNA.ORG_CI is missing or "0"
  int32_t mpfEntries = 0;     // pictures in a multi-picture file; read for photos only
};

#endif  // TARQ_DLNA_RES_METADATA_H_
