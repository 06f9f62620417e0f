#ifndef TARQ_DMR_PLAY_COMMAND_H_
#define TARQ_DMR_PLAY_COMMAND_H_

#include <optional>

#include "HostSession.h"
#include "PlayerChoice.h"

struct PlayOptions {
  HostOptions host;
  std::string uri;
  std::optional<std::string> metadataFile;  // "-": standard input
  int32_t region = 0;
  std::optional<std::string> nextUri;
  std::optional<std::string> nextMetadataFile;  // "-": standard input
  PlayerChoice player;
};
int runPlay(const PlayOptions& options);

#endif  // TARQ_DMR_PLAY_COMMAND_H_
