// Writes the manual pages and the completions below a folder, where `share` of an installation has them.
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "Commands.h"
#include "Completions.h"
#include "ManPages.h"

namespace fs = std::filesystem;

namespace {

void write(const fs::path& file, const std::string& text) {
  fs::create_directories(file.parent_path());
  std::ofstream out(file);
  out.exceptions(std::ios::failbit | std::ios::badbit);
  out << text << std::flush;
}

void writeAll(const fs::path& folder) {
  CLI::App app;
  addCommands(app);
  const fs::path manual = folder / "man";
  write(manual / "man1/tarq-dmr.1", commandPage(app));
  for (const CLI::App* command : app.get_subcommands({}))
    write(manual / "man1" / (pageName(*command) + ".1"), commandPage(*command));
  for (const HelpTopic& topic : helpTopics())
    write(manual / "man7" / ("tarq-dmr-" + std::string(topic.name) + ".7"), topicPage(topic));
  // The folders are those in which Debian's shells look.
  write(folder / "bash-completion/completions/tarq-dmr", bashCompletion(app));
  write(folder / "zsh/vendor-completions/_tarq-dmr", zshCompletion(app));
  write(folder / "fish/vendor_completions.d/tarq-dmr.fish", fishCompletion(app));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  try {
    writeAll(argv[1]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tarq-dmr-manual: %s\n", error.what());
    return 1;
  }
  return 0;
}
