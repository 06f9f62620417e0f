#include "InfoCommand.h"

#include <cstdio>
#include <string>
#include <variant>

#include "CommandError.h"
#include "HostSession.h"
#include "JsonObject.h"
#include "TextOutput.h"

namespace {

using SettingValue = std::variant<const char*, int, bool>;

template <class Interface>
struct Setting {
  const char* name;
  SettingValue (*read)(Interface&);
};

using Device = TarqDmrSpecInterface;
constexpr Setting<Device> kDeviceSettings[] = {
    {"osName", [](Device& d) -> SettingValue { return d.GetOsName(); }},
    {"osVersion", [](Device& d) -> SettingValue { return d.GetOsVersion(); }},
    {"productName", [](Device& d) -> SettingValue { return d.GetProductName(); }},
    {"productVersion", [](Device& d) -> SettingValue { return d.GetProductVersion(); }},
    {"productCompany", [](Device& d) -> SettingValue { return d.GetProductCompany(); }},
    {"documentRoot", [](Device& d) -> SettingValue { return d.GetDocumentRoot(); }},
    {"descriptionUrl", [](Device& d) -> SettingValue { return d.GetDescriptionUrl(); }},
    {"xavAv", [](Device& d) -> SettingValue { return d.GetXav_Av(); }},
    {"xavHn", [](Device& d) -> SettingValue { return d.GetXav_Hn(); }},
    {"xavCn", [](Device& d) -> SettingValue { return d.GetXav_Cn(); }},
    {"xavMn", [](Device& d) -> SettingValue { return d.GetXav_Mn(); }},
    {"xavMv", [](Device& d) -> SettingValue { return d.GetXav_Mv(); }},
    {"xavPa", [](Device& d) -> SettingValue { return d.GetXav_Pa(); }},
    {"xavPl", [](Device& d) -> SettingValue { return d.GetXav_Pl(); }},
    {"portNumber", [](Device& d) -> SettingValue { return d.GetPortNumber(); }},
    {"defaultFriendlyName", [](Device& d) -> SettingValue { return d.GetDefaultFriendlyName(); }},
    {"defaultUdnFormat", [](Device& d) -> SettingValue { return d.GetDefaultUdnFormat(); }},
    {"defaultNwIf", [](Device& d) -> SettingValue { return d.GetDefaultNwIf(); }},
    {"defaultRegModeAuto", [](Device& d) -> SettingValue { return d.GetDefaultRegModeAuto(); }},
    {"allowedListMax", [](Device& d) -> SettingValue { return d.GetAllowedListMax(); }},
    {"deniedListMax", [](Device& d) -> SettingValue { return d.GetDeniedListMax(); }},
    {"pendingListMax", [](Device& d) -> SettingValue { return d.GetPendingListMax(); }},
};

using ControlPoint = TarqDmrCpParamsInterface;
constexpr Setting<ControlPoint> kControlPointSettings[] = {
    {"xavAv", [](ControlPoint& c) -> SettingValue { return c.GetXav_Av(); }},
    {"xavHn", [](ControlPoint& c) -> SettingValue { return c.GetXav_Hn(); }},
    {"xavCn", [](ControlPoint& c) -> SettingValue { return c.GetXav_Cn(); }},
    {"xavMn", [](ControlPoint& c) -> SettingValue { return c.GetXav_Mn(); }},
    {"xavMv", [](ControlPoint& c) -> SettingValue { return c.GetXav_Mv(); }},
    {"xavPa", [](ControlPoint& c) -> SettingValue { return c.GetXav_Pa(); }},
    {"xavPl", [](ControlPoint& c) -> SettingValue { return c.GetXav_Pl(); }},
    {"nacAllowedMax", [](ControlPoint& c) -> SettingValue { return c.GetNacAllowedMax(); }},
    {"nacDeniedMax", [](ControlPoint& c) -> SettingValue { return c.GetNacDeniedMax(); }},
    {"nacPendingMax", [](ControlPoint& c) -> SettingValue { return c.GetNacPendingMax(); }},
    {"queueSize", [](ControlPoint& c) -> SettingValue { return c.GetQueueSize(); }},
    {"concurrentExec", [](ControlPoint& c) -> SettingValue { return c.GetConcurrentExec(); }},
    {"poolSizeMin", [](ControlPoint& c) -> SettingValue { return c.GetPoolSizeMin(); }},
    {"poolSizeMax", [](ControlPoint& c) -> SettingValue { return c.GetPoolSizeMax(); }},
    {"poolTimeout", [](ControlPoint& c) -> SettingValue { return c.GetPoolTimeout(); }},
    {"commandListLimit", [](ControlPoint& c) -> SettingValue { return c.GetCommandListLimit(); }},
    {"initialDeviceListSize", [](ControlPoint& c) -> SettingValue { return c.GetInitialDeviceListSize(); }},
    {"soapNum", [](ControlPoint& c) -> SettingValue { return c.GetSoapNum(); }},
    {"eventPort", [](ControlPoint& c) -> SettingValue { return c.GetEventPort(); }},
};

constexpr int kNameWidth = 21;  // of the longest name

void printSetting(const char* name, const SettingValue& value) {
  if (const auto* number = std::get_if<int>(&value)) {
    printRow(name, kNameWidth, std::to_string(*number).c_str());
  } else if (const auto* flag = std::get_if<bool>(&value)) {
    printRow(name, kNameWidth, *flag ? "true" : "false");
  } else {
    printRow(name, kNameWidth, std::get<const char*>(value));
  }
}

template <class Interface, size_t N>
void printSettings(const char* heading, const Setting<Interface> (&settings)[N], Interface& from) {
  std::printf("\n%s\n", heading);
  for (const auto& setting : settings) printSetting(setting.name, setting.read(from));
}

std::string versionOf(const PluginInfo& info) {
  const auto& v = info.version;
  return std::to_string(v[0]) + "." + std::to_string(v[1]) + "." + std::to_string(v[2]);
}

void printPlugin(const PluginInfo& info) {
  std::printf("Plug-in\n");
  printRow("version", kNameWidth, versionOf(info).c_str());
  printRow("company", kNameWidth, recordString(info.company).c_str());
  printRow("product", kNameWidth, recordString(info.product).c_str());
  printRow("description", kNameWidth, recordString(info.description).c_str());
}

template <class Interface, size_t N>
void writeSettings(JsonObject& object, const Setting<Interface> (&settings)[N], Interface& from) {
  for (const auto& setting : settings) {
    std::visit([&](auto value) { object.add(setting.name, value); }, setting.read(from));
  }
}

void writePlugin(JsonObject& object, const PluginInfo& info) {
  object.addNumbers("version", info.version);
  object.add("company", recordString(info.company));
  object.add("product", recordString(info.product));
  object.add("description", recordString(info.description));
}

void printJson(const PluginInfo& info, Device& device, ControlPoint& controlPoint) {
  JsonWriter json(stdout);
  {
    JsonObject all(json);
    all.addObject("plugin", [&](JsonObject& object) { writePlugin(object, info); });
    all.addObject("device", [&](JsonObject& object) { writeSettings(object, kDeviceSettings, device); });
    all.addObject("controlPoint",
                  [&](JsonObject& object) { writeSettings(object, kControlPointSettings, controlPoint); });
  }
  json.endLine();
}

}  // namespace

int runInfo(const InfoOptions& options) {
  TarqDmrPluginManager& host = openHost(options.host);
  const PluginInfo& info = *host.GetPluginInfo();
  if (options.json) {
    printJson(info, *host.GetSpec(), *host.GetCpParams());
  } else {
    printPlugin(info);
    printSettings("Device settings", kDeviceSettings, *host.GetSpec());
    printSettings("Control-point parameters", kControlPointSettings, *host.GetCpParams());
  }
  return kExitOk;
}

std::string versionText() {
  const std::string program = "tarq-dmr " TARQ_DMR_VERSION " (commit " TARQ_DMR_COMMIT ")\nplug-in ";
  try {
    const PluginInfo& info = *openHost({}).GetPluginInfo();
    const std::string record = versionOf(info) + ": " + recordString(info.company) + ", " +
                               recordString(info.product) + ", " + recordString(info.description);
    return program + printable(record.c_str());
  } catch (const CommandError& error) {
    return program + printable(error.what());
  }
}
