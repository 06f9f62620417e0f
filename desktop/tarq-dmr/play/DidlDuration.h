#ifndef TARQ_DMR_DIDL_DURATION_H_
#define TARQ_DMR_DIDL_DURATION_H_

#include <optional>
#include <string>

// Parses the "duration" attribute of a `res` element: H:MM:SS with an optional fraction, ".5" or ".1/2".
// Returns: none for what is not a duration; at most 2147483647.
// Null: none.
// Units: milliseconds.
// Source: ContentDirectory:1, 2.8.3.
std::optional<int> findDurationMs(const char* duration);

inline int parseDurationMs(const char* duration) { return findDurationMs(duration).value_or(0); }

// Returns: whole seconds, rounded down, as H:MM:SS.
// Units: milliseconds; below 0 counts as 0.
std::string durationText(int ms);

#endif  // TARQ_DMR_DIDL_DURATION_H_
