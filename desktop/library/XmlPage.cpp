#include "XmlPage.h"

#include "DidlBounds.h"

namespace {

constexpr size_t kMaxPageTags = 8 * kMaxTags;
constexpr size_t kMaxPageEqualSigns = 8 * kMaxEqualSigns;

}  // namespace

bool parsePage(pugi::xml_document& document, std::string_view xml, unsigned flags, std::string* problem) {
  if (countOf(xml, '<') > kMaxPageTags || countOf(xml, '=') > kMaxPageEqualSigns) {
    *problem = "its answer has too many tags";
    return false;
  }
  const auto result = document.load_buffer(xml.data(), xml.size(), flags, pugi::encoding_utf8);
  if (!result) *problem = std::string("its answer is not well-formed: ") + result.description();
  return true;
}

std::string_view localName(pugi::xml_node node) {
  const std::string_view name = node.name();
  return name.substr(name.find(':') + 1);
}

pugi::xml_node findElement(pugi::xml_node under, std::string_view name) {
  return under.find_node([name](pugi::xml_node node) { return localName(node) == name; });
}
