#ifndef TARQ_DMR_JAVA_HANDLER_H_
#define TARQ_DMR_JAVA_HANDLER_H_

#include <jni.h>

#include <string>

// A Java object that plays, made by the name of its class, and what it may have beyond the player's methods.
// Used on the thread of its environment. Owns: the local reference to the object.
class JavaHandler {
 public:
  // `className` with dots; the class is public with a constructor without arguments. Throws CommandError.
  JavaHandler(JNIEnv& env, const std::string& className);
  ~JavaHandler();
  JavaHandler(const JavaHandler&) = delete;
  JavaHandler& operator=(const JavaHandler&) = delete;

  jobject object() const { return object_; }

  bool setProgram(const std::string& command);  // false: the handler runs no programs
  void setTrackDuration(int milliseconds);      // nothing, where the handler does not want to know

 private:
  jmethodID findMethod(const char* name, const char* signature);

  JNIEnv& env_;
  jobject object_;
};

#endif  // TARQ_DMR_JAVA_HANDLER_H_
