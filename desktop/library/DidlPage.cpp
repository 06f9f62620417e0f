#include "DidlPage.h"

#include <pugixml.hpp>
#include <string_view>

#include "Metadata.h"
#include "UpnpCdsResult.h"
#include "XmlPage.h"

namespace {

// Everything becomes a node, so that a node ends where the next one begins.
constexpr unsigned kParseFlags = pugi::parse_full | pugi::parse_ws_pcdata;

// Where the node begins in the document.
size_t beginOf(pugi::xml_node node) {
  const auto offset = static_cast<size_t>(node.offset_debug());  // of its name or value
  switch (node.type()) {
    case pugi::node_element:
      return offset - std::string_view("<").size();
    case pugi::node_cdata:
      return offset - std::string_view("<![CDATA[").size();
    case pugi::node_comment:
      return offset - std::string_view("<!--").size();
    case pugi::node_pi:
      return offset - std::string_view("<?").size();
    default:
      return offset;
  }
}

// The document around its objects.
struct Frame {
  std::string_view startTag;
  std::string endTag;
  size_t end;  // of the last object
};

Frame frameOf(pugi::xml_node root, std::string_view didl, bool breaksOff) {
  const size_t begin = beginOf(root);
  const std::string_view startTag = didl.substr(begin, beginOf(root.first_child()) - begin);
  if (breaksOff) return {startTag, std::string("</") + root.name() + '>', didl.size()};
  const size_t end = didl.rfind("</");
  return {startTag, std::string(didl.substr(end, didl.find('>', end) + 1 - end)), end};
}

// Of an object of the root, without the root's own prefix: "item" or "container".
std::string_view objectName(pugi::xml_node node, std::string_view prefix) {
  std::string_view name = node.name();
  if (name.starts_with(prefix)) name.remove_prefix(prefix.size());
  return name;
}

std::string orEmpty(const char* string) { return string == nullptr ? "" : string; }

std::string kindOfClass(std::string_view upnpClass) {
  return upnpClass.starts_with("object.item.audioItem")   ? "music"
         : upnpClass.starts_with("object.item.imageItem") ? "photo"
         : upnpClass.starts_with("object.item.videoItem") ? "video"
                                                          : "unknown";
}

}  // namespace

// The last object of an answer that breaks off is not whole.
DidlPage readDidlPage(const std::string& didl) {
  DidlPage page;
  pugi::xml_document document;
  if (!parsePage(document, didl, kParseFlags, &page.problem)) return page;
  const pugi::xml_node root = document.document_element();
  if (localName(root) != "DIDL-Lite") {
    page.problem = diagnoseMetadata(didl).words;
    return page;
  }
  if (!root.first_child()) return page;
  const Frame frame = frameOf(root, didl, !page.problem.empty());
  const std::string_view rootName = root.name();
  const std::string_view prefix = rootName.substr(0, rootName.find(':') + 1);
  for (pugi::xml_node node = root.first_child(); node; node = node.next_sibling()) {
    const pugi::xml_node next = node.next_sibling();
    if (!next && !page.problem.empty()) break;
    const std::string_view name = objectName(node, prefix);
    const std::string id = node.attribute("id").value();
    if (name == "container") page.containers.push_back({id, orEmpty(node.child("dc:title").child_value())});
    if (name != "item") continue;
    const size_t begin = beginOf(node);
    const size_t end = next ? beginOf(next) : frame.end;
    LibraryItem item;
    item.id = id;
    ((item.didl = frame.startTag) += std::string_view(didl).substr(begin, end - begin)) += frame.endTag;
    page.items.push_back(std::move(item));
  }
  return page;
}

void readItem(LibraryItem& item) {
  const UpnpCdsResult document(item.didl.c_str());
  const UpnpAvObject* const object = document.GetObject(0);
  if (object == nullptr) return;
  item.title = orEmpty(object->GetPropertyText("dc:title", 0));
  item.uri = orEmpty(object->GetPropertyText("res", 0));
  item.kind = kindOfClass(orEmpty(object->GetPropertyText("upnp:class", 0)));
  item.isReference =
      object->GetAttributes() != nullptr && object->GetAttributes()->GetValue("refID") != nullptr;
}
