#ifndef TARQ_LIBRARY_SURVEY_OUTPUT_H_
#define TARQ_LIBRARY_SURVEY_OUTPUT_H_

#include <cstdio>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "ContentDirectory.h"
#include "HtmlReport.h"
#include "LibraryOptions.h"
#include "RateProgress.h"
#include "SurveySummary.h"

// Where the results of a survey go: the counts to standard output at the end, lines and a page with each item and
// region to files, progress to standard error.
// Threads: any.
// Errors: CommandError when a file cannot be written.
class SurveyOutput {
 public:
  SurveyOutput(const SurveyOptions& options, const ServerDescription& server);

  void enter(const std::string& container);
  void note(const std::string& container, const std::string& words);
  void add(const SurveyedItem& item);
  void end(SurveyEnd end);
  // Ends the output with the last item that was added, then the process by `signal`, which must not be blocked.
  void interrupt(int signal) noexcept;

  bool readNothing();  // because the first container could not be read

 private:
  struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  void writeEnd(SurveyEnd end);

  const SurveyOptions& options_;
  const ServerDescription& server_;
  std::mutex mutex_;  // for all below
  std::unique_ptr<std::FILE, CloseFile> ndjson_;
  std::optional<HtmlReport> html_;
  RateProgress progress_;
  std::string container_;  // that is read now
  SurveySummary summary_;
  bool hasEnded_ = false;
};

#endif  // TARQ_LIBRARY_SURVEY_OUTPUT_H_
