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

// A text on its way to the handler.
struct JavaText {
  const char* utf8;
  bool nullStaysNull;    // false: the host library decides what becomes of a null text
  bool failureEndsCall;  // false: a text that cannot be made is a null one
};
constexpr JavaText requiredText(const char* utf8) { return {utf8, false, true}; }
constexpr JavaText optionalText(const char* utf8) { return {utf8, true, true}; }
constexpr JavaText dispensableText(const char* utf8) { return {utf8, true, false}; }

// One call of one method of the registered handler, from the environment to the detaching of the thread.
// Make one, and call one of its four public operations, once: each takes the method's arguments and gives the
// player's result.
// Threads: made, used and destroyed on one thread; the destructor leaves the thread as the constructor found
//   it, without local references of this call and without a pending Java exception.
// Nothing is kept from one call to the next: not the class, not the method, not a copy of the handler.
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

  // The Java string becomes a new text of the caller's.
  template <class... Arguments>
  int string(char** out, Arguments... arguments) {
    invoke([&](auto... java) { handOut(env_->CallObjectMethod(java...), out); }, arguments...);
    return result_;
  }

  // A global reference to the registered handler; null: there is none. Atomic because operations may read it
  // while `AddCb` writes it.
  static inline constinit std::atomic<jobject> s_jCallback = nullptr;

 private:
  static constexpr size_t kMaxTexts = 3;

  template <class Call, class... Arguments>
  void invoke(Call call, Arguments... arguments) {
    if (result_ != 0) return;
    const std::tuple java{convert(arguments)...};  // in braces: in the order of the parameters
    const jmethodID method = findMethod();
    if (method == nullptr) return;
    std::apply([&](auto... converted) { call(s_jCallback.load(), method, converted...); }, java);
    clearException();
  }

  static jint convert(unsigned int number) { return static_cast<jint>(number); }
  static jint convert(int number) { return number; }
  static jlong convert(long long number) { return number; }
  static jboolean convert(bool flag) { return flag ? JNI_TRUE : JNI_FALSE; }
  jstring convert(JavaText text);

  jmethodID findMethod();  // null: `result_` says why
  void handOut(jobject string, char** out);
  void fail(int result, const char* message);
  void release(jobject reference);
  void clearException();

  const JavaMethod& method_;
  int result_ = 0;  // of the operation; other than 0 before the call: there is no call
  int attached_ = 0;
  JNIEnv* env_ = nullptr;
  // Local references, null when there is none.
  std::array<jstring, kMaxTexts> texts_{};
  size_t textCount_ = 0;
  jclass class_ = nullptr;
  jobject answer_ = nullptr;
};

#endif  // HANDLER_CALL_H_
