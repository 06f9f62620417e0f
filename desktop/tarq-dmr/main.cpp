#include <CLI/CLI.hpp>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <functional>

#include "Commands.h"
#include "HostSession.h"

namespace {

constexpr const char* kExitCodes =
    "Exit codes: 0 accepted or done, 1 refused, 2 wrong usage, unreadable file or unusable plug-in.";
constexpr const char* kRegionHelp =
    "The region is a set of bits, decimal or 0x..., signed 32 bits; the host sets it to say where the\n"
    "renderer is sold. It decides which media profiles are offered and which resources play; exactly 16\n"
    "adds RealMedia. Default 0: only what every region has.\n\n";

// What the command line holds, with its defaults, and the command to run.
struct CommandLine {
  InfoOptions info;
  SinkOptions sink;
  CheckOptions check;
  BatchOptions batch;
  PlayOptions play;
  ExplainOptions explain;
  DemoOptions demo;
  std::function<int()> run;
};

bool parseRegion(std::string_view text, int32_t* region) {
  const bool negative = text.starts_with('-');
  if (negative) text.remove_prefix(1);
  const bool hex = text.starts_with("0x") || text.starts_with("0X");
  if (hex) text.remove_prefix(2);
  uint32_t magnitude = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, magnitude, hex ? 16 : 10);
  const uint32_t limit = (uint32_t{1} << 31) - (negative ? 0 : 1);
  if (error != std::errc() || stop != end || magnitude > limit) return false;
  *region = static_cast<int32_t>(negative ? -int64_t{magnitude} : int64_t{magnitude});
  return true;
}

void addRegion(CLI::App& command, int32_t& region) {
  const auto store = [&region](const std::string& text) {
    if (!parseRegion(text, &region)) throw CLI::ValidationError("--region", "no 32-bit integer: " + text);
  };
  command.add_option_function<std::string>("--region", store, "Region to check for (default 0)")
      ->type_name("N");
}

// A command with what all commands have in common.
CLI::App& addCommand(CLI::App& app, const char* name, const char* description, HostOptions& host,
                     const std::string& help) {
  CLI::App& command = *app.add_subcommand(name, description);
  command
      .add_option("--plugin", host.pluginPath,
                  "Plug-in library (default: the one installed with this program)")
      ->type_name("PATH");
  command.add_option("--log", host.logLevel, "Log lines to show: debug, info, warn, error or silent")
      ->type_name("LEVEL")
      ->check(CLI::IsMember(std::vector<std::string>(kLogLevels.begin(), kLogLevels.end())).description(""));
  command.footer(help + kExitCodes);
  return command;
}

void addInfo(CLI::App& app, CommandLine& line) {
  CLI::App& command = addCommand(app, "info", "Show the plug-in's record and settings", line.info.host,
                                 "Examples:\n"
                                 "  tarq-dmr info\n"
                                 "  tarq-dmr info --json\n\n");
  command.add_flag("--json", line.info.json, "One JSON object");
  command.callback([&line] { line.run = [&line] { return runInfo(line.info); }; });
}

void addSink(CLI::App& app, CommandLine& line) {
  CLI::App& command = addCommand(app, "sink", "List what the renderer says it can play", line.sink.host,
                                 "Examples:\n"
                                 "  tarq-dmr sink --region 1\n"
                                 "  tarq-dmr sink --region 0x10 --raw\n\n" +
                                     std::string(kRegionHelp));
  addRegion(command, line.sink.region);
  command.add_flag("--raw", line.sink.raw, "The exact SinkProtocolInfo text and a newline");
  command.callback([&line] { line.run = [&line] { return runSink(line.sink); }; });
}

