#ifndef TARQ_TESTS_RENDERER_PROGRAM_H_
#define TARQ_TESTS_RENDERER_PROGRAM_H_

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <string>
#include <vector>

#include "Network.h"
#include "Program.h"

inline constexpr const char* kRendererAddress = kOtherAddress;
inline constexpr int kDefaultPort = 52323;
inline constexpr int kOtherPort = 52400;  // of a renderer that is not shared

// `tarq-dmr renderer` on the renderer's machine, announced when the constructor returns.
class RendererProgram {
 public:
  using Options = std::vector<std::string>;

  explicit RendererProgram(const Options& options) : child_(start(options, in_, out_, err_)) {
    const auto announced = [this] { return output().find("the renderer is at") != std::string::npos; };
    if (!becomesTrue(announced)) ADD_FAILURE() << output() << err_.content();
  }
  ~RendererProgram() {
    if (child_ > 0) end(SIGTERM);
  }

  // Returns: its exit code.
  int end(int signal) {
    ::kill(child_, signal);
    return waitFor(std::exchange(child_, -1));
  }
  std::string output() const { return out_.content(); }

  static Outcome fail(const Options& options) {
    const MemoryFile in, out, err;
    const int exitCode = waitFor(start(options, in, out, err));
    return {exitCode, out.content(), err.content(), 0};
  }

  // One that tests share that leave it as it was.
  static RendererProgram& shared() {
    static RendererProgram program({});
    return program;
  }

 private:
  static constexpr const char* kUsual[][2] = {
      {"--interface", "v0"}, {"--player", "com.orsa.tarq.dlna.DesktopRendererHandler"}, {"--region", "1"}};

  static pid_t start(const Options& options, const MemoryFile& in, const MemoryFile& out,
                     const MemoryFile& err) {
    Options words = {"--net=" + Network::otherMachine, TARQ_DMR_PROGRAM, "renderer"};
    for (const auto& usual : kUsual) {
      if (std::ranges::find(options, usual[0]) == options.end())
        words.insert(words.end(), std::begin(usual), std::end(usual));
    }
    words.insert(words.end(), options.begin(), options.end());
    return startProgram(words, in.descriptor(), out.descriptor(), err.descriptor(), "nsenter");
  }

  MemoryFile in_;
  MemoryFile out_;
  MemoryFile err_;
  pid_t child_;
};

#endif  // TARQ_TESTS_RENDERER_PROGRAM_H_
