#include "SharedOptions.h"

#include <charconv>

#include "CommaList.h"

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

int32_t regionOf(const char* option, std::string_view number) {
  int32_t region = 0;
  if (!parseRegion(number, &region))
    throw CLI::ValidationError(option, "not a 32-bit integer: " + std::string(number));
  return region;
}

// mpv would take the word for a file.
std::string mpvOptionFault(const std::string& word) {
  return word.starts_with("-") ? "" : "an option of mpv begins with -: " + word;
}

// Returns: --region and --regions, of which one may be given.
std::pair<const CLI::Option*, const CLI::Option*> addRegions(CLI::App& command,
                                                             std::vector<int32_t>& regions) {
  const auto storeOne = [&regions](const std::string& number) { regions = {regionOf("--region", number)}; };
  const CLI::Option* const one =
      command.add_option_function<std::string>("--region", storeOne, "Region to check for (default 0)")
          ->type_name("N");
  const auto storeAll = [&regions](const std::string& list) {
    regions.clear();
    for (const std::string_view number : splitCommas(list)) regions.push_back(regionOf("--regions", number));
  };
  const CLI::Option* const all =
      command
          .add_option_function<std::string>("--regions", storeAll,
                                            "Several regions side by side, such as 0,1,2,16")
          ->type_name("LIST")
          ->check(notEmpty());
  return {one, all};
}

}  // namespace

CLI::Validator notEmpty() {
  return {[](const std::string& value) { return std::string(value.empty() ? "must not be empty" : ""); }, ""};
}

void addHostOptions(CLI::App& command, HostOptions& host) {
  command
      .add_option("--plugin", host.pluginPath,
                  "Plug-in library (default: the one installed\nwith this program)")
      ->type_name("PATH")
      ->check(notEmpty());
  command
      .add_option("--log", host.logLevel,
                  "Log lines to show: debug, info, warn, error\nor silent (default silent)")
      ->type_name("LEVEL")
      ->check(CLI::IsMember(std::vector<std::string>(kLogLevels.begin(), kLogLevels.end())).description(""));
}

void addRegion(CLI::App& command, int32_t& region) {
  const auto store = [&region](const std::string& number) { region = regionOf("--region", number); };
  command.add_option_function<std::string>("--region", store, "Region to check for (default 0)")
      ->type_name("N");
}

void addJson(CLI::App& command, bool& json, const char* description) {
  command.add_flag("--json", json, description);
}

void addHtml(CLI::App& command, OptionalFile& file) {
  command.add_option("--html", file, "Write a page for a browser to FILE as well\n(default: none)")
      ->type_name("FILE")
      ->check(notEmpty());
}

CLI::Option* addUri(CLI::App& command, std::string& uri) {
  return command.add_option("uri", uri, "The URI to play")->type_name("")->check(notEmpty());
}

CLI::Option* addMetadata(CLI::App& command, OptionalFile& file) {
  return command
      .add_option("--metadata", file, "DIDL-Lite of the item; - is standard input\n(default: none)")
      ->type_name("FILE");
}

void addPlayer(CLI::App& command, PlayerChoice& player, const char* usual) {
  command
      .add_option(
          "--player,--handler", player.name,
          std::string("Who plays: simulated, mpv or the Java class\nof a handler (default ") + usual + ")")
      ->type_name("NAME")
      ->check(notEmpty());
  command.add_option("--handler-jar", player.jar, "Jar file with a handler of your own\n(default: none)")
      ->type_name("JAR")
      ->check(notEmpty());
  command
      .add_option("--exec", player.program,
                  "Program that plays instead of the simulated\nplayer, with its arguments (default: none)")
      ->type_name("CMD")
      ->check(notEmpty());
  command
      .add_option("--mpv-option", player.mpvOptions,
                  "Option for mpv, such as --mpv-option=--fs;\nmay be repeated (default: none)")
      ->type_name("OPT")
      ->allow_extra_args(false)
      ->check({mpvOptionFault, ""});
}

