#include "InstalledFiles.h"

#include <dlfcn.h>

#include <string>

#include "CommandError.h"

namespace fs = std::filesystem;

fs::path installedFile(const char* file) {
  const fs::path binFolder = fs::read_symlink("/proc/self/exe").parent_path();
  return (binFolder / ".." / file).lexically_normal();
}

void* loadFunction(const char* file, const char* name, const char* whole) {
  const fs::path path = installedFile(file);
  if (!fs::exists(path)) {
    throw CommandError("this program was built without " + std::string(whole) +
                       ", for which it needs libgupnp-1.6");
  }
  void* const library = dlopen(path.c_str(), RTLD_NOW);
  void* const function = library == nullptr ? nullptr : dlsym(library, name);
  if (function == nullptr) throw CommandError(dlerror());
  return function;
}
