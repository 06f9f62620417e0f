#ifndef BARE_WALK_H_
#define BARE_WALK_H_

#include <cstring>
#include <memory>
#include <pugixml.hpp>
#include <string_view>

// The least that reading metadata costs: copy, parse, and one look at each `res` element.
// Returns: how many values are not empty, so that the compiler cannot leave a look out.
inline size_t bareWalk(std::string_view metadata) {
  const auto copy = std::make_unique_for_overwrite<char[]>(metadata.size());
  std::memcpy(copy.get(), metadata.data(), metadata.size());
  pugi::xml_document document;
  document.load_buffer_inplace(copy.get(), metadata.size());
  size_t present = 0;
  for (const pugi::xml_node res : document.first_child().first_child().children("res")) {
    for (const char* name : {"protocolInfo", "resolution", "size", "duration"}) {
      present += static_cast<size_t>(*res.attribute(name).value() != '\0');
    }
    present += static_cast<size_t>(*res.child_value() != '\0');
  }
  return present;
}

#endif  // BARE_WALK_H_
