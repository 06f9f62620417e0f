#ifndef TARQ_DMR_COMMA_LIST_H_
#define TARQ_DMR_COMMA_LIST_H_

#include <algorithm>
#include <string_view>
#include <vector>

// The entries of a string that separates them by commas; they point into it.
inline std::vector<std::string_view> splitCommas(std::string_view list) {
  std::vector<std::string_view> entries;
  while (!list.empty()) {
    entries.push_back(list.substr(0, list.find(',')));
    list.remove_prefix(std::min(entries.back().size() + 1, list.size()));
  }
  return entries;
}

inline bool isListed(std::string_view entry, std::string_view list) {
  const std::vector<std::string_view> entries = splitCommas(list);
  return std::find(entries.begin(), entries.end(), entry) != entries.end();
}

#endif  // TARQ_DMR_COMMA_LIST_H_
