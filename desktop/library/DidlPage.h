#ifndef TARQ_LIBRARY_DIDL_PAGE_H_
#define TARQ_LIBRARY_DIDL_PAGE_H_

#include <string>
#include <vector>

#include "LibraryItem.h"

struct LibraryContainer {
  std::string id;
  std::string title;
};

// What one answer to Browse lists.
struct DidlPage {
  std::vector<LibraryItem> items;  // with their ids and documents only
  std::vector<LibraryContainer> containers;
  std::string problem;  // why the end of the answer is missing; empty: it is all here

  size_t size() const { return items.size() + containers.size(); }
};

// Cuts the document into documents of one item each. Their bytes are the server's: the root's start tag, the item, the
// root's end tag.
DidlPage readDidlPage(const std::string& didl);

// Reads the rest of an item from its document, as a control point would.
void readItem(LibraryItem& item);

#endif  // TARQ_LIBRARY_DIDL_PAGE_H_
