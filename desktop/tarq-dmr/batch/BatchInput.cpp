#include "BatchInput.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <utility>

namespace {

constexpr size_t kReadBytes = size_t{256} << 10;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr size_t kNulBytes = 1;  // after the last line
constexpr size_t kMaxBufferBytes = BatchInput::kMaxLineBytes + kReadBytes + kNulBytes;

}  // namespace

BatchInput::BatchInput(const std::string& path) : file_(path), buffer_(2 * kReadBytes + kNulBytes) {}

bool BatchInput::fill() {
  if (atEnd_) return false;
  makeRoom();
  const size_t count = file_.read(buffer_.data() + end_, kReadBytes);
  end_ += count;
  atEnd_ = count == 0;
  return !atEnd_ || end_ > begin_ || skipping_;
}

// What is left is the beginning of one line. It moves to the front, or is dropped when already too long.
void BatchInput::makeRoom() {
  std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
  end_ -= begin_;
  dropped_ += std::exchange(begin_, 0);
  if (end_ > kMaxLineBytes) {
    skipping_ = true;
    dropped_ += std::exchange(end_, 0);
  }
  scanned_ = end_;
  if (buffer_.size() < end_ + kReadBytes + kNulBytes) {
    buffer_.resize(std::min(2 * buffer_.size(), kMaxBufferBytes));
  }
}

std::optional<InputLine> BatchInput::nextLine() {
  skipByteOrderMark();
  char* const unscanned = buffer_.data() + scanned_;
  const auto* newline = static_cast<const char*>(std::memchr(unscanned, '\n', end_ - scanned_));
  if (newline == nullptr) {
    scanned_ = end_;
    if (skipping_) begin_ = end_;
    if (!atEnd_ || (begin_ == end_ && !skipping_)) return std::nullopt;
  }
  const size_t lineEnd = newline == nullptr ? end_ : static_cast<size_t>(newline - buffer_.data());
  InputLine line{buffer_.data() + begin_, lineEnd - begin_, 0};
  buffer_[lineEnd] = '\0';
  begin_ = scanned_ = std::min(lineEnd + 1, end_);
  line.inputEnd = dropped_ + begin_;
  if (skipping_ || line.length > kMaxLineBytes) line.bytes = nullptr;
  skipping_ = atStart_ = false;
  return line;
}

// It may come in pieces.
void BatchInput::skipByteOrderMark() {
  if (!atStart_ || !std::string_view(buffer_.data(), end_).starts_with(kByteOrderMark)) return;
  atStart_ = false;
  begin_ = kByteOrderMark.size();
  scanned_ = std::max(scanned_, begin_);
}
