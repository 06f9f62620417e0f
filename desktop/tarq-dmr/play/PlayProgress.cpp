#include "PlayProgress.h"

#include <unistd.h>

#include <array>
#include <cstdio>
#include <string>

#include "DidlDuration.h"
#include "TextOutput.h"

namespace {

constexpr auto kPlainInterval = std::chrono::seconds(1);
constexpr std::array kStates = {"stopped", "playing", "paused"};  // by the numbers of TarqRendererHandler

std::string stateName(int state) {
  if (state >= 0 && static_cast<size_t>(state) < kStates.size()) return kStates[static_cast<size_t>(state)];
  return "state " + std::to_string(state);
}

}  // namespace

std::string describe(const PlayMoment& moment) {
  const std::string whole = moment.durationMs > 0 ? durationText(moment.durationMs) : "unknown";
  return stateName(moment.state) + "  " + durationText(moment.positionMs) + " / " + whole;
}

PlayProgress::PlayProgress() : onTerminal_(isatty(STDOUT_FILENO) != 0) {}

PlayProgress::~PlayProgress() {
  if (onTerminal_ && shown_) std::putchar('\n');
}

void PlayProgress::show(const PlayMoment& moment) {
  const auto now = std::chrono::steady_clock::now();
  if (!onTerminal_ && shown_ && now - *shown_ < kPlainInterval) return;
  shown_ = now;
  // On a terminal the line is cleared and written over the next time.
  std::printf(onTerminal_ ? "\r\x1b[K%s" : "%s\n", describe(moment).c_str());
  std::fflush(stdout);
}

void PlayProgress::showTrack(int number, const char* uri) {
  std::printf(onTerminal_ ? "\r\x1b[Ktrack %d: %s\n" : "track %d: %s\n", number, printable(uri).c_str());
  shown_.reset();
}
