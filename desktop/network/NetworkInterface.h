#ifndef TARQ_NETWORK_INTERFACE_H_
#define TARQ_NETWORK_INTERFACE_H_

#include <string>

struct NetworkInterface {
  std::string name;
  std::string address;    // IPv4, in decimal
  std::string hexDigits;  // 12, of its hardware address
};

// Returns: the interface of that name.
// Errors: CommandError when there is none, or when it has no IPv4 address.
NetworkInterface findInterface(const std::string& name);

bool hasInterface(const std::string& name);

// Returns: the interface that the default route uses.
// Errors: CommandError when there is no such route, or when the interface has no IPv4 address.
NetworkInterface findRoutedInterface();

// Returns: other digits for each distance, for several renderers on one interface; the same ones for 0.
std::string distinctDigits(const std::string& hexDigits, int distance);

#endif  // TARQ_NETWORK_INTERFACE_H_
