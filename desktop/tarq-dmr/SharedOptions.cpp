#include "SharedOptions.h"

#include <charconv>

namespace {

bool parseRegion(std::string_view digits, int32_t* region) {
  const bool negative = digits.starts_with('-');
  if (negative) digits.remove_prefix(1);
  const bool hex = digits.starts_with("0x") || digits.starts_with("0X");
  if (hex) digits.remove_prefix(2);
  uint32_t magnitude = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, magnitude, hex ? 16 : 10);
  const uint32_t limit = (uint32_t{1} << 31) - (negative ? 0 : 1);
  if (error != std::errc() || stop != end || magnitude > limit) return false;
  *region = static_cast<int32_t>(negative ? -int64_t{magnitude} : int64_t{magnitude});
  return true;
}

}  // namespace

void addHostOptions(CLI::App& command, HostOptions& host, const char* logLevel) {
  host.logLevel = logLevel;
  command
      .add_option("--plugin", host.pluginPath,
                  "Plug-in library (default: the one installed with this program)")
      ->type_name("PATH");
  command.add_option("--log", host.logLevel, "Log lines to show: debug, info, warn, error or silent")
      ->type_name("LEVEL")
      ->check(CLI::IsMember(std::vector<std::string>(kLogLevels.begin(), kLogLevels.end())).description(""));
}

void addRegion(CLI::App& command, int32_t& region) {
  const auto store = [&region](const std::string& number) {
    if (!parseRegion(number, &region))
      throw CLI::ValidationError("--region", "not a 32-bit integer: " + number);
  };
  command.add_option_function<std::string>("--region", store, "Region to check for (default 0)")
      ->type_name("N");
}

void addJson(CLI::App& command, bool& json, const char* description) {
  command.add_flag("--json", json, description);
}

CLI::Option* addUri(CLI::App& command, std::string& uri) {
  return command.add_option("uri", uri, "The URI to play");
}

CLI::Option* addMetadata(CLI::App& command, OptionalFile& file) {
  return command.add_option("--metadata", file, "DIDL-Lite of the item; - is standard input")
      ->type_name("FILE");
}

CLI::Option* addUriOrBatch(CLI::App& command, std::string& uri, OptionalFile& metadata, OptionalFile& batch,
                           const char* batchDescription) {
  CLI::Option* const uriOption = addUri(command, uri);
  CLI::Option* const batchOption = command.add_option("--batch", batch, batchDescription)
                                       ->type_name("FILE")
                                       ->excludes(uriOption)
                                       ->excludes(addMetadata(command, metadata));
  command.callback([uriOption, batchOption] {
    if (uriOption->empty() && batchOption->empty()) throw CLI::RequiredError("a URI or --batch");
  });
  return batchOption;
}
