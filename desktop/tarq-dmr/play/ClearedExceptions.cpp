#include "ClearedExceptions.h"

#include <jvmti.h>

#include <cstdio>
#include <string>

#include "JavaVm.h"
#include "TextOutput.h"

namespace {

// Written before the VM calls clearException().
jvmtiEnv* tools = nullptr;
void(JNICALL* plainClear)(JNIEnv*) = nullptr;
jclass describer = nullptr;
jmethodID describe = nullptr;

// Native code of the Java library clears exceptions, too, but as part of a Java method.
bool isOutsideJava() {
  jint frames = 0;
  return tools->GetFrameCount(nullptr, &frames) == JVMTI_ERROR_NONE && frames == 0;
}

void show(JNIEnv& env, jthrowable thrown) {
  const auto lines = static_cast<jobjectArray>(env.CallStaticObjectMethod(describer, describe, thrown));
  if (env.ExceptionCheck()) return plainClear(&env);  // thrown by its own getMessage()
  std::string shown;
  for (jsize i = 0; i < env.GetArrayLength(lines); ++i) {
    shown += i == 0 ? "tarq-dmr: Java exception " : "";
    shown += printable(takeJavaString(env, env.GetObjectArrayElement(lines, i))) + "\n";
  }
  std::fputs(shown.c_str(), stderr);
  env.DeleteLocalRef(lines);
}

void JNICALL clearException(JNIEnv* env) {
  const jthrowable thrown = env->ExceptionOccurred();
  plainClear(env);
  if (thrown == nullptr) return;
  if (isOutsideJava()) show(*env, thrown);
  env->DeleteLocalRef(thrown);
}

}  // namespace

void showClearedExceptions(JavaVM& vm, JNIEnv& env) {
  const jclass found = env.FindClass("com/orsa/tarq/dlna/HandlerExceptions");
  describer = static_cast<jclass>(env.NewGlobalRef(found));
  describe = env.GetStaticMethodID(found, "describe", "(Ljava/lang/Throwable;)[Ljava/lang/String;");
  env.DeleteLocalRef(found);
  jniNativeInterface* table = nullptr;
  if (vm.GetEnv(reinterpret_cast<void**>(&tools), JVMTI_VERSION_1_2) != JNI_OK ||
      tools->GetJNIFunctionTable(&table) != JVMTI_ERROR_NONE)
    return;
  plainClear = table->ExceptionClear;
  table->ExceptionClear = clearException;
  tools->SetJNIFunctionTable(table);
  tools->Deallocate(reinterpret_cast<unsigned char*>(table));
}
