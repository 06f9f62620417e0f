#include "VondHspAnswer.h"

#include "AsciiText.h"

namespace {

constexpr size_t kMaxHeaderBytes = size_t{300} * 1024;

}  // namespace

bool VondHspAnswer::AddLine(std::string_view line) noexcept {
  bytes_ += line.size();
  if (bytes_ > kMaxHeaderBytes) return false;
  const std::string_view text = trim(line);
  if (line.starts_with("HTTP/")) {
    begin();
  } else if (text.empty() && line.find_first_of(" \t") == line.npos) {
    complete_ = true;
  } else if (line.front() == ' ' || line.front() == '\t') {
    addFolded(text);
  } else {
    addHeader(text);
  }
  return true;
}

void VondHspAnswer::begin() noexcept {
  complete_ = false;
  contentType_ = nullptr;
  contentFeatures_ = nullptr;
  unfinished_ = nullptr;
}

void VondHspAnswer::addHeader(std::string_view line) noexcept {
  unfinished_ = nullptr;
  const size_t colon = line.find(':');
  if (colon == line.npos) return;
  const std::string_view name = trim(line.substr(0, colon));
  VondString* value = equalIgnoringCase(name, "Content-Type")               ? &contentType_
                      : equalIgnoringCase(name, "contentFeatures.dlna.org") ? &contentFeatures_
                                                                            : nullptr;
  if (value == nullptr || value->c_str() != nullptr) return;
  const std::string_view text = trim(line.substr(colon + 1));
  *value = VondString(text.data(), text.size());
  unfinished_ = value;
}

void VondHspAnswer::addFolded(std::string_view text) noexcept {
  if (unfinished_ == nullptr || text.empty()) return;
  if (unfinished_->length() != 0) unfinished_->append(" ");
  unfinished_->append(VondString(text.data(), text.size()).c_str());
}
