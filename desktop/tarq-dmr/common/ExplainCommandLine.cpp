#include "ExplainCommandLine.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "TarqResourceCheckerInterface.h"
#include "TextOutput.h"

namespace {

namespace fs = std::filesystem;

bool isPlain(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
         std::string_view("/.:-_").find(c) != std::string_view::npos;
}

// What a terminal might obey is written in numbers: printable() alone would make it another word.
std::string withEscapes(const std::string& word) {
  std::string quoted = "$'";
  for (const char c : word) {
    char escape[5];
    std::snprintf(escape, sizeof escape, "\\%03o", static_cast<unsigned>(static_cast<unsigned char>(c)));
    quoted += isPlain(c) ? std::string(1, c) : escape;
  }
  return quoted + "'";
}

// Quoted for a shell: nothing in the word means anything but itself.
std::string shellWord(const std::string& word) {
  if (!word.empty() && std::ranges::all_of(word, isPlain)) return word;
  if (printable(word) != word) return withEscapes(word);
  std::string quoted = "'";
  for (const char c : word) quoted += c == '\'' ? "'\\''" : std::string(1, c);
  return quoted + "'";
}

std::string option(const char* name, const std::string& value) {
  return std::string(" ") + name + " " + value;
}

std::string fileWord(const std::string& path) { return shellWord(fs::absolute(path).string()); }

// Without a playable element the server's answer decides, too.
bool mayBeTheServer(const std::string& uri, int code) {
  switch (code) {
    case kServerBusy:
    case kServerError:
    case kForbidden:
    case kNameNotResolved:
    case kConnectFailed:
    case kTimedOut:
      return true;
    default:
      return code == kNothingPlayable && uri.starts_with("http://");
  }
}

}  // namespace

std::string explainCommandLine(const ResourceOptions& options, int code) {
  const bool isFromInput = options.metadataFile == "-";
  std::string words =
      shellWord(fs::read_symlink("/proc/self/exe").string()) + " explain " + shellWord(options.uri);
  if (options.metadataFile)
    words += option("--metadata", isFromInput ? "-" : fileWord(*options.metadataFile));
  if (options.region != 0) words += option("--region", std::to_string(options.region));
  if (!options.host.pluginPath.empty()) words += option("--plugin", fileWord(options.host.pluginPath));
  if (mayBeTheServer(options.uri, code)) words += " --probe";
  if (isFromInput) words += "  # with the same metadata on standard input";
  return words;
}
