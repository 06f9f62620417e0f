// Conventions of the host library (libtarq), stated once for every header of this folder.
//
// 1. Text is `const char*`, NUL-terminated, UTF-8. A null text means "absent"; it is never the empty text.
// 2. A text handed out belongs to the object that handed it out and lives as long as that object does not
// change.
// 3. Failure is a value: a null pointer, a status that is not 0, or a result code. Nothing throws.
// 4. An object belongs to one thread at a time unless its comment says otherwise.
// 5. Virtual operations are declared in slot order, the destructor first (two slots). The order is the ABI.
#ifndef TARQ_HOST_API_H_
#define TARQ_HOST_API_H_

// What libtarq defines and others call. The plug-in is compiled with hidden visibility, so the mark is needed
// here.
#define TARQ_HOST_API __attribute__((visibility("default")))

// What a plug-in defines and the host calls.
#define TARQ_PLUGIN_EXPORT __attribute__((visibility("default")))

#endif  // TARQ_HOST_API_H_
