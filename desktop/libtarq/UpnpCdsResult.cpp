#include "UpnpCdsResult.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <forward_list>
#include <memory>
#include <new>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "AsciiText.h"
#include "DidlBounds.h"

namespace {

// Copies the document and counts on the way. A block is no longer than a counter of one byte can count, and such a
// counter lets the compiler use vector instructions.
// Returns: how many bytes are "<" or "=", which are neighbours in ASCII.
size_t copyCounting(std::string_view didl, char* copy) {
  constexpr size_t kBlock = 240;
  size_t count = 0;
  for (; !didl.empty(); didl.remove_prefix(std::min(kBlock, didl.size()))) {
    uint8_t inBlock = 0;
    for (const char c : didl.substr(0, kBlock)) {
      *copy++ = c;
      inBlock = static_cast<uint8_t>(inBlock + ((c | 1) == '='));
    }
    count += inBlock;
  }
  return count;
}

// White space between pieces of text is significant, so it is kept. The first piece of text of an element is
// stored in the element itself, which usually saves a node. Text beside the root and a document type
// declaration become nodes, so that they can be found.
constexpr unsigned kParseFlags = pugi::parse_cdata | pugi::parse_escapes | pugi::parse_wconv_attribute |
                                 pugi::parse_eol | pugi::parse_ws_pcdata | pugi::parse_embed_pcdata |
                                 pugi::parse_doctype | pugi::parse_fragment;

bool isText(pugi::xml_node node) {
  return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

// The text of `element`: its pieces joined, without blanks at both ends.
// All values are in the document's own writable buffer, in document order and with markup between them. So
// the pieces are moved together where they are; what is overwritten is inside `element` and is never read.
const char* joinedText(pugi::xml_node element) {
  char* begin = nullptr;
  char* end = nullptr;
  const auto add = [&](const char* piece) {
    const size_t length = std::strlen(piece);
    // pugixml's "no value" is a constant, which cannot be written to.
    if (length == 0) return;
    char* source = const_cast<char*>(piece);
    if (begin == nullptr) begin = end = source;
    if (end != source) std::memmove(end, source, length);
    end += length;
  };
  add(element.value());
  for (pugi::xml_node child = element.first_child(); child; child = child.next_sibling())
    if (isText(child)) add(child.value());
  if (begin == nullptr) return "";

  while (end > begin && isBlank(end[-1])) --end;
  *end = '\0';
  while (isBlank(*begin)) ++begin;
  return begin;
}

class ElementAttributes final : public UpnpAvAttributes {
 public:
  explicit ElementAttributes(pugi::xml_node element) : element_(element) {}

  const char* GetValue(const char* name) const noexcept override {
    if (name == nullptr) return nullptr;
    const pugi::xml_attribute found = element_.attribute(name);
    return found.empty() ? nullptr : found.value();
  }

  pugi::xml_node element() const { return element_; }
  const UpnpAvAttributes* orNull() const { return element_.first_attribute() ? this : nullptr; }

 private:
  pugi::xml_node element_;
};

class ElementProperty final : public UpnpAvProperty {
 public:
  explicit ElementProperty(pugi::xml_node element) : attributes_(element) {}

  const char* text() const {
    if (text_ == nullptr) text_ = joinedText(attributes_.element());
    return text_;
  }
  const UpnpAvAttributes* GetAttributes() const noexcept override { return attributes_.orNull(); }

 private:
  ElementAttributes attributes_;
  // Null until it is asked for, because the text can be joined only once.
  mutable const char* text_ = nullptr;
};

// The name of `element` without `prefix`: the root's own prefix with its colon, or the empty string.
const char* shortName(pugi::xml_node element, const std::string& prefix) {
  const char* name = element.name();
  const bool prefixed = !prefix.empty() && std::strncmp(name, prefix.c_str(), prefix.size()) == 0;
  return prefixed ? name + prefix.size() : name;
}

class ElementObject final : public UpnpAvObject {
 public:
  // `prefix` must outlive the object.
  ElementObject(pugi::xml_node element, const std::string& prefix) : attributes_(element), prefix_(prefix) {}

  int GetNumOfProperties() const noexcept override {
    int count = 0;
    for (pugi::xml_node child = firstChild(); child; child = child.next_sibling())
      if (child.type() == pugi::node_element) ++count;
    return count;
  }

  int GetNumOfProperties(const char* name) const noexcept override {
    const Properties* found = propertiesNamed(name);
    return found != nullptr ? static_cast<int>(found->size()) : 0;
  }

  const char* GetPropertyText(const char* name, unsigned int index) const noexcept override {
    const ElementProperty* found = property(name, index);
    return found != nullptr ? found->text() : nullptr;
  }

  const UpnpAvProperty* GetPropertyByName(const char* name, unsigned int index) const noexcept override {
    return property(name, index);
  }

  const UpnpAvAttributes* GetAttributes() const noexcept override { return attributes_.orNull(); }

 private:
  using Properties = std::vector<ElementProperty>;
  struct NamedProperties {
    std::string name;
    Properties properties;
  };

  // Null: returned when there is none.
  const ElementProperty* property(const char* name, unsigned int index) const {
    const Properties* found = propertiesNamed(name);
    return found != nullptr && index < found->size() ? &(*found)[index] : nullptr;
  }

  pugi::xml_node firstChild() const { return attributes_.element().first_child(); }

  // Collects the properties of a name when it is first asked for: few names are, each of them often.
  // Null: returned when `name` is null and on allocation failure.
  const Properties* propertiesNamed(const char* name) const try {
    if (name == nullptr) return nullptr;
    for (const NamedProperties& known : known_)
      if (std::strcmp(known.name.c_str(), name) == 0) return &known.properties;
    return &known_.emplace_front(NamedProperties{name, collect(name)}).properties;
  } catch (const std::bad_alloc&) {
    return nullptr;
  }

  Properties collect(const char* name) const {
    Properties properties;
    for (pugi::xml_node child = firstChild(); child; child = child.next_sibling())
      if (std::strcmp(shortName(child, prefix_), name) == 0 && child.type() == pugi::node_element)
        properties.emplace_back(child);
    return properties;
  }

  ElementAttributes attributes_;
  const std::string& prefix_;
  mutable std::forward_list<NamedProperties> known_;
};

// Returns: the one element at the top level.
// Null: returned when there is no element or more than one, or anything else but white space.
pugi::xml_node rootOf(const pugi::xml_document& xml) {
  pugi::xml_node root;
  for (pugi::xml_node node = xml.first_child(); node; node = node.next_sibling()) {
    if (node.type() == pugi::node_element && !root) {
      root = node;
    } else if (node.type() != pugi::node_pcdata || !trim(node.value()).empty()) {
      return {};
    }
  }
  return root;
}

}  // namespace

struct UpnpCdsResult::Document {
  bool parse(const char* didl, size_t length);

