#include "SurveyOutput.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <utility>

#include "CommandError.h"
#include "JsonObject.h"
#include "JsonWriter.h"
#include "Steps.h"
#include "SurveyReport.h"

namespace {

void writeLine(std::FILE* file, const LibraryItem& item, int32_t region, const CheckFacts& facts) {
  JsonWriter json(file);
  {
    JsonObject object(json);
    object.add("id", item.id);
    object.add("title", item.title);
    object.add("uri", item.uri);
    object.add("metadata", item.didl);
    object.add("region", region);
    json.key("result");
    json.json(facts.result);
  }
  json.endLine();
}

[[noreturn]] void failToWrite(const std::string& file) {
  throw CommandError("cannot write " + file + ": " + std::strerror(errno));
}

}  // namespace

SurveyOutput::SurveyOutput(const SurveyOptions& options, const ServerDescription& server)
    : options_(options), server_(server), progress_("items"), summary_(options.regions) {
  if (options.htmlFile) html_.emplace(*options.htmlFile);
  if (!options.ndjsonFile) return;
  ndjson_.reset(std::fopen(options.ndjsonFile->c_str(), "we"));
  if (ndjson_ == nullptr) failToWrite(*options.ndjsonFile);
}

void SurveyOutput::enter(const std::string& container) {
  const std::lock_guard lock(mutex_);
  ++summary_.containers;
  container_ = container;
}

void SurveyOutput::note(const std::string& container, const std::string& words) {
  const std::lock_guard lock(mutex_);
  summary_.addProblem(container, words);
}

void SurveyOutput::add(const SurveyedItem& item) {
  const std::lock_guard lock(mutex_);
  summary_.add(item);
  if (ndjson_ != nullptr) {
    for (size_t i = 0; i < item.facts.size(); ++i)
      writeLine(ndjson_.get(), item.item, options_.regions[i], item.facts[i]);
    if (std::ferror(ndjson_.get()) != 0) failToWrite(*options_.ndjsonFile);
  }
  for (const std::string& pageItem : item.pageItems) html_->add(pageItem);
  const auto now = RateProgress::Clock::now();
  if (progress_.isDue(now)) progress_.show(summary_.items, ", in " + shown(container_.c_str(), 40), now);
}

void SurveyOutput::end(SurveyEnd end) {
  const std::lock_guard lock(mutex_);
  writeEnd(end);
}

// The lock stays: whatever came after the end would be cut off.
void SurveyOutput::interrupt(int signal) noexcept {
  const std::lock_guard lock(mutex_);
  try {
    writeEnd(SurveyEnd::kInterrupted);
  } catch (const std::exception&) {
    // The process ends either way.
  }
  ::raise(signal);
}

void SurveyOutput::writeEnd(SurveyEnd end) {
  if (std::exchange(hasEnded_, true)) return;
  summary_.end = end;
  progress_.end(summary_.items, "");
  if (ndjson_ != nullptr && std::fflush(ndjson_.get()) != 0) failToWrite(*options_.ndjsonFile);
  if (html_) html_->end(surveyPage(server_, summary_));
  if (options_.json) {
    JsonWriter json(stdout);
    writeSurvey(json, server_, summary_);
    json.endLine();
  } else {
    std::fputs(surveyText(server_, summary_).c_str(), stdout);
  }
  std::fflush(stdout);
}

bool SurveyOutput::readNothing() {
  const std::lock_guard lock(mutex_);
  return summary_.items == 0 && !summary_.problems.empty();
}
