#include "LibraryCommand.h"

#include "InstalledFiles.h"
#include "Library.h"

int runLibrary(const LibraryOptions& options) {
  void* const run = loadFunction("libtarq_library.so", kRunTarqLibrary, "the commands for media servers");
  return reinterpret_cast<RunTarqLibrary>(run)(options);
}
