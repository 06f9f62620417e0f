#ifndef TARQ_TESTS_RENDERER_PROGRAM_H_
#define TARQ_TESTS_RENDERER_PROGRAM_H_

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "Program.h"

inline constexpr const char* kRendererAddress = "10.9.0.1";
inline constexpr const char* kOwnAddress = "10.9.0.2";

// Two machines with a cable between them, as network namespaces: programs start on the renderer's, with the
// interface v0; this process is on the other, with v1.
class Network {
 public:
  // Before any thread starts.
  // Returns: false when this process may not do that.
  static bool make() {
    if (!leaveNetwork()) return false;
    const int machine = ::open("/proc/self/ns/net", O_RDONLY | O_CLOEXEC);
    rendererMachine = "/proc/" + std::to_string(::getpid()) + "/fd/" + std::to_string(machine);
    const std::string script =
        "set -e; on() { nsenter --net=" + rendererMachine +
        " ip \"$@\"; }; ip link set lo up; on link set lo up;" +
        "ip link add v1 type veth peer name v0 netns " + rendererMachine + "; ip addr add " + kOwnAddress +
        "/24 dev v1; ip link set v1 up; ip route add default dev v1; on addr add " + kRendererAddress +
        "/24 dev v0; on link set v0 up; on route add default dev v0; on link add v8 type veth peer name v9";
    return ::unshare(CLONE_NEWNET) == 0 && std::system(script.c_str()) == 0;
  }

  static inline std::string rendererMachine;  // the file that nsenter takes for it

 private:
  // Who is not root becomes it in a user namespace.
  static bool leaveNetwork() {
    const uid_t user = ::geteuid();
    if (::unshare(CLONE_NEWNET) == 0) return true;
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0) return false;
    std::ofstream("/proc/self/uid_map") << "0 " + std::to_string(user) + " 1";
    return true;
  }
};

inline constexpr int kDefaultPort = 52323;
inline constexpr int kOtherPort = 52400;  // of a renderer that is not shared

// Waits until that is true.
// Returns: false after ten seconds, in which it was not.
template <class Condition>
bool becomesTrue(Condition condition) {
  for (int i = 0; i < 1000; ++i, ::usleep(10'000)) {
    if (condition()) return true;
  }
  return false;
}

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
    Options words = {"--net=" + Network::rendererMachine, TARQ_DMR_PROGRAM, "renderer"};
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
