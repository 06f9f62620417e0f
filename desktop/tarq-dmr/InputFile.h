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

#endif  // TARQ_DMR_INPUT_FILE_H_
