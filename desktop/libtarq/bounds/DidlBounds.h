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

// What makes the tree of an XML document too large to build, whatever its length.
enum class TreeExcess { kNone, kTags, kEqualSigns };

constexpr TreeExcess treeExcess(std::string_view xml) {
  const auto countOf = [&](char c) { return static_cast<size_t>(std::ranges::count(xml, c)); };
  if (countOf('<') > kMaxTags) return TreeExcess::kTags;
  return countOf('=') > kMaxEqualSigns ? TreeExcess::kEqualSigns : TreeExcess::kNone;
}

#endif  // DIDL_BOUNDS_H_
