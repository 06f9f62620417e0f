// From a DIDL-Lite document to the chosen `res` element.
// Input: a line with the region, then the document.
#include <algorithm>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <vector>

#include "FuzzInput.h"
#include "TarqCdsAccess.h"
#include "TarqDlnaResSelection.h"

namespace {

struct Choice {
  int index = -1;
  std::string format;

  bool operator==(const Choice&) const = default;
};

// Whether two `res` elements agree in everything that a selection looks at.
bool repeats(const TARQ_Object* object, unsigned int a, unsigned int b) {
  const char* names[] = {"protocolInfo", "resolution", "av:mpfEntries"};
  return sameText(resUrl(object, a), resUrl(object, b)) && std::ranges::all_of(names, [&](const char* name) {
           return sameText(resAttribute(object, a, name), resAttribute(object, b, name));
         });
}

Choice chooseFrom(const TARQ_Object* object, int32_t region, int excludeHls) {
  const int count = TARQ_Object_NumOfProperties(object, cdsText("res"));
  const auto records = std::make_unique<TarqDlnaResMetadata[]>(static_cast<size_t>(count));
  int selected = -1;
  TarqDlnaResSelection(region).selectMediaResIndex(object, records.get(), count, &selected, excludeHls);
  require(selected >= -1 && selected < count, "the chosen index is -1 or one of the elements");
  if (selected == -1) return {};

  const TarqDlnaResMetadata& record = records[static_cast<size_t>(selected)];
  const char* format = record.format;
  const bool unnamedMpo = record.mpfEntries != 0 && !sameText(record.mimeType.c_str(), "image/jpeg");
  require(format != nullptr || unnamedMpo, "the chosen element has a format");
  for (int i = 0; i < selected; ++i) {
    require(!repeats(object, static_cast<unsigned int>(i), static_cast<unsigned int>(selected)),
            "an element that repeats an earlier one does not win");
  }
  return {selected, format != nullptr ? format : ""};
}

Choice choose(std::string_view document, int32_t region) {
  const Text didl(document);
  const std::unique_ptr<TARQ_Result, void (*)(TARQ_Result*)> result(
      TARQ_Result_ParseCds(cdsText(didl.c_str())), TARQ_Result_DestroyResult);
  if (result == nullptr || TARQ_Result_NumOfObjects(result.get()) < 1) return {};
  const TARQ_Object* object = TARQ_Result_GetObject(result.get(), 0);
  const Choice choice = chooseFrom(object, region, 0);
  require(chooseFrom(object, region, 0) == choice, "the same object gives the same choice twice");
  const Choice withoutHls = chooseFrom(object, region, 1);
  require(withoutHls == choice || withoutHls == Choice{},
          "refusing playlists changes the choice to none only");
  return choice;
}

// Where the child elements of `parent` begin, in the text that it was parsed from.
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

// The properties of the first object but the last, twice.
std::string withRepetitions(std::string_view document, const pugi::xml_document& xml) {
  std::string text(document);
  const std::vector<size_t> begins = childrenOf(xml.document_element().first_child());
  if (begins.size() > 1)
    text.insert(begins.back(), document.substr(begins.front(), begins.back() - begins.front()));
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzInput input(data, size);
  const int32_t region = input.number();
  const std::string_view document = input.rest().substr(0, input.rest().find('\0'));
  const Choice choice = choose(document, region);
  require(choose(document, region) == choice, "the same document gives the same choice twice");

  pugi::xml_document xml;
  if (!xml.load_buffer(document.data(), document.size(), pugi::parse_default, pugi::encoding_utf8)) return 0;
  require(choose(withBlanks(document, xml), region) == choice,
          "white space between elements changes nothing");
  choose(withRepetitions(document, xml), region);
  return 0;
}
