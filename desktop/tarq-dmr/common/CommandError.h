#ifndef TARQ_DMR_COMMAND_ERROR_H_
#define TARQ_DMR_COMMAND_ERROR_H_

#include <stdexcept>

// How a command ends: it returns an exit code or throws. Results go to standard output, everything else
// to standard error.

enum ExitCode : int { kExitOk = 0, kExitRefused = 1, kExitUsage = 2 };

// Ends the program with kExitUsage after one line on standard error.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

#endif  // TARQ_DMR_COMMAND_ERROR_H_
