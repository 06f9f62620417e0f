#ifndef TARQ_LIBRARY_XML_PAGE_H_
#define TARQ_LIBRARY_XML_PAGE_H_

#include <pugixml.hpp>
#include <string>
#include <string_view>

// What servers send as XML.

// Reads a document that is not too large to build: some ten times what one item may have.
// Returns: false when it is too large; `problem` then says so, or what is wrong with a document of which the tree has
//   only the beginning.
bool parsePage(pugi::xml_document& document, std::string_view xml, unsigned flags, std::string* problem);

// Names are compared without their prefix.
std::string_view localName(pugi::xml_node node);
pugi::xml_node findElement(pugi::xml_node under, std::string_view name);

#endif  // TARQ_LIBRARY_XML_PAGE_H_
