#include "LastChange.h"

#include <algorithm>
#include <iterator>
#include <pugixml.hpp>
#include <string_view>

#include "XmlText.h"

namespace {

// Values that exist for each channel.
constexpr std::string_view kOfChannels[] = {"Volume", "Mute"};

}  // namespace

std::string LastChange::everything(const std::vector<NamedValue>& values) const {
  pugi::xml_document document;
  pugi::xml_node event = document.append_child("Event");
  event.append_attribute("xmlns") = namespace_;
  pugi::xml_node instance = event.append_child("InstanceID");
  instance.append_attribute("val") = "0";
  for (const NamedValue& each : values) {
    pugi::xml_node node = instance.append_child(each.name.c_str());
    if (std::ranges::find(kOfChannels, each.name) != std::end(kOfChannels)) {
      node.append_attribute("channel") = "Master";
    }
    node.append_attribute("val") = allowedInXml(each.value).c_str();
  }
  return xmlText(document);
}

std::string LastChange::changes(const std::vector<NamedValue>& values) {
  std::vector<NamedValue> fresh;
  std::ranges::copy_if(values, std::back_inserter(fresh), [this](const NamedValue& each) {
    return std::ranges::find(told_, each) == told_.end();
  });
  told_ = values;
  return fresh.empty() ? std::string() : everything(fresh);
}

std::vector<NamedValue> toldRenderingValues(const RenderingState& now) {
  return {{"Volume", std::to_string(now.volume)},
          {"Mute", now.mute ? "1" : "0"},
          {"PresetNameList", "FactoryDefaults"}};
}
