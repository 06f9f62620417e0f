#ifndef TARQ_RENDERER_OPTIONS_H_
#define TARQ_RENDERER_OPTIONS_H_

#include <optional>
#include <string>
#include <vector>

#include "HostSession.h"
#include "PlayerChoice.h"

enum class AccessMode { kAllow, kDeny, kAsk };

struct RendererOptions {
  HostOptions host;
  std::string interfaceName;        // empty: the plug-in's, else that of the default route
  std::optional<std::string> name;  // none: the plug-in's friendly name
  std::optional<int> port;          // none: the plug-in's
  int32_t region = 0;
  PlayerChoice player;  // no name and no program: mpv where it is installed
  AccessMode access = AccessMode::kAllow;
  std::vector<std::string> allowed;  // addresses that are allowed, whatever `access` says
  std::vector<std::string> denied;   // these are denied
  bool explain = false;              // the whole explanation of each choice
  bool json = false;
};

#endif  // TARQ_RENDERER_OPTIONS_H_
