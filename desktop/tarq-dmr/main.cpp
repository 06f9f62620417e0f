#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdio>
#include <functional>
#include <memory>
#include <new>
#include <utility>
#include <vector>

#include "CheckCommand.h"
#include "CommandError.h"
#include "CommandHelp.h"
#include "CommandLine.h"
#include "DemoCommand.h"
#include "ExplainCommand.h"
#include "InfoCommand.h"
#include "LibraryCommand.h"
#include "PlayCommand.h"
#include "RendererCommand.h"
#include "SharedOptions.h"
#include "SinkCommand.h"
#include "TextOutput.h"

namespace {

using Run = std::function<int()>;

Run addInfo(CLI::App& command) {
  const auto options = std::make_shared<InfoOptions>();
  addHostOptions(command, options->host);
  addJson(command, options->json, "One JSON object");
  return [options] { return runInfo(*options); };
}

Run addSink(CLI::App& command) {
  const auto options = std::make_shared<SinkOptions>();
  addHostOptions(command, options->host);
  addRegion(command, options->region);
  command.add_flag("--raw", options->raw, "The exact SinkProtocolInfo string and a newline");
  return [options] { return runSink(*options); };
}

Run addCheck(CLI::App& command) {
  const auto options = std::make_shared<CheckOptions>();
  addResourceOptions(command, *options, "Check every line of FILE; - is standard input");
  return [options] { return runCheck(*options); };
}

Run addPlay(CLI::App& command) {
  const auto options = std::make_shared<PlayOptions>();
  addHostOptions(command, options->host);
  addRegion(command, options->region);
  const CLI::Option* const uri = addUri(command, options->uri);
  addMetadata(command, options->metadataFile);
  command.add_option("--next", options->nextUri, "What to play after it (default: nothing)")
      ->type_name("URI")
      ->check(notEmpty());
  command
      .add_option("--next-metadata", options->nextMetadataFile,
                  "DIDL-Lite of that item; - is standard input\n(default: none)")
      ->type_name("FILE");
  addPlayer(command, options->player, "simulated");
  command.callback([=] {
    if (uri->empty()) throw CLI::RequiredError("a URI");
    if (options->nextMetadataFile && !options->nextUri) throw CLI::RequiresError("--next-metadata", "--next");
    if (options->metadataFile == "-" && options->nextMetadataFile == "-")
      throw CLI::ValidationError("--metadata and --next-metadata", "only one can be standard input");
  });
  return [options] { return runPlay(*options); };
}

Run addExplain(CLI::App& command) {
  const auto options = std::make_shared<ExplainOptions>();
  addResourceOptions(command, *options, "Explain every line of FILE; - is standard input");
  command.add_flag("--probe", options->probe, "Ask the server where the check would, and show\nits answer");
  addHtml(command, options->htmlFile);
  return [options] { return runExplain(*options); };
}

Run addRenderer(CLI::App& command) {
  const auto options = std::make_shared<RendererOptions>();
  addHostOptions(command, options->host);
  addRegion(command, options->region);
  addRendererOptions(command, *options);
  addPlayer(command, options->player, "mpv where it is\ninstalled");
  addJson(command, options->json, "One JSON line for each line of the log");
  return [options] { return runRenderer(*options); };
}

Run addServers(CLI::App& command) {
  const auto options = std::make_shared<ServersOptions>();
  command.add_option("--timeout", options->seconds, "Seconds to wait for answers, 1 to 60 (default 4)")
      ->type_name("S")
      ->check(CLI::Range(1, 60).description(""));
  addInterface(command, options->interfaceName, "that of the default\nroute");
  addJson(command, options->json, "One JSON array");
  return [options] { return runLibrary(*options); };
}

Run addSurvey(CLI::App& command) {
  const auto options = std::make_shared<SurveyOptions>();
  addHostOptions(command, options->host);
  addSurveyOptions(command, *options);
  return [options] { return runLibrary(*options); };
}

Run addDemo(CLI::App& command) {
  const auto options = std::make_shared<DemoOptions>();
  addHostOptions(command, options->host);
  return [options] { return runDemo(*options); };
}

constexpr struct {
  const char* name;
  const char* description;
  const char* help;
  Run (*add)(CLI::App& command);  // adds the options and returns what runs the command with them
} kCommands[] = {
    {"info", "Show the plug-in's record and settings", kInfoHelp, addInfo},
    {"sink", "List what the renderer says it can play", kSinkHelp, addSink},
    {"check", "Check what can be played of a resource", kCheckHelp, addCheck},
    {"play", "Check a resource and play it through a Java handler", kPlayHelp, addPlay},
    {"explain", "Explain why a resource plays as it does, or not at all", kExplainHelp, addExplain},
    {"renderer", "Be a media renderer on the network", kRendererHelp, addRenderer},
    {"servers", "List the media servers on the network", kServersHelp, addServers},
    {"survey", "Check everything that a media server has, and count", kSurveyHelp, addSurvey},
    {"demo", "Show one whole request against a media server of its own", kDemoHelp, addDemo},
};

std::string usageError(const CLI::App*, const CLI::Error& error) {
  return "tarq-dmr: " + printable(error.what()) + " (see --help)\n";
}

using CommandRuns = std::vector<std::pair<const CLI::App*, Run>>;

CommandRuns addCommands(CLI::App& app) {
  CommandRuns runs;
  for (const auto& row : kCommands) {
    CLI::App& command = *app.add_subcommand(row.name, row.description);
    runs.emplace_back(&command, row.add(command));
    const bool takesRegion = command.get_option_no_throw("--region") != nullptr;
    command.footer(std::string(row.help) + (takesRegion ? kRegionHelp : "") + kExitCodesHelp);
  }
  return runs;
}

int runCommandLine(int argc, char** argv) {
  CLI::App app("Loads a DLNA renderer plug-in and uses it as the host of a renderer would.", "tarq-dmr");
  app.set_version_flag("--version", versionText, "Print this version and that of the plug-in and\nexit");
  app.get_formatter()->column_width(22);  // of names, so that nothing is wider than 80 columns
  app.footer(std::string(kProgramHelp) + kExitCodesHelp);
  app.failure_message(usageError);
  const CommandRuns runs = addCommands(app);
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
