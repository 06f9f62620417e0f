#ifndef TARQ_SURVEYED_ITEM_H_
#define TARQ_SURVEYED_ITEM_H_

#include <string>
#include <vector>

#include "CheckFacts.h"

// One item of a media server, as the server wrote it.
struct LibraryItem {
  std::string id;
  std::string title;         // empty: none
  std::string uri;           // of its first `res`, which a control point would play; empty: none
  std::string didl;          // the DIDL-Lite document with this item alone
  std::string kind;          // what its UPnP class says: "photo", "music", "video" or "unknown"
  bool isReference = false;  // to an item elsewhere in the library
};

// The item with what a check says of it, one for each region of the survey in its order.
// Ownership: the facts point into the item: it must not move.
struct SurveyedItem {
  LibraryItem item;
  std::vector<CheckFacts> facts;
};

#endif  // TARQ_SURVEYED_ITEM_H_
