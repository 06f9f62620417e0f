// From a DIDL-Lite document to the chosen `res` element.
// Input: a line with the region, then the document.
#include <android/log.h>

#include <algorithm>
#include <pugixml.hpp>
#include <string>
#include <vector>

#include "Checker.h"
#include "FuzzInput.h"

namespace {

// What a check chooses. The URI has no host, so no server is asked.
std::string choose(std::string_view document, int32_t region) {
  const CString didl(document);
  const auto checker = newChecker(region);
  const int code = checker->CheckResource("item", didl.c_str());
  require(code == kNothingPlayable || (code == kAccepted && checker->GetResource()->resIndex >= 0),
          "without a server a check chooses an element or nothing");
  return outcomeOf(*checker, code);
}

// Where the child elements of `parent` begin, in the string that it was parsed from.
std::vector<size_t> childrenOf(pugi::xml_node parent) {
  std::vector<size_t> begins;
  for (const pugi::xml_node child : parent.children())
    if (child.type() == pugi::node_element) begins.push_back(static_cast<size_t>(child.offset_debug()) - 1);
  return begins;
}

std::string withBlanks(std::string_view document, const pugi::xml_document& xml) {
  std::vector<size_t> places = childrenOf(xml.document_element());
  for (const pugi::xml_node object : xml.document_element().children()) {
    const std::vector<size_t> properties = childrenOf(object);
    places.insert(places.end(), properties.begin(), properties.end());
  }
  std::ranges::sort(places, std::ranges::greater());
  std::string text(document);
  for (const size_t place : places) text.insert(place, " \r\n\t");
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  LoadedPlugin::instance();
  __android_log_set_minimum_priority(ANDROID_LOG_SILENT);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzInput input(data, size);
  const int32_t region = input.number();
  const std::string_view document = input.rest().substr(0, input.rest().find('\0'));
  const std::string choice = choose(document, region);
  require(choose(document, region) == choice, "the same document gives the same choice twice");

  pugi::xml_document xml;
  if (!xml.load_buffer(document.data(), document.size(), pugi::parse_default, pugi::encoding_utf8)) return 0;
  require(choose(withBlanks(document, xml), region) == choice,
          "white space between elements changes nothing");
  return 0;
}