constexpr const char* kCheckHelp =
    "Examples:\n"
    "  tarq-dmr check http://192.168.0.2:8200/MediaItems/23.mpg --metadata item.xml --region 1\n"
    "  tarq-dmr check http://192.168.0.2:8200/MediaItems/23.mpg --metadata - --json < item.xml\n"
    "  tarq-dmr check --batch items.ndjson --jobs 8 > results.ndjson\n\n"
    "A batch line is {\"uri\":\"...\",\"metadata\":\"...\" or null,\"region\":N}; metadata and region\n"
    "may be missing. Each line is answered by one JSON line, in the order of the input:\n"
    "{\"code\":0,...what to play...} when accepted, {\"code\":N,\"message\":\"...\"} when refused, with the\n"
    "code -1 when the line is no valid input. A batch that was read to its end exits with 0. It shows no\n"
    "log lines unless --log is given.\n\n";

void addCheck(CLI::App& app, CommandLine& line) {
  CLI::App& command = addCommand(app, "check", "Check what can be played of a resource", line.check.host,
                                 std::string(kCheckHelp) + kRegionHelp);
  addRegion(command, line.check.region);
  command.add_flag("--json", line.check.json, "One JSON line (a batch always writes JSON)");
  auto* uri = command.add_option("uri", line.check.uri, "The URI to play");
  auto* metadata =
      command.add_option("--metadata", line.check.metadataFile, "DIDL-Lite of the item; - is standard input")
          ->type_name("FILE");
  auto* batch =
      command.add_option("--batch", line.batch.file, "Check every line of FILE; - is standard input")
          ->type_name("FILE")
          ->excludes(uri)
          ->excludes(metadata);
  command.add_option("--jobs", line.batch.jobs, "Checks of a batch at once, 1 to 64 (default 1)")
      ->type_name("N")
      ->check(CLI::Range(1, 64).description(""))
      ->needs(batch);
  command.callback([&line, &command, uri, batch] {
    if (uri->count() + batch->count() == 0) throw CLI::RequiredError("a URI or --batch");
    line.batch.host = line.check.host;
    if (command.count("--log") == 0) line.batch.host.logLevel = "silent";
    line.batch.region = line.check.region;
    if (batch->count() != 0) {
      line.run = [&line] { return runBatch(line.batch); };
    } else {
      line.run = [&line] { return runCheck(line.check); };
    }
  });
}

constexpr const char* kExplainHelp =
    "Examples:\n"
    "  tarq-dmr explain http://192.168.0.2:8200/MediaItems/23.mpg --metadata item.xml --region 1\n"
    "  tarq-dmr explain http://192.168.0.2:8200/MediaItems/23.mpg --metadata item.xml --probe\n"
    "  tarq-dmr explain --batch items.ndjson > why.ndjson\n\n"
    "Takes the steps that a check takes and tells what each found: the candidates, their points, and what\n"
    "let each in or kept it out. No server is asked unless --probe is given. The last line is the verdict.\n"
    "A batch takes the lines of check --batch and answers each with one JSON line.\n\n";

void addExplain(CLI::App& app, CommandLine& line) {
  ExplainOptions& options = line.explain;
  CLI::App& command = addCommand(app, "explain", "Tell why a resource plays as it does, or not", options.host,
                                 std::string(kExplainHelp) + kRegionHelp);
  options.host.logLevel = "silent";
  addRegion(command, options.region);
  command.add_flag("--json", options.json, "One JSON line (a batch always writes JSON)");
  command.add_flag("--probe", options.probe, "Ask the server where the check would, and show what came back");
  auto* uri = command.add_option("uri", options.uri, "The URI to play");
  auto* metadata =
      command.add_option("--metadata", options.metadataFile, "DIDL-Lite of the item; - is standard input")
          ->type_name("FILE");
  auto* batch =
      command.add_option("--batch", options.batchFile, "Explain every line of FILE; - is standard input")
          ->type_name("FILE")
          ->excludes(uri)
          ->excludes(metadata);
  command.callback([&line, uri, batch] {
    if (uri->count() + batch->count() == 0) throw CLI::RequiredError("a URI or --batch");
    line.run = [&line] { return runExplain(line.explain); };
  });
}

