#ifndef TARQ_DMR_RENDERER_COMMAND_H_
#define TARQ_DMR_RENDERER_COMMAND_H_

#include "RendererOptions.h"

// Loads the renderer's library and runs it.
// Errors: CommandError when this program was built without it.
int runRenderer(const RendererOptions& options);

#endif  // TARQ_DMR_RENDERER_COMMAND_H_
