#include "InstalledFiles.h"

#include <dlfcn.h>
#include <link.h>

#include <string>

#include "CommandError.h"

namespace fs = std::filesystem;

fs::path installedFile(const char* file) {
  void* const libtarq = dlopen("libtarq.so", RTLD_NOW | RTLD_NOLOAD);
  const link_map* loaded = nullptr;
  if (libtarq == nullptr || dlinfo(libtarq, RTLD_DI_LINKMAP, &loaded) != 0) throw CommandError(dlerror());
  const fs::path path = fs::absolute(loaded->l_name);
  dlclose(libtarq);
  return path.lexically_normal().replace_filename(file);
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
