#ifndef TARQ_DMR_COMMANDS_H_
#define TARQ_DMR_COMMANDS_H_

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>

// The commands: what each takes, and how each ends. Results go to standard output, everything else to
// standard error. A command returns an exit code or throws.

enum ExitCode : int { kExitOk = 0, kExitRefused = 1, kExitUsage = 2 };

// Ends the program with kExitUsage after one line on standard error.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct HostOptions {
  std::string pluginPath;          // empty: the one that is installed with this program
  std::string logLevel = "debug";  // one of kLogLevels (HostSession.h)
};

struct InfoOptions {
  HostOptions host;
  bool json = false;
};
int runInfo(const InfoOptions& options);

struct SinkOptions {
  HostOptions host;
  int32_t region = 0;
  bool raw = false;
};
int runSink(const SinkOptions& options);

struct CheckOptions {
  HostOptions host;
  std::string uri;
  std::optional<std::string> metadataFile;  // "-": standard input
  int32_t region = 0;
  bool json = false;
};
int runCheck(const CheckOptions& options);

struct BatchOptions {
  HostOptions host;
  std::string file;    // "-": standard input
  int32_t region = 0;  // of lines that name none
  int jobs = 1;        // checks at once
};
int runBatch(const BatchOptions& options);

struct ExplainOptions {
  HostOptions host;
  std::string uri;
  std::optional<std::string> metadataFile;  // "-": standard input
  std::optional<std::string> batchFile;     // "-": standard input; in the place of the two above
  int32_t region = 0;                       // of batch lines that name none
  bool json = false;
  bool probe = false;  // the server may be asked
};
int runExplain(const ExplainOptions& options);

struct PlayOptions {
  HostOptions host;
  std::string uri;
  std::optional<std::string> metadataFile;  // "-": standard input
  int32_t region = 0;
  std::optional<std::string> nextUri;
  std::string handlerJar;    // empty: none but the one that is installed with this program
  std::string handlerClass;  // empty: the desktop handler
  std::string program;       // empty: none
};
int runPlay(const PlayOptions& options);

struct DemoOptions {
  HostOptions host;
};
int runDemo(const DemoOptions& options);

#endif  // TARQ_DMR_COMMANDS_H_
