#ifndef TARQ_DMR_JAVA_HANDLER_H_
#define TARQ_DMR_JAVA_HANDLER_H_

#include <jni.h>

#include <optional>
#include <string>
#include <vector>

// A Java object that plays, created by the name of its class. Methods that only some handlers have can be
// called through it.
// Threads: only that of its JNI environment.
// Ownership: holds a local reference to the object.
class JavaHandler {
 public:
  // `className` is written with dots; the class is public and has a constructor without arguments.
  // Errors: CommandError when no object can be created.
  JavaHandler(JNIEnv& env, const std::string& className);
  ~JavaHandler();
  JavaHandler(const JavaHandler&) = delete;
  JavaHandler& operator=(const JavaHandler&) = delete;

  jobject object() const { return object_; }

  bool setProgram(const std::string& command);  // false: the handler runs no programs
  void setTrackDuration(int milliseconds);      // ignored when the handler has no such method
  // Starts the player that the handler drives: false, the handler has none to start.
  bool open(const std::vector<std::string>& options);

  // What a PlaybackReport says; of another handler nothing is known.
  std::optional<std::string> failure();
  std::optional<std::string> currentSource();

 private:
  jmethodID findMethod(const char* name, const char* signature);
  std::optional<std::string> ask(const char* method);

  JNIEnv& env_;
  jobject object_;
};

#endif  // TARQ_DMR_JAVA_HANDLER_H_
