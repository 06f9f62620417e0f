#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdio>
#include <new>

#include "CommandError.h"
#include "CommandLine.h"
#include "Commands.h"
#include "TextOutput.h"

namespace {

std::string usageError(const CLI::App*, const CLI::Error& error) {
  return "tarq-dmr: " + printable(error.what()) + " (see --help)\n";
}

int runCommandLine(int argc, char** argv) {
  CLI::App app;
  app.failure_message(usageError);
  const auto runs = addCommands(app);
  rejectLeftovers(app);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kExitOk : kExitUsage;
  }
  for (const auto& [command, run] : runs) {
    if (command->parsed()) return run();
  }
  std::fputs(app.help().c_str(), stderr);
  return kExitUsage;
}

// Results that a full disk swallowed must not look like success.
void flushResults() {
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) throw CommandError("cannot write the results");
}

}  // namespace

int main(int argc, char** argv) {
  std::signal(SIGPIPE, SIG_DFL);  // whoever stops reading the results ends the program, quietly
  try {
    const int exitCode = runCommandLine(argc, argv);
    flushResults();
    return exitCode;
  } catch (const std::bad_alloc&) {
    std::fputs("tarq-dmr: not enough memory\n", stderr);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tarq-dmr: %s\n", printable(error.what()).c_str());
  }
  return kExitUsage;
}
