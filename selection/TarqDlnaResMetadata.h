#ifndef TARQ_DLNA_RES_METADATA_H_
#define TARQ_DLNA_RES_METADATA_H_

#include <cstdint>

#include "ResDecisions.h"
#include "VondString.h"

// What a selection knows of one `res` element. Record i of an array describes element i of the object.
// Null: a string is absent until it is read. Strings stay in the case in which the server wrote them.
// Ownership: the record owns its `VondString`s; `fourthField` and `resolution` belong to the document, `format`
//   is a constant.
struct TarqDlnaResMetadata {
  VondString mimeType;  // the content format; of link-protected content its CONTENTFORMAT parameter
  const char* fourthField = nullptr;  // whole
  const char* format = nullptr;       // written by the contests: what the renderer would play it as
  VondString dlnaPn;                  // the three profile names of the fourth field
  VondString orsaPn;
  VondString aribPn;
  VondString extension;              // of the last path segment of the URL
  const char* resolution = nullptr;  // read for photos and videos only
  MediaCategory category = kCategoryUnknown;
  bool notConverted = false;  // DLNA.ORG_CI is missing or "0"
  int32_t mpfEntries = 0;     // pictures in a multi-picture file; read for photos only

  // What was decided about it.
  ResSkip skip = ResSkip::kNone;
  bool mimeTypeWrapped = false;  // `mimeType` is a CONTENTFORMAT parameter
  CategoryStage categoryBy = CategoryStage::kNone;
  ResScore score;

  bool hasProfileName() const {
    return dlnaPn.c_str() != nullptr || orsaPn.c_str() != nullptr || aribPn.c_str() != nullptr;
  }
};

#endif  // TARQ_DLNA_RES_METADATA_H_
