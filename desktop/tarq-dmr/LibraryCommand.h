#ifndef TARQ_DMR_LIBRARY_COMMAND_H_
#define TARQ_DMR_LIBRARY_COMMAND_H_

#include "LibraryOptions.h"

// Loads the library with the commands for media servers and runs the one that the options are of.
// Errors: CommandError when this program was built without it.
int runLibrary(const LibraryOptions& options);

#endif  // TARQ_DMR_LIBRARY_COMMAND_H_
