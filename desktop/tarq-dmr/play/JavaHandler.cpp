#include "JavaHandler.h"

#include <algorithm>

#include "CommandError.h"
#include "JavaVm.h"
#include "TarqJniUtil.h"

JavaHandler::JavaHandler(JNIEnv& env, const std::string& className) : env_(env) {
  std::string path = className;
  std::ranges::replace(path, '.', '/');
  const jclass found = env.FindClass(path.c_str());
  const jmethodID constructor = found == nullptr ? nullptr : env.GetMethodID(found, "<init>", "()V");
  object_ = constructor == nullptr ? nullptr : env.NewObject(found, constructor);
  if (object_ == nullptr || env.ExceptionCheck()) {
    env.ExceptionClear();
    throw CommandError("cannot create a handler of the Java class " + className);
  }
  env.DeleteLocalRef(found);
}

JavaHandler::~JavaHandler() { env_.DeleteLocalRef(object_); }

bool JavaHandler::setProgram(const std::string& command) {
  const jmethodID method = findMethod("setProgram", "(Ljava/lang/String;)V");
  if (method == nullptr) return false;
  const jstring string = TarqJniUtil::NewJStringUTF8s(&env_, command.c_str());
  env_.CallVoidMethod(object_, method, string);
  env_.ExceptionClear();
  env_.DeleteLocalRef(string);
  return true;
}

void JavaHandler::setTrackDuration(int milliseconds) {
  const jmethodID method = findMethod("setTrackDuration", "(I)V");
  if (method == nullptr) return;
  env_.CallVoidMethod(object_, method, jint{milliseconds});
  env_.ExceptionClear();
}

int JavaHandler::currentTrack() {
  const jmethodID method = findMethod("getCurrentTrack", "()I");
  if (method == nullptr) return 1;
  const int track = env_.CallIntMethod(object_, method);
  env_.ExceptionClear();
  return track;
}

std::string JavaHandler::failure() {
  const jmethodID method = findMethod("getFailure", "()Ljava/lang/String;");
  if (method == nullptr) return "";
  const jobject reason = env_.CallObjectMethod(object_, method);
  env_.ExceptionClear();
  return takeJavaString(env_, reason);
}

jmethodID JavaHandler::findMethod(const char* name, const char* signature) {
  const jclass handlerClass = env_.GetObjectClass(object_);
  const jmethodID method = env_.GetMethodID(handlerClass, name, signature);
  env_.ExceptionClear();
  env_.DeleteLocalRef(handlerClass);
  return method;
}
