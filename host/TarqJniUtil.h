#ifndef TARQ_JNI_UTIL_H_
#define TARQ_JNI_UTIL_H_

#include <jni.h>

#include "TarqHostApi.h"

// The way into the application's Java VM, and texts across its border.
// Threads: any, also at once; an environment and its references belong to the thread they were made on.
// Texts are real UTF-8: JNI's own functions speak a modified one, in which a character above U+FFFF is not
// what everybody else writes.
class TARQ_HOST_API TarqJniUtil {
 public:
  // The application hands its VM over before the player is used, and null before it destroys the VM.
  static void SetJavaVM(JavaVM* vm) noexcept;

  // The calling thread's environment, or null when there is no VM or it does not take the thread. Stores 1
  // when this call attached the thread, and the caller then calls `DetachVM` in the end; otherwise the flag
  // stays as it was.
  static JNIEnv* GetJNIEnv(int* attached) noexcept;
  static int DetachVM() noexcept;  // 0, or an error of the VM

  // A new local reference; null when `text` is null or there is no memory, in which case a Java exception may
  // be pending. Bytes that are no valid UTF-8 become U+FFFD, as many as a web browser would show.
  static jstring NewJStringUTF8s(JNIEnv* env, const char* text) noexcept;

  // Stores a new text that the caller ends with `free`. 0; 9 when `string` is null; 5 when there is no
  // memory. Half a surrogate pair and U+0000, which would end the text early, become U+FFFD.
  static int NewCString(JNIEnv* env, jobject string, char** text) noexcept;
};

#endif  // TARQ_JNI_UTIL_H_
