#ifndef TARQ_DMR_INSTALLED_LIBRARY_H_
#define TARQ_DMR_INSTALLED_LIBRARY_H_

#include <filesystem>

// Returns: where a library lies that was installed with this program.
std::filesystem::path installedLibrary(const char* file);

// Loads a library of this program that only some commands need. It stays loaded until the process ends.
// `whole`: what is missing without it, for a message.
// Returns: the function that it exports under that name.
// Errors: CommandError when this program was built without the library, or when it does not load.
void* loadFunction(const char* file, const char* name, const char* whole);

#endif  // TARQ_DMR_INSTALLED_LIBRARY_H_
