#include "Library.h"

#include "CommandError.h"
#include "JsonObject.h"
#include "JsonWriter.h"
#include "ServerSearch.h"
#include "Survey.h"
#include "TextOutput.h"
#include "TextTable.h"

namespace {

void printTable(const std::vector<MediaServer>& servers) {
  TextTable table({"name", "address", "model", "description"});
  for (const MediaServer& server : servers)
    table.addRow(
        {printable(server.name), printable(server.address), printable(server.model), printable(server.url)});
  std::fputs(servers.empty() ? "no media server answered\n" : table.text().c_str(), stdout);
}

void printJson(const std::vector<MediaServer>& servers) {
  JsonWriter json(stdout);
  json.openArray();
  for (const MediaServer& server : servers) {
    JsonObject object(json);
    object.add("name", server.name);
    object.add("address", server.address);
    object.add("model", server.model);
    object.add("url", server.url);
  }
  json.closeArray();
  json.endLine();
}

int run(const ServersOptions& options) {
  setLogLevel(HostOptions().logLevel);
  const std::vector<MediaServer> servers = findServers(options.interfaceName, options.seconds);
  options.json ? printJson(servers) : printTable(servers);
  return kExitOk;
}

int run(const SurveyOptions& options) { return runSurvey(options); }

}  // namespace

int runTarqLibrary(const LibraryOptions& options) {
  return std::visit([](const auto& each) { return run(each); }, options);
}
