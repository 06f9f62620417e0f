#ifndef TARQ_DMR_SINK_ENTRIES_H_
#define TARQ_DMR_SINK_ENTRIES_H_

#include <algorithm>
#include <string_view>
#include <vector>

// The entries of a SinkProtocolInfo string, which separates them by commas; they point into it.
inline std::vector<std::string_view> splitSink(std::string_view sink) {
  std::vector<std::string_view> entries;
  while (!sink.empty()) {
    entries.push_back(sink.substr(0, sink.find(',')));
    sink.remove_prefix(std::min(entries.back().size() + 1, sink.size()));
  }
  return entries;
}

#endif  // TARQ_DMR_SINK_ENTRIES_H_
