#ifndef TARQ_DMR_DIDL_DURATION_H_
#define TARQ_DMR_DIDL_DURATION_H_

// The "duration" attribute of a `res` element in milliseconds: H:MM:SS, and a fraction of a second as ".5" or
// ".1/2" (ContentDirectory:1, 2.8.3). The longest that is told apart is 2147483647. 0: null, or no duration.
int parseDurationMs(const char* text);

#endif  // TARQ_DMR_DIDL_DURATION_H_
