#ifndef TARQ_DMR_INPUT_FILE_H_
#define TARQ_DMR_INPUT_FILE_H_

#include <cstddef>
#include <string>

// A file named on the command line, or standard input for "-", read without a buffer of its own.
// Owns: the file it opened. Every failure is a CommandError that names the file.
class InputFile {
 public:
  explicit InputFile(const std::string& path);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  // What there is, up to `capacity` bytes; blocks while there is nothing. 0: the end.
  size_t read(char* to, size_t capacity);

 private:
  [[noreturn]] void fail() const;  // with the reason in errno

  std::string path_;
  int descriptor_;
};

// The whole of a metadata file or of standard input ("-"), up to 64 MiB and without a NUL byte in it.
std::string readMetadata(const std::string& path);

#endif  // TARQ_DMR_INPUT_FILE_H_
