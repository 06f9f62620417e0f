#ifndef DIDL_BOUNDS_H_
#define DIDL_BOUNDS_H_

#include <algorithm>
#include <cstddef>
#include <string_view>

inline constexpr size_t kMaxDidlBytes = size_t{4} << 20;

// Every node of pugixml but text begins with "<", every attribute has a "=", and each costs many times the
// bytes that it has in the document. A real object has at most a few thousand of either.
inline constexpr size_t kMaxTags = 16'384;
inline constexpr size_t kMaxEqualSigns = 65'536;

inline size_t countOf(std::string_view xml, char mark) {
  return static_cast<size_t>(std::ranges::count(xml, mark));
}

// What makes the tree of an XML document too large to build, whatever its length.
enum class TreeExcess { kNone, kTags, kEqualSigns };

inline TreeExcess treeExcess(std::string_view xml) {
  if (countOf(xml, '<') > kMaxTags) return TreeExcess::kTags;
  return countOf(xml, '=') > kMaxEqualSigns ? TreeExcess::kEqualSigns : TreeExcess::kNone;
}

#endif  // DIDL_BOUNDS_H_
