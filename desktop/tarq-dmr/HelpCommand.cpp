#include "HelpCommand.h"

#include <algorithm>
#include <cstdio>

#include "CommandError.h"
#include "ResultText.h"
#include "TextOutput.h"
#include "VondHspError.h"

namespace {

std::string codeRow(int code, const char* words) {
  return "  " + std::to_string(code) + std::string(code < 10 ? 6 : code < 10000 ? 3 : 2, ' ') + words + "\n";
}

std::string codesText() {
  std::string text = "The result of a check, from the plug-in; with 0 the resource plays:\n\n";
  for (const ResultText& row : resultTexts()) text += codeRow(row.code, row.words);
  text +=
      "\nIn a batch, -1: the line is not valid input. Why no answer came is in the log of\n--log debug:\n\n";
  for (int error = kVondHspConnectFailed; error <= kVondHspNoResources; ++error)
    text += codeRow(error, VondHspErrorText(error));
  return text;
}

std::string regionsText() {
  return "The region is a set of bits that the host sets to say where the renderer is sold:\n"
         "--region, decimal or 0x..., signed 32 bits, default 0. It adds these:\n\n"
         "  no bit               to the sink list: AVI and Xvid MIME types only\n"
         "                       to video: formats that their MIME type tells\n"
         "  any of 0x01 to 0x80  to the sink list: every unprotected profile, MIME type\n"
         "  any of 0x01 to 0x08  to video: profile names, MIME types with extensions\n"
         "  0x02                 to both: link-protected (DTCP) profiles\n"
         "                       to the sink list: ARIB profiles\n"
         "  0x04                 to video: video/vnd.directv... with extensions\n"
         "  exactly 16 (0x10)    to both: RealMedia\n"
         "                       to video: no profile name at all\n\n"
         "18 (16 and 2) is not exactly 16: it adds what 0x02 adds, and no RealMedia. Photos\n"
         "and music do not depend on the region.\n";
}

std::string metadataText() {
  return "The metadata is what a control point sends as CurrentURIMetaData of\n"
         "SetAVTransportURI: DIDL-Lite with one item. Without it a check knows the URI alone.\n\n"
         "  <DIDL-Lite xmlns=\"urn:schemas-upnp-org:metadata-1-0/DIDL-Lite/\"\n"
         "    xmlns:dc=\"http://purl.org/dc/elements/1.1/\">\n"
         "    <item id=\"1\" parentID=\"0\" restricted=\"1\"><dc:title>A song</dc:title>\n"
         "      <res protocolInfo=\"http-get:*:audio/mpeg:DLNA.ORG_PN=MP3\"\n"
         "        duration=\"0:03:20\">http://192.168.0.2:8200/23.mp3</res></item>\n"
         "  </DIDL-Lite>\n\n"
         "From a network trace it can be pasted as it is: escaped (&lt;DIDL-Lite ...), or with\n"
         "the SOAP envelope around it. In a batch it is a JSON string.\n\n"
         "Metadata above 4 MiB, with more than 16,384 tags, or with a document type\n"
         "declaration counts as missing; explain says so.\n";
}

constexpr HelpTopic kTopics[] = {
    {"regions", "What the region adds to what plays", regionsText},
    {"codes", "The result codes of a check, and of its request", codesText},
    {"metadata", "The DIDL-Lite of an item, and how to write it", metadataText},
};

std::string topicList() {
  std::string text = "Topics:\n";
  for (const HelpTopic& topic : kTopics)
    text += "  tarq-dmr help " +
            std::string(topic.name).append(12 - std::string_view(topic.name).size(), ' ') +
            topic.description + "\n";
  return text + "tarq-dmr --help lists the commands.\n";
}

}  // namespace

std::span<const HelpTopic> helpTopics() { return kTopics; }

int runHelp(const CLI::App& program, const std::string& name) {
  const auto topic = std::ranges::find(kTopics, std::string_view(name), &HelpTopic::name);
  const auto named = [&](const CLI::App* command) { return command->get_name() == name; };
  const auto commands = program.get_subcommands(named);
  if (topic != std::end(kTopics)) {
    std::fputs(topic->text().c_str(), stdout);
  } else if (!commands.empty()) {
    std::fputs(commands[0]->help(program.get_name()).c_str(), stdout);
  } else if (name.empty()) {
    std::fputs(topicList().c_str(), stdout);
  } else {
    throw CommandError("there is no topic or command " + name + " (see tarq-dmr help)");
  }
  return kExitOk;
}
