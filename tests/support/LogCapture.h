#ifndef LOG_CAPTURE_H_
#define LOG_CAPTURE_H_

#include <android/log.h>

#include <mutex>
#include <string>
#include <utility>
#include <vector>

// Collects what is logged while it lives, as "priority tag: message". One at a time.
class LogCapture {
 public:
  LogCapture() {
    lines_.clear();
    __android_log_set_minimum_priority(ANDROID_LOG_VERBOSE);
    __android_log_set_logger([](const __android_logger_data* data, const char* message) {
      const std::lock_guard lock(mutex_);
      lines_.push_back(std::to_string(data->priority) + " " + data->tag + ": " + message);
    });
  }
  ~LogCapture() { __android_log_set_logger(__android_log_stderr_logger); }
  LogCapture(const LogCapture&) = delete;
  LogCapture& operator=(const LogCapture&) = delete;

  // The lines since the last call.
  std::vector<std::string> take() {
    const std::lock_guard lock(mutex_);
    return std::exchange(lines_, {});
  }

 private:
  static inline std::mutex mutex_;
  static inline std::vector<std::string> lines_;
};

#endif  // LOG_CAPTURE_H_
