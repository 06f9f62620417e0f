#ifndef TARQ_RENDERER_PARTS_H_
#define TARQ_RENDERER_PARTS_H_

#include <string>

class Rendering;
class Transport;

// What the actions act on.
struct RendererParts {
  Transport& transport;
  Rendering& rendering;
  const std::string& sinkProtocolInfo;
};

#endif  // TARQ_RENDERER_PARTS_H_
