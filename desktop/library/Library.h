#ifndef TARQ_LIBRARY_H_
#define TARQ_LIBRARY_H_

#include "LibraryOptions.h"

// Media servers: which there are, and what plays of all that one has. A module that is loaded when one of these
// commands is given, so that other commands need neither GUPnP nor the time to load it.

// Returns: an exit code.
// Errors: CommandError for a server that is not found or not usable, and for a file that cannot be written.
extern "C" __attribute__((visibility("default"))) int runTarqLibrary(const LibraryOptions& options);

using RunTarqLibrary = decltype(&runTarqLibrary);
inline constexpr const char* kRunTarqLibrary = "runTarqLibrary";

#endif  // TARQ_LIBRARY_H_
