#ifndef HANDLER_CALL_H_
#define HANDLER_CALL_H_

#include <jni.h>

#include <array>
#include <atomic>
#include <tuple>

#include "HandlerMethods.h"

// Writes one line to the log. The message is the format.
void logPlayer(int priority, const char* message);

inline constexpr char kNoHandlerMessage[] = "Invalid State: s_jCallback is NULL";

// A string on its way to the handler.
struct JavaString {
  const char* utf8;
  // False: the host library decides what a null string becomes.
  bool nullStaysNull;
  // False: a Java string that cannot be made is passed as null.
  bool failureEndsCall;
};
constexpr JavaString requiredString(const char* utf8) { return {utf8, false, true}; }
constexpr JavaString optionalString(const char* utf8) { return {utf8, true, true}; }
constexpr JavaString dispensableString(const char* utf8) { return {utf8, true, false}; }

// One call of one method of the registered handler, from getting the environment to detaching the thread.
// Make one and call one of its four public operations, once: each takes the method's arguments and returns
// the player's result. Nothing is kept from one call to the next: neither the class nor the method nor a copy
// of the handler.
// Threads: made, used and destroyed on one thread; the destructor leaves the thread as the constructor found
//   it, without local references of this call and without a pending Java exception.
class HandlerCall {
 public:
  explicit HandlerCall(const JavaMethod& method);
  ~HandlerCall();
  HandlerCall(const HandlerCall&) = delete;
  HandlerCall& operator=(const HandlerCall&) = delete;

  // The Java int is the result.
  template <class... Arguments>
  int status(Arguments... arguments) {
    invoke([this](auto... java) { result_ = env_->CallIntMethod(java...); }, arguments...);
    return result_;
  }

  // The Java int is stored, bit for bit.
  template <class Value, class... Arguments>
  int value(Value* out, Arguments... arguments) {
    invoke([&](auto... java) { *out = static_cast<Value>(env_->CallIntMethod(java...)); }, arguments...);
    return result_;
  }

  template <class... Arguments>
  int flag(bool* out, Arguments... arguments) {
    invoke([&](auto... java) { *out = env_->CallBooleanMethod(java...) != JNI_FALSE; }, arguments...);
    return result_;
  }

  // The Java string becomes a new C string that the caller frees.
  template <class... Arguments>
  int string(char** out, Arguments... arguments) {
    invoke([&](auto... java) { handOut(env_->CallObjectMethod(java...), out); }, arguments...);
    return result_;
  }

  // A global reference to the registered handler, or null. Atomic because operations may read it while
  // `AddCb` writes it.
  static inline constinit std::atomic<jobject> s_jCallback = nullptr;

 private:
  static constexpr size_t kMaxStrings = 3;

  template <class Call, class... Arguments>
  void invoke(Call call, Arguments... arguments) {
    if (result_ != 0) return;
    // Braces make the order of the conversions that of the parameters.
    const std::tuple java{convert(arguments)...};
    const jmethodID method = findMethod();
    if (method == nullptr) return;
    std::apply([&](auto... converted) { call(s_jCallback.load(), method, converted...); }, java);
    clearException();
  }

  static jint convert(unsigned int number) { return static_cast<jint>(number); }
  static jint convert(int number) { return number; }
  static jlong convert(long long number) { return number; }
  static jboolean convert(bool flag) { return flag ? JNI_TRUE : JNI_FALSE; }
  jstring convert(JavaString string);

  // Null: returned when there is no such method; `result_` is the reason.
  jmethodID findMethod();
  void handOut(jobject string, char** out);
  void fail(int result, const char* message);
  void release(jobject reference);
  void clearException();

  const JavaMethod& method_;
  // Of the operation; once it is not 0, the method is not called.
  int result_ = 0;
  int attached_ = 0;
  JNIEnv* env_ = nullptr;
  // Local references, or null.
  std::array<jstring, kMaxStrings> strings_{};
  size_t stringCount_ = 0;
  jclass class_ = nullptr;
  jobject returned_ = nullptr;
};

#endif  // HANDLER_CALL_H_
