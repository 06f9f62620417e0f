#include "Metadata.h"

#include <algorithm>
#include <pugixml.hpp>

#include "DidlBounds.h"

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view withoutLeadingBlanks(std::string_view string) {
  if (string.starts_with("\xEF\xBB\xBF")) string.remove_prefix(3);  // byte order mark
  return string.substr(std::min(string.find_first_not_of(kBlanks), string.size()));
}

bool contains(std::string_view string, std::string_view part) { return string.find(part) != string.npos; }

std::string_view localName(const char* name) {
  const std::string_view whole = name;
  return whole.substr(whole.find(':') + 1);
}

bool isEnvelope(const pugi::xml_document& xml) {
  return localName(xml.document_element().name()) == "Envelope";
}

// The arguments and results of the actions that carry DIDL-Lite.
bool carriesDidl(pugi::xml_node node) {
  const std::string_view name = localName(node.name());
  return name == "CurrentURIMetaData" || name == "NextURIMetaData" || name == "Result";
}

std::string unescaped(const std::string& metadata) {
  std::string element = "<x>" + metadata + "</x>";
  pugi::xml_document xml;
  xml.load_buffer_inplace(element.data(), element.size(), pugi::parse_default | pugi::parse_ws_pcdata);
  return xml.document_element().child_value();
}

// "line 3, column 7", both from 1.
std::string placeOf(std::string_view string, size_t offset) {
  const std::string_view before = string.substr(0, offset);
  const auto lines = std::ranges::count(before, '\n');
  const size_t lineBegin = before.rfind('\n') + 1;  // 0 when there is none
  return "line " + std::to_string(lines + 1) + ", column " + std::to_string(before.size() - lineBegin + 1);
}

MetadataProblem diagnoseXml(std::string_view metadata) {
  pugi::xml_document xml;
  const pugi::xml_parse_result parsed = xml.load_buffer(metadata.data(), metadata.size());
  if (!parsed) {
    const auto offset = static_cast<size_t>(parsed.offset);
    return {"malformed",
            "it is not well-formed at " + placeOf(metadata, offset) + ": " + parsed.description()};
  }
  if (isEnvelope(xml)) return {"soap", "it is a SOAP envelope without DIDL-Lite"};
  const std::string_view root = localName(xml.document_element().name());
  if (root != "DIDL-Lite")
    return {"otherRoot", "its root element is " + std::string(root) + ", not DIDL-Lite"};
  return {"notAlone", "something besides the root element is in it"};
}

}  // namespace

UnwrappedMetadata unwrapMetadata(std::string metadata) {
  const bool escaped = withoutLeadingBlanks(metadata).starts_with("&lt;");
  const bool maybeWrapped = escaped || contains(metadata, "Envelope");
  if (!maybeWrapped || treeExcess(metadata) != TreeExcess::kNone) return {std::move(metadata)};
  if (escaped) return {unescaped(metadata), "escaped metadata"};
  pugi::xml_document xml;
  if (!xml.load_string(metadata.c_str()) || !isEnvelope(xml)) return {std::move(metadata)};
  const pugi::xml_node carrier = xml.find_node(carriesDidl);
  if (!carrier) return {std::move(metadata)};
  return {carrier.child_value(), "a SOAP envelope"};
}

MetadataProblem diagnoseMetadata(std::string_view metadata) {
  const std::string_view start = withoutLeadingBlanks(metadata);
  if (start.empty()) return {"empty", "it is empty"};
  if (metadata.size() > kMaxDidlBytes) return {"tooLarge", "it is larger than 4 MiB"};
  if (start.front() == '{' || start.front() == '[') return {"json", "it is JSON, not DIDL-Lite"};
  if (start.starts_with("&lt;")) return {"escaped", "it is escaped: it begins with \"&lt;\""};
  if (start.front() != '<') return {"notXml", "it is not XML"};
  if (contains(metadata, "<html") || contains(metadata, "<HTML")) return {"html", "it is an HTML page"};
  if (contains(metadata, "<!DOCTYPE")) return {"doctype", "it has a document type declaration"};
  const TreeExcess excess = treeExcess(metadata);
  if (excess == TreeExcess::kTags) return {"tooManyTags", "it has more than 16,384 tags"};
  if (excess == TreeExcess::kEqualSigns) return {"tooManyEqualSigns", "it has more than 65,536 \"=\""};
  return diagnoseXml(metadata);
}
