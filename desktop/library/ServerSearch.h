#ifndef TARQ_LIBRARY_SERVER_SEARCH_H_
#define TARQ_LIBRARY_SERVER_SEARCH_H_

#include <string>
#include <vector>

// A media server on the network, as it describes itself.
struct MediaServer {
  std::string name;
  std::string address;
  std::string model;
  std::string url;  // of its description
};

// Asks the network for media servers and waits so long for answers.
// `interfaceName`: empty for that of the default route.
// Returns: sorted by name.
// Errors: CommandError when the interface cannot be used.
std::vector<MediaServer> findServers(const std::string& interfaceName, int seconds);

// Returns: the URL of the description of the server that `server` means: itself when it is a URL, otherwise that of
//   the only media server with this in its name, in whatever case.
// Errors: CommandError when there is none, or more than one.
std::string findServer(const std::string& server, const std::string& interfaceName);

#endif  // TARQ_LIBRARY_SERVER_SEARCH_H_
