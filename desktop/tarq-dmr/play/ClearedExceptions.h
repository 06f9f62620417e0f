#ifndef TARQ_DMR_CLEARED_EXCEPTIONS_H_
#define TARQ_DMR_CLEARED_EXCEPTIONS_H_

#include <jni.h>

// From now on an exception that a Java handler threw is shown on standard error, once, when the plug-in clears it:
// for the plug-in it is over then, and for the developer of the handler lost. A VM without the interface for tools
// shows none.
void showClearedExceptions(JavaVM& vm, JNIEnv& env);

#endif  // TARQ_DMR_CLEARED_EXCEPTIONS_H_
