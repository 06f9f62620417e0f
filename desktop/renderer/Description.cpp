#include "Description.h"

#include <pugixml.hpp>

#include "CommaList.h"
#include "CommandError.h"
#include "XmlText.h"

namespace {

constexpr size_t kMostNameBytes = 63;
constexpr const char* kDlna = "urn:schemas-dlna-org:device-1-0";

struct Icon {
  const char* file;
  const char* type;
  int pixels;
};
constexpr Icon kIcons[] = {{"icon-48.png", "image/png", 48},
                           {"icon-120.png", "image/png", 120},
                           {"icon-48.jpg", "image/jpeg", 48},
                           {"icon-120.jpg", "image/jpeg", 120}};

void add(pugi::xml_node parent, const char* name, const std::string& text) {
  parent.append_child(name).text().set(allowedInXml(text).c_str());
}

// At most that many bytes, and no half of a character.
std::string cut(std::string text, size_t limit) {
  if (text.size() <= limit) return text;
  size_t end = limit;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  text.resize(end);
  return text;
}

pugi::xml_node root(pugi::xml_document& document, const char* name, const char* namespaceName) {
  pugi::xml_node node = document.append_child(name);
  node.append_attribute("xmlns") = namespaceName;
  pugi::xml_node version = node.append_child("specVersion");
  add(version, "major", "1");
  add(version, "minor", "0");
  return node;
}

void addIcons(pugi::xml_node device) {
  pugi::xml_node list = device.append_child("iconList");
  for (const Icon& icon : kIcons) {
    pugi::xml_node node = list.append_child("icon");
    add(node, "mimetype", icon.type);
    add(node, "width", std::to_string(icon.pixels));
    add(node, "height", std::to_string(icon.pixels));
    add(node, "depth", "24");
    add(node, "url", std::string("/") + icon.file);
  }
}

void addServices(pugi::xml_node device) {
  pugi::xml_node list = device.append_child("serviceList");
  for (const Service* service : kServices) {
    const std::string name = service->name;
    pugi::xml_node node = list.append_child("service");
    add(node, "serviceType", service->type());
    add(node, "serviceId", "urn:upnp-org:serviceId:" + name);
    add(node, "SCPDURL", "/" + name + ".xml");
    add(node, "controlURL", "/" + name + "/control");
    add(node, "eventSubURL", "/" + name + "/event");
  }
}

const char* typeWord(ValueType type) {
  switch (type) {
    case ValueType::kUi2:
      return "ui2";
    case ValueType::kUi4:
      return "ui4";
    case ValueType::kI4:
      return "i4";
    case ValueType::kBoolean:
      return "boolean";
    case ValueType::kString:
      break;
  }
  return "string";
}

void addArguments(pugi::xml_node list, std::span<const Argument> arguments, const char* direction) {
  for (const Argument& argument : arguments) {
    pugi::xml_node node = list.append_child("argument");
    add(node, "name", argument.name);
    add(node, "direction", direction);
    add(node, "relatedStateVariable", argument.variable);
  }
}

void addAction(pugi::xml_node list, const Action& action) {
  pugi::xml_node node = list.append_child("action");
  add(node, "name", action.name);
  if (action.inputs().empty() && action.outputs().empty()) return;
  pugi::xml_node arguments = node.append_child("argumentList");
  addArguments(arguments, action.inputs(), "in");
  addArguments(arguments, action.outputs(), "out");
}

void addVariable(pugi::xml_node table, const StateVariable& variable, const std::string& allowed) {
  pugi::xml_node node = table.append_child("stateVariable");
  node.append_attribute("sendEvents") = variable.evented ? "yes" : "no";
  add(node, "name", variable.name);
  add(node, "dataType", typeWord(variable.type));
  if (!allowed.empty()) {
    pugi::xml_node list = node.append_child("allowedValueList");
    for (const std::string_view value : splitCommas(allowed)) add(list, "allowedValue", std::string(value));
  }
  if (variable.range.isSet()) {
    pugi::xml_node range = node.append_child("allowedValueRange");
    add(range, "minimum", std::to_string(variable.range.least));
    add(range, "maximum", std::to_string(variable.range.most));
    add(range, "step", "1");
  }
}

std::string fileText(const pugi::xml_document& document) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n" + xmlText(document) + "\n";
}

}  // namespace

std::string makeUdn(const TarqDmrSpecInterface& settings, const std::string& hexDigits) {
  const std::string format = settings.GetDefaultUdnFormat();
  constexpr std::string_view kPlace = "%-12s";
  const size_t place = format.find(kPlace);
  if (place == std::string::npos)
    throw CommandError("the plug-in's UDN format has no " + std::string(kPlace));
  return std::string(format).replace(place, kPlace.size(), hexDigits);
}

std::string deviceDescription(const TarqDmrSpecInterface& settings, const std::string& friendlyName,
                              const std::string& udn) {
  pugi::xml_document document;
  pugi::xml_node device = root(document, "root", "urn:schemas-upnp-org:device-1-0").append_child("device");
  add(device, "deviceType", "urn:schemas-upnp-org:device:MediaRenderer:1");
  add(device, "friendlyName", cut(friendlyName, kMostNameBytes));
  add(device, "manufacturer", settings.GetProductCompany());
  add(device, "modelDescription", std::string(settings.GetProductName()) + ", a DLNA media renderer");
  add(device, "modelName", settings.GetProductName());
  add(device, "modelNumber", settings.GetProductVersion());
  add(device, "UDN", udn);
  pugi::xml_node dlna = device.append_child("dlna:X_DLNADOC");
  dlna.append_attribute("xmlns:dlna") = kDlna;
  dlna.text().set("DMR-1.50");
  addIcons(device);
  addServices(device);
  add(device, "presentationURL", kPagePath);
  return fileText(document);
}

std::string serviceDescription(const Service& service, const std::string& playSpeeds) {
  pugi::xml_document document;
  pugi::xml_node scpd = root(document, "scpd", "urn:schemas-upnp-org:service-1-0");
  pugi::xml_node actions = scpd.append_child("actionList");
  for (const Action& action : service.actions) addAction(actions, action);
  pugi::xml_node table = scpd.append_child("serviceStateTable");
  for (const StateVariable& variable : service.variables) {
    const bool isSpeed = std::string_view(variable.name) == "TransportPlaySpeed";
    addVariable(table, variable, isSpeed ? playSpeeds : variable.allowed);
  }
  return fileText(document);
}
