#ifndef RESOLUTION_PROXY_H_
#define RESOLUTION_PROXY_H_

#include "TarqCdsAccess.h"

// A resolution text that is parsed when somebody asks for its width or height.
// Owns: nothing; whoever set it up destroys `parsed` when done with the record.
struct resolutionProxy {
  const char* text;  // may be null
  TARQ_Resolution* parsed;

  int GetWidth() { return parse() ? TARQ_Resolution_GetWidth(parsed) : -1; }  // pixels; -1: not known
  int GetHeight() { return parse() ? TARQ_Resolution_GetHeight(parsed) : -1; }

  bool parse() {
    if (text != nullptr && parsed == nullptr) parsed = TARQ_Resolution_Parse(cdsText(text));
    return parsed != nullptr;
  }
};

#endif  // RESOLUTION_PROXY_H_
