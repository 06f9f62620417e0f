#ifndef TARQ_LIBRARY_OPTIONS_H_
#define TARQ_LIBRARY_OPTIONS_H_

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "HostSession.h"

struct ServersOptions {
  std::string interfaceName;  // empty: that of the default route
  int seconds = 4;            // how long to wait for answers
  bool json = false;
};

struct SurveyOptions {
  HostOptions host;
  std::string server;  // the URL of its description, or a part of its name
  std::string container = "0";
  std::vector<int32_t> regions = {0};
  bool probe = false;
  int jobs = 4;
  std::optional<int64_t> limit;  // of items
  std::optional<std::string> ndjsonFile;
  std::optional<std::string> htmlFile;
  std::string interfaceName;  // for the search of a name; empty: that of the default route
  bool json = false;
};

using LibraryOptions = std::variant<ServersOptions, SurveyOptions>;

#endif  // TARQ_LIBRARY_OPTIONS_H_
