#ifndef TARQ_DMR_JAVA_HANDLER_H_
#define TARQ_DMR_JAVA_HANDLER_H_

#include <jni.h>

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

  // What a PlaybackReport says.
  int currentTrack();  // since the source was set, from 1; always 1 when the handler has no such method
  std::string currentSource();  // its URI; empty: nothing is known
  std::string failure();        // why a call failed or a track ended early; empty: nothing is known

 private:
  jmethodID findMethod(const char* name, const char* signature);
  std::string ask(const char* method);

  JNIEnv& env_;
  jobject object_;
};

#endif  // TARQ_DMR_JAVA_HANDLER_H_
