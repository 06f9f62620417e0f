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

bool JavaHandler::open(const std::vector<std::string>& options) {
  const jmethodID method = findMethod("open", "([Ljava/lang/String;)V");
  if (method == nullptr) return false;
  const jclass stringClass = env_.FindClass("java/lang/String");
  const jobjectArray array = env_.NewObjectArray(static_cast<jsize>(options.size()), stringClass, nullptr);
  for (size_t i = 0; i < options.size(); ++i) {
    const jstring option = TarqJniUtil::NewJStringUTF8s(&env_, options[i].c_str());
    env_.SetObjectArrayElement(array, static_cast<jsize>(i), option);
    env_.DeleteLocalRef(option);
  }
  env_.CallVoidMethod(object_, method, array);
  env_.ExceptionClear();
  env_.DeleteLocalRef(array);
  env_.DeleteLocalRef(stringClass);
  return true;
}

int JavaHandler::currentTrack() {
  const jmethodID method = findMethod("getCurrentTrack", "()I");
  if (method == nullptr) return 1;
  const int track = env_.CallIntMethod(object_, method);
  env_.ExceptionClear();
  return track;
}

std::string JavaHandler::currentSource() { return ask("getCurrentSource"); }

std::string JavaHandler::failure() { return ask("getFailure"); }

std::string JavaHandler::ask(const char* name) {
  const jmethodID method = findMethod(name, "()Ljava/lang/String;");
  if (method == nullptr) return "";
  const jobject answer = env_.CallObjectMethod(object_, method);
  env_.ExceptionClear();
  return takeJavaString(env_, answer);
}

jmethodID JavaHandler::findMethod(const char* name, const char* signature) {
  const jclass handlerClass = env_.GetObjectClass(object_);
  const jmethodID method = env_.GetMethodID(handlerClass, name, signature);
  env_.ExceptionClear();
  env_.DeleteLocalRef(handlerClass);
  return method;
}
