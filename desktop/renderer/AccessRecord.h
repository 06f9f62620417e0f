#ifndef TARQ_ACCESS_RECORD_H_
#define TARQ_ACCESS_RECORD_H_

#include <string>

#include "TarqNetworkAccessControlInterface.h"

// A device that wants to use the renderer.
struct AccessDevice {
  std::string address;  // IPv4
  std::string agent;    // its User-Agent, as it says
  std::string path;     // what it asked for
  std::string mac;      // empty: not known
};

// The application behind the plug-in's access control.
// Threads: any, also several at once. Both may block.
class AccessApplication {
 public:
  virtual ~AccessApplication() = default;
  virtual bool allows(const AccessDevice& device) = 0;
  virtual void deviceSeen(const AccessDevice& device) = 0;
};

// The host's records, which the plug-in passes on unread to the two functions of the application.
struct _TarqNetworkAccessControlInterface::_ACCESS_CHECK_INFO {
  const AccessDevice& device;
  AccessApplication& application;
};
struct _TarqNetworkAccessControlInterface::_ACCESS_NOTIFY_INFO {
  const AccessDevice& device;
  AccessApplication& application;
};

#endif  // TARQ_ACCESS_RECORD_H_
