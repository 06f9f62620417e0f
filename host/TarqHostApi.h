// Conventions of the host library (libtarq), stated once for every header of this folder.
//
// 1. A string is a `const char*` to UTF-8 that ends with NUL. Null means "absent", the empty string does not.
// 2. A string that an operation returns belongs to the object that returned it, and lives until that object
//    changes or ends.
// 3. An error is a value: a null pointer, a status other than 0, or a result code. Nothing throws.
// 4. An object is used by one thread at a time unless its comment says otherwise.
// 5. Virtual operations are declared in slot order, the destructor first (two slots). The order is the ABI.
//
// The comment of a class or an operation answers these questions in this order, leaving out what does not
// apply: Returns, Null, Ownership, Threads, Units, Errors, Source (the standard that something comes from).
#ifndef TARQ_HOST_API_H_
#define TARQ_HOST_API_H_

// Marks what libtarq defines and others call. The plug-in is compiled with hidden visibility, so its compiler
// must see the mark too.
#define TARQ_HOST_API __attribute__((visibility("default")))

// Marks what is libtarq's own although the class around it is not.
#define TARQ_HOST_PRIVATE __attribute__((visibility("hidden")))

// Marks what a plug-in defines and the host calls.
#define TARQ_PLUGIN_EXPORT __attribute__((visibility("default")))

#endif  // TARQ_HOST_API_H_
