#ifndef TARQ_LIBRARY_LARGEST_FIRST_H_
#define TARQ_LIBRARY_LARGEST_FIRST_H_

#include <algorithm>
#include <functional>
#include <vector>

// The entries of a map, those first of which `size` is the largest.
template <class Map, class Size>
std::vector<const typename Map::value_type*> largestFirst(const Map& map, Size size) {
  std::vector<const typename Map::value_type*> entries;
  entries.reserve(map.size());
  for (const auto& entry : map) entries.push_back(&entry);
  std::ranges::stable_sort(entries, std::greater<>(), [&](const auto* entry) { return size(entry->second); });
  return entries;
}

#endif  // TARQ_LIBRARY_LARGEST_FIRST_H_
