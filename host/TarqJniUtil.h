#ifndef TARQ_JNI_UTIL_H_
#define TARQ_JNI_UTIL_H_

#include <jni.h>

#include "TarqHostApi.h"

// Access to the application's Java VM, and strings on their way in and out of it. C strings are standard
// UTF-8, not JNI's modified UTF-8.
// Threads: any, also several at once. An environment and its references belong to the thread that got them.
class TARQ_HOST_API TarqJniUtil {
 public:
  // For the application: sets the VM before the player is used.
  // Null: the application passes null before it destroys the VM.
  static void SetJavaVM(JavaVM* vm) noexcept;

  // Attaches the calling thread if necessary. Then `*attached` becomes 1, and the caller calls `DetachVM` at
  // the end; otherwise `*attached` stays as it was.
  // Returns: the calling thread's environment.
  // Null: returned when there is no VM, or when it does not accept the thread.
  static JNIEnv* GetJNIEnv(int* attached) noexcept;
  // Returns: 0, or an error code of the VM.
  static int DetachVM() noexcept;

  // Returns: a new local reference. Bytes that are not valid UTF-8 become U+FFFD.
  // Null: returned when `string` is null and on allocation failure.
  // Errors: a Java exception may be pending after an allocation failure.
  // Source: WHATWG Encoding Standard (how many U+FFFD a sequence of bytes becomes).
  static jstring NewJStringUTF8s(JNIEnv* env, const char* string) noexcept;

  // Copies the Java string to `*copy`. An unpaired surrogate becomes U+FFFD, as does U+0000, which would end
  // the C string early.
  // Returns: 0; 5 on allocation failure; 9 when `string` is null. `*copy` is written only on success.
  // Ownership: the caller frees the copy with `free`.
  static int NewCString(JNIEnv* env, jobject string, char** copy) noexcept;
};

#endif  // TARQ_JNI_UTIL_H_