void addResourceOptions(CLI::App& command, ResourceOptions& options, const char* batchDescription) {
  addHostOptions(command, options.host);
  addRegion(command, options.region);
  addJson(command, options.json, "One JSON line (the lines of a batch always are)");
  const CLI::Option* const uri = addUri(command, options.uri);
  const CLI::Option* const metadata = addMetadata(command, options.metadataFile);
  const CLI::Option* const batch =
      command.add_option("--batch", options.batchFile, batchDescription)->type_name("FILE");
  const CLI::Option* const jobs =
      command.add_option("--jobs", options.jobs, "Lines of a batch at once, 1 to 64 (default 1)")
          ->type_name("N")
          ->check(CLI::Range(1, 64).description(""));
  const CLI::Option* const summary = command.add_flag(
      "--summary", options.summary,
      "Instead of the lines of a batch, counts by result\nand by format; with --json one object");
  // The parser would check this before it complains of a mistyped option, whose value it takes for the URI.
  command.callback([uri, metadata, batch, jobs, summary] {
    if (uri->empty() && batch->empty()) throw CLI::RequiredError("a URI or --batch");
    for (const CLI::Option* option : {uri, metadata}) {
      if (!option->empty() && !batch->empty()) throw CLI::ExcludesError(option->get_name(), "--batch");
    }
    for (const CLI::Option* option : {jobs, summary}) {
      if (!option->empty() && batch->empty()) throw CLI::RequiresError(option->get_name(), "--batch");
    }
  });
}

void addRendererOptions(CLI::App& command, RendererOptions& options) {
  addInterface(command, options.interfaceName, "the plug-in's, else\nthat of the default route");
  command.add_option("--name", options.name, "What control points show (default: the\nplug-in's)")
      ->type_name("NAME")
      ->check(notEmpty());
  command.add_option("--port", options.port, "TCP port (default: the plug-in's)")
      ->type_name("N")
      ->check(CLI::Range(1, 65535).description(""));
  const std::map<std::string, AccessMode> modes = {
      {"allow", AccessMode::kAllow}, {"deny", AccessMode::kDeny}, {"ask", AccessMode::kAsk}};
  command
      .add_option("--access", options.access,
                  "New devices: allow, deny or ask here (default\nallow); no answer in 10 s denies")
      ->type_name("MODE")
      ->transform(CLI::CheckedTransformer(modes).description(""));
  command.add_option("--allow", options.allowed, "IPv4 address to allow; may be given again")
      ->type_name("ADDRESS")
      ->allow_extra_args(false)
      ->check(CLI::ValidIPV4.description(""));
  command.add_option("--deny", options.denied, "IPv4 address to deny; may be given again")
      ->type_name("ADDRESS")
      ->allow_extra_args(false)
      ->check(CLI::ValidIPV4.description(""));
  command.add_flag("--explain", options.explain, "Show the whole explanation of each choice");
}

void addInterface(CLI::App& command, std::string& name, const char* usual) {
  command.add_option("--interface", name, std::string("Network interface (default: ") + usual + ")")
      ->type_name("IF")
      ->check(notEmpty());
}

void addSurveyOptions(CLI::App& command, SurveyOptions& options) {
  const CLI::Option* const server =
      command.add_option("server", options.server, "The URL of its description, or a part of its name")
          ->type_name("")
          ->check(notEmpty());
  command
      .add_option("--container", options.container, "Where to begin: the id of a container (default 0,\nall)")
      ->type_name("ID")
      ->check(notEmpty());
  const auto regions = addRegions(command, options.regions);
  command.add_flag("--probe", options.probe, "Ask the server for each item as the check would");
  command.add_option("--jobs", options.jobs, "Items checked at once, 1 to 64 (default 4)")
      ->type_name("N")
      ->check(CLI::Range(1, 64).description(""));
  command.add_option("--limit", options.limit, "End after so many items (default: never)")
      ->type_name("N")
      ->check(CLI::Range(int64_t{1}, INT64_MAX).description(""));
  command.add_option("--ndjson", options.ndjsonFile, "Keep a JSON line for each item and region")
      ->type_name("FILE")
      ->check(notEmpty());
  addHtml(command, options.htmlFile);
  addInterface(command, options.interfaceName, "that of the default\nroute");
  addJson(command, options.json, "The counts as one JSON object");
  command.callback([server, regions] {
    if (server->empty()) throw CLI::RequiredError("a server");
    if (!regions.first->empty() && !regions.second->empty())
      throw CLI::ExcludesError("--region", "--regions");
  });
}
