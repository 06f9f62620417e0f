#ifndef TARQ_DMR_BATCH_INPUT_H_
#define TARQ_DMR_BATCH_INPUT_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "InputFile.h"

// One line of the input without its newline. The bytes may be changed; a NUL follows them.
struct InputLine {
  char* bytes;  // null: the line was too long and was skipped
  size_t length;
  uint64_t inputEnd;  // bytes of the input up to the end of the line
};

// Splits the input of a batch into lines, without a byte order mark at the start, in a buffer that grows to the longest line and no further.
// Errors: CommandError when the input cannot be read.
class BatchInput {
 public:
  static constexpr size_t kMaxLineBytes = size_t{32} << 20;

  explicit BatchInput(const std::string& path);

  // Reads what is available; blocks while nothing is. The lines returned so far become invalid.
  // Returns: false when the input has ended.
  bool fill();
  // Returns: the next line that was read in full, or nothing: fill again. The last line needs no newline.
  std::optional<InputLine> nextLine();
  // Returns: the size of the whole input when it is a regular file.
  std::optional<uint64_t> size() const { return file_.size(); }

 private:
  void makeRoom();
  void skipByteOrderMark();

  InputFile file_;
  std::vector<char> buffer_;
  uint64_t dropped_ = 0;   // bytes of the input that were in the buffer before
  size_t begin_ = 0;       // of the next line
  size_t scanned_ = 0;     // there is no newline in [begin_, scanned_)
  size_t end_ = 0;         // of what was read
  bool skipping_ = false;  // the next line is too long and its beginning was dropped
  bool atStart_ = true;    // no line was returned
  bool atEnd_ = false;
};

#endif  // TARQ_DMR_BATCH_INPUT_H_
