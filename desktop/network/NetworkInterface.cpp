#include "NetworkInterface.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <linux/if_packet.h>
#include <net/if.h>
#include <netinet/in.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <sstream>

#include "CommandError.h"

namespace {

constexpr size_t kHexDigits = 12;

// Calls `read` with each address of that family on the interface.
template <class Socket, class Read>
void forEachAddress(const std::string& name, int family, Read read) {
  ifaddrs* list = nullptr;
  if (getifaddrs(&list) != 0) return;
  const std::unique_ptr<ifaddrs, void (*)(ifaddrs*)> owner(list, freeifaddrs);
  for (const ifaddrs* each = list; each != nullptr; each = each->ifa_next) {
    if (name != each->ifa_name || each->ifa_addr == nullptr || each->ifa_addr->sa_family != family) continue;
    read(*reinterpret_cast<const Socket*>(each->ifa_addr));
  }
}

// Returns: the first IPv4 address of that interface, or the empty string.
std::string addressOf(const std::string& name) {
  std::string address;
  forEachAddress<sockaddr_in>(name, AF_INET, [&](const sockaddr_in& socket) {
    char text[INET_ADDRSTRLEN];
    const bool isFirst = address.empty();
    if (isFirst && inet_ntop(AF_INET, &socket.sin_addr, text, sizeof text) != nullptr) address = text;
  });
  return address;
}

std::string hardwareDigits(const std::string& name) {
  std::string digits;
  forEachAddress<sockaddr_ll>(name, AF_PACKET, [&](const sockaddr_ll& socket) {
    for (const unsigned char byte : socket.sll_addr) {
      char pair[3];
      std::snprintf(pair, sizeof pair, "%02x", byte);
      digits += pair;
    }
  });
  digits.resize(kHexDigits, '0');
  return digits;
}

// Returns: its name; empty when there is no default route.
std::string routedInterface() {
  std::ifstream routes("/proc/net/route");
  std::string line;
  while (std::getline(routes, line)) {
    std::istringstream fields(line);
    std::string name;
    std::string destination;
    if (fields >> name >> destination && destination == "00000000") return name;
  }
  return {};
}

}  // namespace

NetworkInterface findInterface(const std::string& name) {
  if (!hasInterface(name)) throw CommandError("there is no network interface " + name);
  const std::string address = addressOf(name);
  if (address.empty()) throw CommandError("the network interface " + name + " has no IPv4 address");
  return {name, address, hardwareDigits(name)};
}

bool hasInterface(const std::string& name) { return if_nametoindex(name.c_str()) != 0; }

NetworkInterface findRoutedInterface() {
  const std::string routed = routedInterface();
  if (routed.empty())
    throw CommandError("there is no default route; name a network interface with --interface");
  return findInterface(routed);
}

std::string distinctDigits(const std::string& hexDigits, int distance) {
  const auto number = std::stoull(hexDigits, nullptr, 16) ^ static_cast<uint16_t>(distance);
  char digits[kHexDigits + 1];
  std::snprintf(digits, sizeof digits, "%012llx", number);
  return digits;
}
