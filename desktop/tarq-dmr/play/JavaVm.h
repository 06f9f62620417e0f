#ifndef TARQ_DMR_JAVA_VM_H_
#define TARQ_DMR_JAVA_VM_H_

#include <jni.h>

#include <string>
#include <vector>

// Returns: a copy of the Java string; empty for null.
// Ownership: deletes the local reference.
std::string takeJavaString(JNIEnv& env, jobject string);

// A Java VM in this process, found at run time: nothing else here needs Java. libtarq uses it while it
// exists. A process can create one, and only once.
// Threads: the thread that creates it also destroys it and uses its environment.
class JavaVm {
 public:
  // `options`: more options of the VM, such as "-Xcheck:jni".
  // Errors: CommandError when there is no VM or it does not start.
  explicit JavaVm(const std::vector<std::string>& classPath, const std::vector<std::string>& options = {});
  ~JavaVm();  // waits for all Java threads but daemons, and for attached threads
  JavaVm(const JavaVm&) = delete;
  JavaVm& operator=(const JavaVm&) = delete;

  JNIEnv& env() const { return *env_; }

 private:
  JavaVM* vm_ = nullptr;
  JNIEnv* env_ = nullptr;
};

#endif  // TARQ_DMR_JAVA_VM_H_
