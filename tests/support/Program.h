#ifndef TARQ_TESTS_PROGRAM_H_
#define TARQ_TESTS_PROGRAM_H_

#include <spawn.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

// A file in memory, to feed the program with and to catch what it writes. Closed with its last user.
class MemoryFile {
 public:
  explicit MemoryFile(std::string_view content = {}, size_t times = 1)
      : descriptor_(::memfd_create("test", MFD_CLOEXEC)) {
    for (; times > 0; --times) {
      if (::write(descriptor_, content.data(), content.size()) != static_cast<ssize_t>(content.size()))
        std::abort();
    }
    ::lseek(descriptor_, 0, SEEK_SET);
  }
  ~MemoryFile() { ::close(descriptor_); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  int descriptor() const { return descriptor_; }
  // For a program that the test starts to open.
  std::string path() const {
    return "/proc/" + std::to_string(::getpid()) + "/fd/" + std::to_string(descriptor_);
  }
  std::string content() const {
    std::string text(static_cast<size_t>(::lseek(descriptor_, 0, SEEK_END)), '\0');
    if (::pread(descriptor_, text.data(), text.size(), 0) != static_cast<ssize_t>(text.size())) std::abort();
    return text;
  }

 private:
  int descriptor_;
};

inline std::vector<std::string> wordsOf(const std::string& text) {
  std::istringstream words(text);
  return {std::istream_iterator<std::string>(words), {}};
}

// Starts tarq-dmr with these three files, in the emulator if it is built for one; the caller waits for it.
// `descriptors`: how many files it may have open; 0: as many as the test.
inline pid_t startProgram(const std::vector<std::string>& arguments, int in, int out, int err,
                          const std::string& program = TARQ_DMR_PROGRAM, rlim_t descriptors = 0) {
  std::vector<std::string> words = wordsOf(TARQ_EMULATOR);
  words.push_back(program);
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> argv;
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  posix_spawn_file_actions_t files;
  ::posix_spawn_file_actions_init(&files);
  ::posix_spawn_file_actions_adddup2(&files, in, STDIN_FILENO);
  ::posix_spawn_file_actions_adddup2(&files, out, STDOUT_FILENO);
  ::posix_spawn_file_actions_adddup2(&files, err, STDERR_FILENO);
  rlimit limit{};
  ::getrlimit(RLIMIT_NOFILE, &limit);
  const rlimit lowered{descriptors, limit.rlim_max};
  if (descriptors > 0) ::setrlimit(RLIMIT_NOFILE, &lowered);
  pid_t child = -1;
  if (::posix_spawnp(&child, argv[0], &files, nullptr, argv.data(), environ) != 0) std::abort();
  ::setrlimit(RLIMIT_NOFILE, &limit);
  ::posix_spawn_file_actions_destroy(&files);
  return child;
}

// The exit code, or below 0 the signal that ended it.
inline int waitFor(pid_t child, rusage* usage = nullptr) {
  int status = 0;
  ::wait4(child, &status, 0, usage);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

struct Outcome {
  int exitCode;
  std::string out;
  std::string err;
  long maxResidentKiB;
};

// `input` is what it reads from its standard input, so many times.
inline Outcome runProgram(const std::vector<std::string>& arguments, std::string_view input = {},
                          size_t times = 1) {
  const MemoryFile in(input, times);
  const MemoryFile out;
  const MemoryFile err;
  rusage usage{};
  const int exitCode =
      waitFor(startProgram(arguments, in.descriptor(), out.descriptor(), err.descriptor()), &usage);
  return {exitCode, out.content(), err.content(), usage.ru_maxrss};
}

inline std::vector<std::string> linesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    lines.emplace_back(text.substr(0, text.find('\n')));
    text.remove_prefix(std::min(lines.back().size() + 1, text.size()));
  }
  return lines;
}

#endif  // TARQ_TESTS_PROGRAM_H_
