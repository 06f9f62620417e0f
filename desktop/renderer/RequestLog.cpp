#include "RequestLog.h"

#include <cstdio>
#include <ctime>

#include "JsonObject.h"
#include "ResultText.h"
#include "TextOutput.h"

namespace {

// "2026-11-23T12:30:05.123", local time.
std::string timeStamp() {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  tm local{};
  localtime_r(&now.tv_sec, &local);
  char text[48];
  const size_t length = std::strftime(text, sizeof text, "%FT%T", &local);
  std::snprintf(text + length, sizeof text - length, ".%03d", static_cast<int>(now.tv_nsec / 1'000'000));
  return text;
}

std::string clockTime() { return timeStamp().substr(11); }

std::string answerWords(const PendingAction& done) {
  return done.error ? std::to_string(done.error->code) + " " + printable(errorWords(done)) : "done";
}

std::string duration(std::chrono::microseconds took) {
  char text[32];
  std::snprintf(text, sizeof text, "%.1f ms", static_cast<double>(took.count()) / 1000);
  return text;
}

// "res 2 of 4, MPEG4, original, 1510 points ahead; HEAD: accepted, video/mp4, 12 ms"
std::string choiceText(const LoggedChoice& choice) {
  const CheckedSource& checked = *choice.checked;
  std::string words = choice.words.line;
  if (choice.words.asksServer) {
    words += std::string("; HEAD: ") + describe(checked.code);
    const char* type = checked.code == kAccepted ? checked.resource().mimeType : nullptr;
    if (type != nullptr) words += ", " + printable(type);
  }
  return words + ", " + std::to_string(checked.tookMs) + " ms";
}

void writeAction(JsonObject& object, const PendingAction& done, std::chrono::microseconds took) {
  object.add("time", timeStamp());
  object.add("address", done.address);
  object.add("agent", done.agent);
  object.add("service", done.call.service().name);
  object.add("action", done.call.action().name);
  object.add("error", done.error ? done.error->code : 0);
  done.error ? object.add("message", errorWords(done)) : object.addNull("message");
  object.add("microseconds", static_cast<int>(took.count()));
}

}  // namespace

void RequestLog::note(const std::string& words) const {
  if (json_) {
    JsonWriter json;
    {
      JsonObject object(json);
      object.add("time", timeStamp());
      object.add("note", words);
    }
    std::puts(json.str().c_str());
  } else {
    std::printf("%s  %s\n", clockTime().c_str(), printable(words).c_str());
  }
  std::fflush(stdout);
}

void RequestLog::action(const PendingAction& done, std::chrono::microseconds took,
                        const LoggedChoice* choice) const {
  if (json_) {
    JsonWriter json;
    {
      JsonObject object(json);
      writeAction(object, done, took);
      if (choice != nullptr) {
        json.key("explanation");
        json.json(choice->words.whole);
      }
    }
    std::puts(json.str().c_str());
  } else {
    std::printf("%s  %s  %s  %s  %s  %s\n", clockTime().c_str(), done.address.c_str(),
                done.call.action().name, answerWords(done).c_str(), duration(took).c_str(),
                printable(done.agent).c_str());
    if (choice != nullptr) std::printf("              %s\n", choiceText(*choice).c_str());
    if (choice != nullptr) std::fputs(choice->words.whole.c_str(), stdout);
  }
  std::fflush(stdout);
}
