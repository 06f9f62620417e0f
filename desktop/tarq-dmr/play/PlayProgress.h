#ifndef TARQ_DMR_PLAY_PROGRESS_H_
#define TARQ_DMR_PLAY_PROGRESS_H_

#include <chrono>
#include <optional>
#include <string>

// The states of TarqRendererHandler.
inline constexpr int kStateStopped = 0;
inline constexpr int kStatePlaying = 1;
inline constexpr int kStatePaused = 2;

// What the player reports.
struct PlayMoment {
  int state;
  int positionMs;
  int durationMs;  // 0: not known
  int track;       // 1: the first source, 2: the one after it
};

std::string describe(const PlayMoment& moment);  // "playing  0:00:07 / 0:42:07"

// Shows on standard output how far a track is: one line that changes on a terminal, otherwise one more
// line each second.
class PlayProgress {
 public:
  PlayProgress();
  ~PlayProgress();  // ends the line
  PlayProgress(const PlayProgress&) = delete;
  PlayProgress& operator=(const PlayProgress&) = delete;

  void show(const PlayMoment& moment);
  void showTrack(int number, const char* uri);  // on a line of its own

 private:
  const bool onTerminal_;
  std::optional<std::chrono::steady_clock::time_point> shown_;
};

#endif  // TARQ_DMR_PLAY_PROGRESS_H_
