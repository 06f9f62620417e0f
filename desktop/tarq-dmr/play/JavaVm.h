#ifndef TARQ_DMR_JAVA_VM_H_
#define TARQ_DMR_JAVA_VM_H_

#include <jni.h>

#include <string>
#include <vector>

// A Java VM in this process, looked for at run time: nothing else here needs Java. libtarq knows it while it
// is there.
// The process can have one, once. The thread that makes it destroys it, and uses the environment.
class JavaVm {
 public:
  // `options`: further ones of the VM ("-Xcheck:jni"). Throws CommandError when no VM can be had.
  explicit JavaVm(const std::vector<std::string>& classPath, const std::vector<std::string>& options = {});
  ~JavaVm();  // waits for the Java threads that are no daemons, and for attached threads
  JavaVm(const JavaVm&) = delete;
  JavaVm& operator=(const JavaVm&) = delete;

  JNIEnv& env() const { return *env_; }

 private:
  JavaVM* vm_ = nullptr;
  JNIEnv* env_ = nullptr;
};

#endif  // TARQ_DMR_JAVA_VM_H_
