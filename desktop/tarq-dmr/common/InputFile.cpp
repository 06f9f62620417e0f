#include "InputFile.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

#include "CommandError.h"
#include "Metadata.h"
#include "TextOutput.h"

namespace {

constexpr size_t kMetadataLimitBytes = size_t{64} << 20;

}  // namespace

InputFile::InputFile(const std::string& path)
    : path_(path), descriptor_(path == "-" ? STDIN_FILENO : ::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
  if (descriptor_ < 0) fail();
}

InputFile::~InputFile() {
  if (descriptor_ != STDIN_FILENO) ::close(descriptor_);
}

size_t InputFile::read(char* to, size_t capacity) {
  for (;;) {
    const ssize_t count = ::read(descriptor_, to, capacity);
    if (count >= 0) return static_cast<size_t>(count);
    if (errno == EAGAIN) {  // another program made the shared pipe non-blocking
      pollfd input{descriptor_, POLLIN, 0};
      ::poll(&input, 1, -1);
    } else if (errno != EINTR) {
      fail();
    }
  }
}

std::optional<uint64_t> InputFile::size() const {
  struct stat status {};
  if (::fstat(descriptor_, &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  return static_cast<uint64_t>(status.st_size);
}

void InputFile::fail() const { throw CommandError("cannot read " + path_ + ": " + std::strerror(errno)); }

std::string readMetadata(const std::string& path) {
  InputFile file(path);
  std::string metadata;
  char block[1 << 16];
  while (const size_t count = file.read(block, sizeof block)) {
    metadata.append(block, count);
    if (metadata.size() > kMetadataLimitBytes) throw CommandError(path + ": more than 64 MiB of metadata");
  }
  if (metadata.starts_with("\xFF\xFE") || metadata.starts_with("\xFE\xFF")) {
    throw CommandError(path + ": the metadata is UTF-16; convert it to UTF-8");
  }
  if (metadata.find('\0') != std::string::npos)
    throw CommandError(path + ": the metadata contains a NUL byte");
  UnwrappedMetadata unwrapped = unwrapMetadata(std::move(metadata));
  if (unwrapped.from != nullptr) {
    std::fprintf(stderr, "tarq-dmr: %s holds %s; using the DIDL-Lite in it\n", printable(path).c_str(),
                 unwrapped.from);
  }
  return std::move(unwrapped.didl);
}
