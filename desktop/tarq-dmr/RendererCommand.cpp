#include "RendererCommand.h"

#include "InstalledFiles.h"
#include "Renderer.h"

int runRenderer(const RendererOptions& options) {
  void* const run = loadFunction("libtarq_renderer.so", kRunTarqRenderer, "the renderer");
  return reinterpret_cast<RunTarqRenderer>(run)(options);
}
