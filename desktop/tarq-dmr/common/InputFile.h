#ifndef TARQ_DMR_INPUT_FILE_H_
#define TARQ_DMR_INPUT_FILE_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

// A file named on the command line, or standard input for "-", read without a buffer.
// Ownership: closes the file that it opened.
// Errors: a CommandError that names the file.
class InputFile {
 public:
  explicit InputFile(const std::string& path);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  // Reads what is available, up to `capacity` bytes; blocks while nothing is.
  // Returns: the number of bytes; 0 at the end.
  size_t read(char* to, size_t capacity);
  // Returns: its size when it is a regular file.
  std::optional<uint64_t> size() const;

 private:
  [[noreturn]] void fail() const;  // the reason is in errno

  std::string path_;
  int descriptor_;
};

// Reads a whole metadata file or standard input ("-").
// Errors: a CommandError, also above 64 MiB and for a NUL byte.
std::string readMetadata(const std::string& path);

#endif  // TARQ_DMR_INPUT_FILE_H_
