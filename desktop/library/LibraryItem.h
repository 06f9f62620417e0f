#ifndef TARQ_LIBRARY_ITEM_H_
#define TARQ_LIBRARY_ITEM_H_

#include <string>

// One item of a media server, as the server wrote it.
struct LibraryItem {
  std::string id;
  std::string title;         // empty: none
  std::string uri;           // of its first `res`, which a control point would play; empty: none
  std::string didl;          // the DIDL-Lite document with this item alone
  std::string kind;          // what its UPnP class says: "photo", "music", "video" or "unknown"
  bool isReference = false;  // to an item elsewhere in the library
};

#endif  // TARQ_LIBRARY_ITEM_H_
