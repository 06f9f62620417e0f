#ifndef TARQ_DESCRIPTION_H_
#define TARQ_DESCRIPTION_H_

#include <string>

#include "ServiceTable.h"
#include "TarqDmrSpecInterface.h"

// Where the device has a page for people.
inline constexpr const char* kPagePath = "/page";

// The documents that describe the renderer to control points.

// Returns: "uuid:..." with 12 hexadecimal digits of its own in the plug-in's format.
// Errors: CommandError when the format has no place for them.
std::string makeUdn(const TarqDmrSpecInterface& settings, const std::string& hexDigits);

// Source: UPnP Device Architecture 1.0, 2.1; MediaRenderer:1.
std::string deviceDescription(const TarqDmrSpecInterface& settings, const std::string& friendlyName,
                              const std::string& udn);

// `playSpeeds`: what TransportPlaySpeed may be, separated by commas.
// Source: UPnP Device Architecture 1.0, 2.3.
std::string serviceDescription(const Service& service, const std::string& playSpeeds);

#endif  // TARQ_DESCRIPTION_H_
