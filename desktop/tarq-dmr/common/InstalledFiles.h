#ifndef TARQ_DMR_INSTALLED_FILES_H_
#define TARQ_DMR_INSTALLED_FILES_H_

#include <filesystem>

// Returns: where a file of this program lies: in the folder of libtarq.so, which the loader has found already,
// so that an installation may have other folders than a build. `file`: "tarq-renderer.jar".
std::filesystem::path installedFile(const char* file);

// Loads a library of this program that only some commands need. It stays loaded until the process ends.
// `file`: as above. `whole`: what is missing without it, for a message.
// Returns: the function that it exports under that name.
// Errors: CommandError when this program was built without the library, or when it does not load.
void* loadFunction(const char* file, const char* name, const char* whole);

#endif  // TARQ_DMR_INSTALLED_FILES_H_
