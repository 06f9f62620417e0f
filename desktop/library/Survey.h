#ifndef TARQ_LIBRARY_SURVEY_H_
#define TARQ_LIBRARY_SURVEY_H_

#include "LibraryOptions.h"

// Checks every item of a media server while the rest is still being read, and prints the counts. Memory does not grow
// with the number of items. After SIGINT or SIGTERM the counts so far are printed, then the process ends by that signal.
// Returns: an exit code.
// Errors: CommandError.
int runSurvey(const SurveyOptions& options);

#endif  // TARQ_LIBRARY_SURVEY_H_
