// The small parsers of libtarq.
// Input: a line with a name or a pattern, then the text for each of the parsers.
#include <arpa/inet.h>

#include <algorithm>
#include <memory>
#include <string>

#include "FuzzInput.h"
#include "VondMimeType.h"
#include "VondNameValueList.h"
#include "VondProtocolInfo.h"
#include "VondResolution.h"
#include "VondURL.h"
#include "ZylInet.h"

namespace {

bool contains(std::string_view text, std::string_view part) { return text.find(part) != text.npos; }

std::string upperCase(std::string_view text) {
  std::string upper(text);
  for (char& c : upper)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return upper;
}

void checkProtocolInfo(const Text& text) {
  const VondProtocolInfo info(text.c_str());
  require(info.IsValid() == contains(text.view(), ":"), "a protocolInfo with a colon is valid");
  std::string joined;
  for (int n = 1; const char* field = info.GetField(n); ++n)
    joined += (n > 1 ? ":" : "") + std::string(field);
  require(!info.IsValid() || joined == text.view(), "the fields of a protocolInfo make up the text");
}

void checkNameValueList(const Text& text, const Text& name) {
  const std::string behindName = std::string(name.view()) + ';' + text.c_str();
  require(VondNameValueList(behindName.c_str()).GetParameter(name.c_str()) == nullptr,
          "a name without a value hides later ones");
  const VondNameValueList list(text.c_str());
  const char* value = list.GetParameter(name.c_str());
  if (value == nullptr) return;
  require(list.IsValid(), "a list that is not valid has no values");
  require(contains(text.view(), value), "a value is a part of the list");
  const std::string item = std::string(name.view()) + "=\"" + value + '"';
  for (const std::string& again :
       {item, item + ';' + text.c_str(), text.c_str() + (';' + std::string(name.view())) + "=other"})
    require(sameText(VondNameValueList(again.c_str()).GetParameter(name.c_str()), value),
            "the first of a name counts");
}

void checkMimeType(const Text& text, const Text& pattern) {
  const VondMimeType type(text.c_str());
  const bool matches = type.Match(pattern.c_str());
  require(type.Match(upperCase(pattern.view()).c_str()) == matches, "the case of a pattern does not matter");
  require(VondMimeType(upperCase(text.view()).c_str()).Match(pattern.c_str()) == matches,
          "nor does that of a type");
  if (!type.IsValid()) return require(!matches, "what is not valid matches nothing");
  const std::string_view trimmed = text.view().substr(text.view().find_first_not_of(" \t\r\n"));
  require(type.Match(std::string(trimmed).c_str()), "a type matches itself");
  require(type.Match((std::string(trimmed.substr(0, trimmed.find('/'))) + "/*").c_str()),
          "a type matches its family");
  const bool wild = contains(pattern.view(), "/*");
  require(!matches || wild || VondMimeType(pattern.c_str()).Match(std::string(trimmed).c_str()),
          "two types match both ways");
  require(VondMimeType((text.c_str() + std::string(";q=1")).c_str()).Match(pattern.c_str()) == matches,
          "parameters do not matter");
}

void checkUrl(const Text& text) {
  const std::unique_ptr<VondURL> url(VondURL::Parse(text.c_str(), nullptr));
  if (url == nullptr) return;
  const std::string scheme = url->GetScheme();
  const std::string host = url->GetHost();
  require(text.view().starts_with(scheme + "://"), "a URL begins with its scheme");
  require(!host.empty() && contains(text.view(), host), "a host is a part of the URL");
  require(host.find_first_of("/?#@") == host.npos, "a host ends where it ends");
  const bool bracketed = contains(host, ":") || host.front() == '[';
  const std::string printed = scheme + "://" + (bracketed ? '[' + host + ']' : host);
  const std::unique_ptr<VondURL> again(VondURL::Parse(printed.c_str(), nullptr));
  require(again != nullptr && again->GetScheme() == scheme && again->GetHost() == host,
          "a printed URL parses as it was");
}

void checkAddress(const Text& text) {
  uint32_t address = 0x5A5A5A5A;
  in_addr expected{.s_addr = address};
  const bool parsed = ZylInetAToN(text.c_str(), &address) == 0;
  require(parsed == (inet_pton(AF_INET, text.c_str(), &expected) == 1),
          "an address is one for the C library, too");
  require(address == expected.s_addr, "an address is that of the C library; any other text leaves it alone");
}

void checkResolution(const Text& text) {
  const std::unique_ptr<VondResolution> size(VondResolution::Parse(text.c_str(), 'x'));
  const int width = size->GetWidth();
  const int height = size->GetHeight();
  if (size->GetStatus() != 0) return require(width == 0 && height == 0, "what does not parse has no size");
  const std::string printed = std::to_string(width) + 'x' + std::to_string(height);
  const std::unique_ptr<VondResolution> again(VondResolution::Parse(printed.c_str(), 'x'));
  require(width >= 0 && again->GetWidth() == width && again->GetHeight() == height,
          "a printed size parses as it was");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzInput input(data, size);
  const Text word(input.line());
  const Text text(input.rest());
  checkProtocolInfo(text);
  checkNameValueList(text, word);
  checkMimeType(text, word);
  checkUrl(text);
  checkAddress(text);
  checkResolution(text);
  return 0;
}
