#ifndef TARQ_DMR_DIDL_DURATION_H_
#define TARQ_DMR_DIDL_DURATION_H_

// Parses the "duration" attribute of a `res` element: H:MM:SS with an optional fraction, ".5" or ".1/2".
// Returns: 0 for what is not a duration; at most 2147483647.
// Null: 0.
// Units: milliseconds.
// Source: ContentDirectory:1, 2.8.3.
int parseDurationMs(const char* duration);

#endif  // TARQ_DMR_DIDL_DURATION_H_
