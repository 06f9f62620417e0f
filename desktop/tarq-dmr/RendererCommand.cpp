#include "RendererCommand.h"

#include <dlfcn.h>

#include <filesystem>

#include "CommandError.h"
#include "Renderer.h"

namespace fs = std::filesystem;

int runRenderer(const RendererOptions& options) {
  const fs::path binFolder = fs::read_symlink("/proc/self/exe").parent_path();
  const fs::path path = (binFolder / "../lib/libtarq_renderer.so").lexically_normal();
  if (!fs::exists(path)) {
    throw CommandError("this program was built without the renderer, for which it needs libgupnp-1.6");
  }
  void* library = dlopen(path.c_str(), RTLD_NOW);
  if (library == nullptr) throw CommandError(dlerror());
  return reinterpret_cast<RunTarqRenderer>(dlsym(library, kRunTarqRenderer))(options);
}
