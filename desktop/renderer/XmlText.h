#ifndef TARQ_XML_TEXT_H_
#define TARQ_XML_TEXT_H_

#include <pugixml.hpp>
#include <string>
#include <string_view>

// The document on one line.
std::string xmlText(const pugi::xml_document& document);

// A copy in which U+FFFD stands for what XML forbids: control characters, and bytes that are not valid UTF-8.
// Source: XML 1.0, 2.2.
std::string allowedInXml(std::string_view string);

#endif  // TARQ_XML_TEXT_H_
