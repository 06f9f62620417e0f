#include "HandlerCall.h"

#include <android/log.h>

#include "TarqDmrPlayerInterface.h"
#include "TarqJniUtil.h"

// All messages are constants of this folder without a format specifier.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-security"
void logPlayer(int priority, const char* message) {
  __android_log_print(priority, "TarqPlugin(DMR)", message);
}
#pragma GCC diagnostic pop

HandlerCall::HandlerCall(const JavaMethod& method) : method_(method) {
  if (s_jCallback.load() == nullptr) {
    fail(kPlayerInvalidState, kNoHandlerMessage);
    return;
  }
  env_ = TarqJniUtil::GetJNIEnv(&attached_);
  if (env_ == nullptr) fail(kPlayerNoEnvironment, "Unknown Error: couldn't get JNIEnv");
}

// The order is fixed: the class before the strings, the strings as they were made, the thread last.
HandlerCall::~HandlerCall() {
  if (env_ == nullptr) return;
  release(class_);
  for (const jstring string : strings_) release(string);
  release(returned_);
  if (attached_ == 1 && TarqJniUtil::DetachVM() != 0) logPlayer(method_.priority, "Detach failed.");
}

jstring HandlerCall::convert(JavaString string) {
  if (result_ != 0 || (string.utf8 == nullptr && string.nullStaysNull)) return nullptr;
  const jstring made = TarqJniUtil::NewJStringUTF8s(env_, string.utf8);
  if (made != nullptr) {
    strings_[stringCount_++] = made;
  } else {
    clearException();
    if (string.failureEndsCall) result_ = kPlayerOutOfMemory;
  }
  return made;
}

jmethodID HandlerCall::findMethod() {
  if (result_ != 0) return nullptr;
  class_ = env_->GetObjectClass(s_jCallback.load());
  if (class_ == nullptr) {
    fail(kPlayerHandlerLookupFailed, "Unknown Error: Lcom/orsa/tarq/dlna/TarqRendererHandler is not found");
    clearException();
    return nullptr;
  }
  const jmethodID method = env_->GetMethodID(class_, method_.name, method_.signature);
  if (method == nullptr) {
    fail(kPlayerHandlerLookupFailed, method_.lookupFailed);
    clearException();
  }
  return method;
}

void HandlerCall::handOut(jobject string, char** out) {
  returned_ = string;
  clearException();
  result_ = TarqJniUtil::NewCString(env_, returned_, out);
}

void HandlerCall::fail(int result, const char* message) {
  result_ = result;
  logPlayer(method_.priority, message);
}

void HandlerCall::release(jobject reference) {
  if (reference != nullptr) env_->DeleteLocalRef(reference);
}

void HandlerCall::clearException() {
  if (env_->ExceptionCheck()) env_->ExceptionClear();
}
