// The small parsers of libtarq.
// Input: a line with a name or a pattern, then the string for each of the parsers.
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

void checkProtocolInfo(const CString& text) {
  const VondProtocolInfo info(text.c_str());
  require(info.IsValid() == contains(text.view(), ":"), "a protocolInfo with a colon is valid");
  std::string joined;
  for (int n = 1; const char* field = info.GetField(n); ++n)
    joined += (n > 1 ? ":" : "") + std::string(field);
  require(!info.IsValid() || joined == text.view(), "the fields of a protocolInfo make up the string");
}

// Whether `name` is one that can be asked for.
bool isName(std::string_view name) {
  constexpr std::string_view kBlanks = " \t\r\n";
  return !name.empty() && name.find_first_of("=;") == name.npos && !contains(kBlanks, name.substr(0, 1)) &&
         !contains(kBlanks, name.substr(name.size() - 1));
}

void checkNameValueList(const CString& text, const CString& name) {
  if (!isName(name.view())) return;
  const std::string first(name.view());
  require(VondNameValueList((first + ';' + text.c_str()).c_str()).GetParameter(name.c_str()) == nullptr,
          "a name without a value hides later ones");
  const VondNameValueList list(text.c_str());
  const char* value = list.GetParameter(name.c_str());
  if (value == nullptr) return;
  require(list.IsValid() && contains(text.view(), value), "a value is a part of a valid list");
  const std::string item = first + "=\"" + value + '"';
  for (const std::string& again : {item, item + ';' + text.c_str(), text.c_str() + (';' + first) + "=other"})
    require(sameString(VondNameValueList(again.c_str()).GetParameter(name.c_str()), value),
            "the first item of a name counts");
}

void checkMimeType(const CString& text, const CString& pattern) {
  const VondMimeType type(text.c_str());
  const bool matches = type.Match(pattern.c_str());
  require(type.Match(otherCase(pattern.view()).c_str()) == matches &&
              VondMimeType(otherCase(text.view()).c_str()).Match(pattern.c_str()) == matches,
          "case does not matter");
  if (!type.IsValid()) return require(!matches, "what is not valid matches nothing");
  const std::string trimmed(text.view().substr(text.view().find_first_not_of(" \t\r\n")));
  require(type.Match(trimmed.c_str()), "a type matches itself");
  require(type.Match((trimmed.substr(0, trimmed.find('/')) + "/*").c_str()), "a type matches its family");
  require(!matches || contains(pattern.view(), "/*") || VondMimeType(pattern.c_str()).Match(trimmed.c_str()),
          "two types match both ways");
  require(VondMimeType((text.c_str() + std::string(";q=1")).c_str()).Match(pattern.c_str()) == matches,
          "parameters do not matter");
}

void checkUrl(const CString& text) {
  const std::unique_ptr<VondURL> url(VondURL::Parse(text.c_str(), nullptr));
  if (url == nullptr) return;
  const std::string scheme = url->GetScheme(), host = url->GetHost();
  require(text.view().starts_with(scheme + "://"), "a URL begins with its scheme");
  require(!host.empty() && contains(text.view(), host), "a host is a part of the URL");
  require(host.find_first_of("/?#@") == host.npos, "a host does not go beyond its end");
  const bool bracketed = contains(host, ":") || host.front() == '[';
  const std::string printed = scheme + "://" + (bracketed ? '[' + host + ']' : host);
  const std::unique_ptr<VondURL> again(VondURL::Parse(printed.c_str(), nullptr));
  require(again != nullptr && again->GetScheme() == scheme && again->GetHost() == host,
          "a printed URL parses as before");
}

void checkAddress(const CString& text) {
  uint32_t address = 0x5A5A5A5A;
  in_addr expected{.s_addr = address};
  const bool parsed = ZylInetAToN(text.c_str(), &address) == 0;
  require(parsed == (inet_pton(AF_INET, text.c_str(), &expected) == 1),
          "the C library agrees on what is an address");
  require(address == expected.s_addr, "the C library reads the same address; another string leaves it alone");
}

void checkResolution(const CString& text) {
  const auto parse = [](const char* string) {
    const std::unique_ptr<VondResolution> size(VondResolution::Parse(string, 'x'));
    return std::to_string(size->GetWidth()) + (size->GetStatus() == 0 ? 'x' : '?') +
           std::to_string(size->GetHeight());
  };
  const std::string printed = parse(text.c_str());
  require(printed == "0?0" || parse(printed.c_str()) == printed, "a printed size parses as before");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzInput input(data, size);
  const CString word(input.line());
  const CString text(input.rest());
  checkProtocolInfo(text);
  checkNameValueList(text, word);
  checkMimeType(text, word);
  checkUrl(text);
  checkAddress(text);
  checkResolution(text);
  return 0;
}
