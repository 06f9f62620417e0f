#include "JavaVm.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <memory>
#include <sstream>

#include "ClearedExceptions.h"
#include "CommandError.h"
#include "ProgramPath.h"
#include "TarqJniUtil.h"

namespace {

namespace fs = std::filesystem;
using CreateJavaVm = decltype(&JNI_CreateJavaVM);

const char* environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

// The Java home of the first `java` that the shell would run; empty: there is none.
fs::path homeOfJavaOnPath() {
  const fs::path program = findOnPath("java");
  return program.empty() ? program : program.parent_path().parent_path();
}

// Where Java may be installed, the best place first. JAVA_HOME is the user's choice: it excludes all others.
std::vector<fs::path> javaHomes() {
  if (const char* home = environment("JAVA_HOME"); *home != '\0') return {home};
  const fs::path installed = "/usr/lib/jvm";
  std::vector<fs::path> homes;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(installed, error)) homes.push_back(entry.path());
  std::ranges::sort(homes);
  homes.insert(homes.begin(), {homeOfJavaOnPath(), installed / "default-java"});
  return homes;
}

// The VM's code stays in the process: it cannot be unloaded.
CreateJavaVm findJava() {
  for (const fs::path& home : javaHomes()) {
    void* library = home.empty() ? nullptr : dlopen((home / "lib/server/libjvm.so").c_str(), RTLD_NOW);
    if (library == nullptr) continue;
    if (void* symbol = dlsym(library, "JNI_CreateJavaVM")) return reinterpret_cast<CreateJavaVm>(symbol);
  }
  const std::string home = environment("JAVA_HOME");
  throw CommandError(home.empty() ? "no Java VM was found; install Java 17 or newer, or set JAVA_HOME"
                                  : "no Java VM was found in JAVA_HOME, " + home);
}

std::string join(const std::vector<std::string>& parts, char separator) {
  std::string joined;
  for (const std::string& part : parts) joined.append(joined.empty() ? 0 : 1, separator).append(part);
  return joined;
}

}  // namespace

std::string takeJavaString(JNIEnv& env, jobject string) {
  char* copy = nullptr;
  TarqJniUtil::NewCString(&env, string, &copy);
  env.DeleteLocalRef(string);
  const std::unique_ptr<char, void (*)(void*)> owner(copy, std::free);
  return copy == nullptr ? "" : copy;
}

JavaVm::JavaVm(const std::vector<std::string>& classPath, const std::vector<std::string>& options) {
  const CreateJavaVm create = findJava();
  std::vector<std::string> strings = options;
  strings.push_back("-Djava.class.path=" + join(classPath, ':'));
  strings.push_back("-Xrs");  // the program handles signals itself
  std::vector<JavaVMOption> rows;
  std::ranges::transform(strings, std::back_inserter(rows), [](std::string& string) {
    return JavaVMOption{string.data(), nullptr};
  });
  JavaVMInitArgs arguments{JNI_VERSION_1_6, static_cast<jint>(rows.size()), rows.data(), JNI_FALSE};
  if (create(&vm_, reinterpret_cast<void**>(&env_), &arguments) != JNI_OK)
    throw CommandError("the Java VM did not start");
  TarqJniUtil::SetJavaVM(vm_);
  showClearedExceptions(*vm_, *env_);
}

JavaVm::~JavaVm() {
  TarqJniUtil::SetJavaVM(nullptr);
  vm_->DestroyJavaVM();
}
