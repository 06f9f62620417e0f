#ifndef TARQ_DMR_BATCH_INPUT_H_
#define TARQ_DMR_BATCH_INPUT_H_

#include <optional>
#include <string>
#include <vector>

#include "InputFile.h"

// The JSON reader loads whole vector registers: so many bytes behind the NUL of a line must be readable.
inline constexpr size_t kJsonSlackBytes = 32;

// One line of the input, without its end. The bytes may be changed; a NUL follows them.
struct InputLine {
  char* text;  // null: the line was longer than a line may be, and was skipped
  size_t length;
};

// Cuts the input of a batch into lines, in a buffer that grows to the longest line and no further.
// Failures are CommandErrors.
class BatchInput {
 public:
  static constexpr size_t kMaxLineBytes = size_t{32} << 20;

  explicit BatchInput(const std::string& path);

  // Reads what there is; blocks while there is nothing. The lines handed out so far become invalid.
  // False: the input has ended.
  bool fill();
  // The next line that is there in full, or nothing: fill again. The last line needs no newline.
  std::optional<InputLine> nextLine();

 private:
  void makeRoom();

  InputFile file_;
  std::vector<char> buffer_;
  size_t begin_ = 0;       // of the next line
  size_t scanned_ = 0;     // no newline from `begin_` to here
  size_t end_ = 0;         // of what was read
  bool skipping_ = false;  // the next line is too long, and its beginning is gone
  bool atEnd_ = false;
};

#endif  // TARQ_DMR_BATCH_INPUT_H_