constexpr const char* kPlayHelp =
    "Examples:\n"
    "  tarq-dmr play http://192.168.0.2:8200/MediaItems/23.mp3 --metadata item.xml\n"
    "  tarq-dmr play http://192.168.0.2:8200/MediaItems/23.mp3 --exec \"mpv --really-quiet {uri}\"\n"
    "  tarq-dmr play http://192.168.0.2:8200/MediaItems/23.mp3 --handler-jar my.jar --handler my.Handler\n\n"
    "Needs a Java VM, 17 or newer: the one in JAVA_HOME, else of the java on the PATH, else an installed "
    "one.\n"
    "The program of --exec plays, and the track is over when it ends. Quotes around an argument keep its\n"
    "blanks, {uri} is replaced, no shell is involved. Without --exec nothing is heard: the position runs to\n"
    "the duration that the metadata tells, and a track of unknown duration goes on until Ctrl-C. Ctrl-C\n"
    "stops the track and ends with 0; an error of the handler ends with 1. A handler is a public class\n"
    "derived from com.orsa.tarq.dlna.TarqRendererHandler with a constructor without arguments.\n\n";

void addPlay(CLI::App& app, CommandLine& line) {
  PlayOptions& play = line.play;
  CLI::App& command = addCommand(app, "play", "Check a resource and play it through a Java handler",
                                 play.host, std::string(kPlayHelp) + kRegionHelp);
  play.host.logLevel = "silent";
  addRegion(command, play.region);
  command.add_option("uri", play.uri, "The URI to play")->required();
  command.add_option("--metadata", play.metadataFile, "DIDL-Lite of the item; - is standard input")
      ->type_name("FILE");
  command.add_option("--next", play.nextUri, "What to play after it")->type_name("URI");
  command.add_option("--handler-jar", play.handlerJar, "Jar file with a handler of your own")
      ->type_name("JAR");
  command.add_option("--handler", play.handlerClass, "Its class (default: the desktop handler)")
      ->type_name("CLASS");
  command.add_option("--exec", play.program, "Program that plays, with its arguments")->type_name("CMD");
  command.callback([&line] { line.run = [&line] { return runPlay(line.play); }; });
}

void addDemo(CLI::App& app, CommandLine& line) {
  CLI::App& command = addCommand(
      app, "demo", "Show one whole request against a media server of its own", line.demo.host,
      "Example:\n"
      "  tarq-dmr demo --log debug\n\n"
      "Nothing leaves this computer. Fails with 1 when a step does not come out as it should.\n\n");
  line.demo.host.logLevel = "silent";
  command.callback([&line] { line.run = [&line] { return runDemo(line.demo); }; });
}

std::string usageError(const CLI::App*, const CLI::Error& error) {
  return std::string("tarq-dmr: ") + error.what() + " (--help tells more)\n";
}

int runCommandLine(int argc, char** argv) {
  CommandLine line;
  CLI::App app("Loads a DLNA renderer plug-in and uses it as the host of a renderer would.", "tarq-dmr");
  app.set_version_flag("--version", "tarq-dmr " TARQ_DMR_VERSION);
  app.footer(std::string(
                 "Examples:\n"
                 "  tarq-dmr demo\n"
                 "  tarq-dmr check http://192.168.0.2:8200/MediaItems/23.mpg --metadata item.xml --region 1\n"
                 "  tarq-dmr COMMAND --help\n\n") +
             kExitCodes);
  app.failure_message(usageError);
  addInfo(app, line);
  addSink(app, line);
  addCheck(app, line);
  addPlay(app, line);
  addExplain(app, line);
  addDemo(app, line);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kExitOk : kExitUsage;
  }
  if (line.run) return line.run();
  std::fputs(app.help().c_str(), stderr);
  return kExitUsage;
}

// Results that a full disk swallowed must not look like success.
void flushResults() {
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) throw CommandError("cannot write the results");
}

}  // namespace

int main(int argc, char** argv) {
  std::signal(SIGPIPE, SIG_DFL);  // who stops reading the results ends the program, quietly
  try {
    const int exitCode = runCommandLine(argc, argv);
    flushResults();
    return exitCode;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tarq-dmr: %s\n", error.what());
    return kExitUsage;
  }
}
