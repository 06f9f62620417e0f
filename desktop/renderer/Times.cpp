#include "Times.h"

#include <cstdio>

#include "ActionCall.h"
#include "DidlDuration.h"

std::string timeText(int ms) {
  char text[32];
  const int seconds = ms / 1000;
  std::snprintf(text, sizeof text, "%d:%02d:%02d", seconds / 3600, seconds / 60 % 60, seconds % 60);
  return text;
}

int64_t parseTime(const std::string& time) {
  const std::optional<int> ms = findDurationMs(time.c_str());
  if (!ms) throw ActionError{711};
  return *ms;
}
