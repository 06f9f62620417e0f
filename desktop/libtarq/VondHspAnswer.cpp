#include "VondHspAnswer.h"

#include <algorithm>

#include "AsciiText.h"

namespace {

constexpr size_t kMaxHeaderBytes = size_t{300} * 1024;

// `line`: a version, the status, a reason.
// Returns: the status; 0 when it does not have three digits.
int statusOf(std::string_view line) {
  const std::string_view rest = trim(line.substr(std::min(line.find(' '), line.size())));
  const std::string_view digits = rest.substr(0, rest.find(' '));
  if (digits.size() != 3 || !std::all_of(digits.begin(), digits.end(), isDigit)) return 0;
  return 100 * (digits[0] - '0') + 10 * (digits[1] - '0') + (digits[2] - '0');
}

// Source: RFC 9110 5.5.
bool isFieldValue(std::string_view text) {
  const auto isControl = [](unsigned char c) { return (c < ' ' && c != '\t') || c == 0x7F; };
  return std::none_of(text.begin(), text.end(), isControl);
}

}  // namespace

bool VondHspAnswer::AddLine(std::string_view line) noexcept {
  bytes_ += line.size();
  if (bytes_ > kMaxHeaderBytes) return false;
  const std::string_view text = trim(line);
  if (status_ == 0 || complete_) return begin(text);
  if (text.empty() && line.find_first_of(" \t") == line.npos) {
    complete_ = true;
    return true;
  }
  return line.front() == ' ' || line.front() == '\t' ? addFolded(text) : addHeader(text);
}

bool VondHspAnswer::begin(std::string_view line) noexcept {
  status_ = statusOf(line);
  complete_ = false;
  contentType_ = nullptr;
  contentFeatures_ = nullptr;
  unfinished_ = nullptr;
  return status_ >= 100;
}

bool VondHspAnswer::addHeader(std::string_view line) noexcept {
  unfinished_ = nullptr;
  const size_t colon = line.find(':');
  if (colon == line.npos) return true;
  const std::string_view name = trim(line.substr(0, colon));
  VondString* value = equalIgnoringCase(name, "Content-Type")               ? &contentType_
                      : equalIgnoringCase(name, "contentFeatures.dlna.org") ? &contentFeatures_
                                                                            : nullptr;
  if (value == nullptr || value->c_str() != nullptr) return true;
  const std::string_view text = trim(line.substr(colon + 1));
  *value = VondString(text.data(), text.size());
  unfinished_ = value;
  return isFieldValue(text);
}

bool VondHspAnswer::addFolded(std::string_view text) noexcept {
  if (unfinished_ == nullptr || text.empty()) return true;
  if (unfinished_->length() != 0) unfinished_->append(" ");
  unfinished_->append(VondString(text.data(), text.size()).c_str());
  return isFieldValue(text);
}
