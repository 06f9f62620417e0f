#ifndef TEST_VM_H_
#define TEST_VM_H_

#include <cstdlib>
#include <string>

#include "JavaHandler.h"
#include "JavaVm.h"
#include "LoadedPlugin.h"
#include "TarqJniUtil.h"

// The VM of the test program, which waits for it at its end.
inline JNIEnv& testEnv() {
  static const JavaVm vm({RENDERER_JAR, TEST_JAR}, {"-Xcheck:jni"});
  return vm.env();
}

// The built plug-in's player with a handler of that class.
class PlayerOf {
 public:
  explicit PlayerOf(const char* handlerClass) : handler_(testEnv(), handlerClass) {
    player_ = LoadedPlugin::instance().symbol<TarqDmrPlayerInterface*()>("GetPlayer")();
    if (player_->AddCb(&testEnv(), handler_.object()) != kPlayerOk) std::abort();
  }
  ~PlayerOf() { player_->RemoveCb(&testEnv()); }
  PlayerOf(const PlayerOf&) = delete;
  PlayerOf& operator=(const PlayerOf&) = delete;

  TarqDmrPlayerInterface* operator->() const { return player_; }
  TarqDmrPlayerInterface* object() const { return player_; }
  JavaHandler& handler() { return handler_; }

  // Returns: the string that a method of the handler without arguments returns.
  std::string ask(const char* method) const {
    JNIEnv& env = testEnv();
    env.PushLocalFrame(4);
    const jclass owner = env.GetObjectClass(handler_.object());
    const jmethodID id = env.GetMethodID(owner, method, "()Ljava/lang/String;");
    const jobject string = env.CallObjectMethod(handler_.object(), id);
    char* text = nullptr;
    if (!env.ExceptionCheck()) TarqJniUtil::NewCString(&env, string, &text);
    env.PopLocalFrame(nullptr);
    return text == nullptr ? "no string" : taken(text);
  }

  // Returns: a string that an operation returned, which is freed.
  static std::string taken(char* text) {
    const std::string copy = text;
    std::free(text);
    return copy;
  }

 private:
  JavaHandler handler_;
  TarqDmrPlayerInterface* player_;
};

#endif  // TEST_VM_H_
