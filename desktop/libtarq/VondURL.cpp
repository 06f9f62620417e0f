#include "VondURL.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "AsciiText.h"

namespace {

constexpr auto kNotFound = std::string_view::npos;

// Source: RFC 3986 3.1.
bool isScheme(std::string_view string) {
  const auto mayFollow = [](char c) { return isLetter(c) || isDigit(c) || c == '+' || c == '-' || c == '.'; };
  return !string.empty() && isLetter(string.front()) && std::all_of(string.begin(), string.end(), mayFollow);
}

// Returns: whether this can follow a host: nothing, or ":" and a port, which may be empty.
bool isPortPart(std::string_view string) {
  return string.empty() || (string.front() == ':' && std::all_of(string.begin() + 1, string.end(), isDigit));
}

// Returns: the host, an IPv6 address without its brackets; empty when there is none.
std::string_view hostOf(std::string_view authority) {
  // A password may have an unescaped "@", so the last one ends the userinfo.
  if (const size_t at = authority.rfind('@'); at != kNotFound) authority.remove_prefix(at + 1);
  const bool bracketed = !authority.empty() && authority.front() == '[';
  const size_t begin = bracketed ? 1 : 0;
  const size_t end = bracketed ? authority.find(']') : std::min(authority.find(':'), authority.size());
  if (end == kNotFound || !isPortPart(authority.substr(end + begin))) return {};
  return authority.substr(begin, end - begin);
}

}  // namespace

VondURL* VondURL::Parse(const char* string, const VondURL*) noexcept {
  if (string == nullptr) return nullptr;
  const char* colon = std::strchr(string, ':');
  if (colon == nullptr || colon[1] != '/' || colon[2] != '/') return nullptr;
  const std::string_view scheme(string, colon);
  const char* authority = colon + 3;
  const std::string_view host = hostOf({authority, std::strcspn(authority, "/?#")});
  if (!isScheme(scheme) || host.empty()) return nullptr;

  auto* url = new (std::nothrow) VondURL;
  if (url == nullptr) return nullptr;
  url->scheme_ = VondString(scheme.data(), scheme.size());
  url->host_ = VondString(host.data(), host.size());
  if (url->scheme_.c_str() != nullptr && url->host_.c_str() != nullptr) return url;
  delete url;
  return nullptr;
}

VondURL::VondURL() noexcept = default;
VondURL::~VondURL() = default;

const char* VondURL::GetScheme() const noexcept { return scheme_.c_str(); }
const char* VondURL::GetHost() const noexcept { return host_.c_str(); }
