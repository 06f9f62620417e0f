// From what a media server lists to documents of one item each.
// Input: the DIDL-Lite document of one answer to Browse.
#include <string>

#include "DidlPage.h"
#include "FuzzInput.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string didl(reinterpret_cast<const char*>(data), size);
  const DidlPage page = readDidlPage(didl);
  for (LibraryItem item : page.items) {
    const DidlPage again = readDidlPage(item.didl);
    require(again.items.size() == 1 && again.containers.empty(), "the document of an item has this item alone");
    require(again.items[0].id == item.id, "it is the same item");
    require(again.items[0].didl == item.didl, "the document of an item is not cut further");
    readItem(item);
  }
  return 0;
}
