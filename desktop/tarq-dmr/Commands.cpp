#include "Commands.h"

#include <memory>

#include "CheckCommand.h"
#include "CommandHelp.h"
#include "DemoCommand.h"
#include "ExplainCommand.h"
#include "HelpCommand.h"
#include "InfoCommand.h"
#include "LibraryCommand.h"
#include "PlayCommand.h"
#include "RendererCommand.h"
#include "SharedOptions.h"
#include "SinkCommand.h"

namespace {

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

Run addHelp(CLI::App& command) {
  const auto topic = std::make_shared<std::string>();
  command.add_option("topic", *topic, "A topic or a command")->type_name("");
  return [&program = *command.get_parent(), topic] { return runHelp(program, *topic); };
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
    {"help", "Explain a topic: regions, codes or metadata", kHelpHelp, addHelp},
};

}  // namespace

std::vector<std::pair<const CLI::App*, Run>> addCommands(CLI::App& app) {
  app.name("tarq-dmr");
  app.description("Loads a DLNA renderer plug-in and uses it as the host of a renderer would.");
  app.set_version_flag("--version", versionText,
                       "Print the versions of this program and of the\nplug-in, and exit");
  app.get_formatter()->column_width(22);  // of names, so that nothing is wider than 80 columns
  app.footer(std::string(kProgramHelp) + kExitCodesHelp);
  app.require_subcommand(0, 1);  // after a command, the name of another is an argument
  std::vector<std::pair<const CLI::App*, Run>> runs;
  for (const auto& row : kCommands) {
    CLI::App& command = *app.add_subcommand(row.name, row.description);
    runs.emplace_back(&command, row.add(command));
    const bool takesRegion = command.get_option_no_throw("--region") != nullptr;
    command.footer(std::string(row.help) + (takesRegion ? kRegionHelp : "") + kExitCodesHelp);
  }
  return runs;
}