  // All names and values point into it.
  std::unique_ptr<char[]> text;
  pugi::xml_document xml;
  std::string prefix;
  std::vector<ElementObject> objects;
};

bool UpnpCdsResult::Document::parse(const char* didl, size_t length) {
  // With the NUL: pugixml overlooks a junk byte where it is to put one itself.
  text.reset(new char[length + 1]);
  // The limit of tags is the lower one: with fewer bytes of interest a document is not too large.
  if (length <= kMaxTags)
    std::memcpy(text.get(), didl, length + 1);
  else if (copyCounting({didl, length + 1}, text.get()) > kMaxTags && treeExcess(didl) != TreeExcess::kNone)
    return false;
  if (!xml.load_buffer_inplace(text.get(), length + 1, kParseFlags, pugi::encoding_utf8)) return false;

  const pugi::xml_node root = rootOf(xml);
  const std::string_view name = root.name();
  // Empty when there is no colon.
  prefix = name.substr(0, name.find(':') + 1);
  if (name.substr(prefix.size()) != "DIDL-Lite" || prefix == ":") return false;

  for (pugi::xml_node node = root.first_child(); node; node = node.next_sibling()) {
    const char* child = shortName(node, prefix);
    if (std::strcmp(child, "item") == 0 || std::strcmp(child, "container") == 0)
      objects.emplace_back(node, prefix);
  }
  return true;
}

UpnpAvResult::~UpnpAvResult() = default;

UpnpCdsResult::UpnpCdsResult(const char* didl) noexcept : document_(nullptr) {
  const size_t length = didl != nullptr ? strnlen(didl, kMaxDidlBytes + 1) : 0;
  if (length == 0 || length > kMaxDidlBytes) return;
  try {
    auto document = std::make_unique<Document>();
    if (document->parse(didl, length)) document_ = document.release();
  } catch (const std::bad_alloc&) {
    // The document counts as not parsed.
  }
}

UpnpCdsResult::~UpnpCdsResult() { delete document_; }

int UpnpCdsResult::GetStatus() const noexcept { return document_ != nullptr ? 0 : -1; }

int UpnpCdsResult::GetNumOfObjects() const noexcept {
  return document_ != nullptr ? static_cast<int>(document_->objects.size()) : 0;
}

const UpnpAvObject* UpnpCdsResult::GetObject(int index) const noexcept {
  return index >= 0 && index < GetNumOfObjects() ? &document_->objects[static_cast<size_t>(index)] : nullptr;
}
