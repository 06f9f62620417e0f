#include "Library.h"

#include "CommandError.h"

int runTarqLibrary(const LibraryOptions&) { throw CommandError("not built yet"); }
