#ifndef TARQ_TIMES_H_
#define TARQ_TIMES_H_

#include <cstdint>
#include <string>

// Times of AVTransport, H+:MM:SS.
// Units: milliseconds.

std::string timeText(int ms);  // whole seconds, rounded down

// Reads what control points write: H:M:S with any number of digits in each field, and a fraction.
// Errors: ActionError 711 when it is not a time.
int64_t parseTime(const std::string& time);

#endif  // TARQ_TIMES_H_
