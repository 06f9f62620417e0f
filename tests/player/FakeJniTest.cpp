// Every operation of the player with a Java VM that fails on demand and notes what it is asked.
#include <android/log.h>
#include <gmock/gmock.h>

#include <cstdarg>
#include <string>
#include <vector>

#include "PlayerOperations.h"
#include "TarqDmrInvokeJava.h"
#include "TarqJniUtil.h"
#include "TestRows.h"

namespace {

using Log = std::vector<std::string>;
enum class Fails { Nothing, Environment, Text, Class, Method, Call, Detach };
using enum Fails;

constexpr jint kAnswer = -5;

struct FakeVm {
  Fails fails = Nothing;
  size_t failingText = 0;  // from 1
  bool attaches = true;    // otherwise the thread is in the VM already
  bool answersNull = false;

  std::string trace = {};  // what was asked, a word each; "!" where it failed, "-" where it was released
  Log log = {};
  size_t texts = 0;
  bool pending = false;  // a Java exception

  // True: this is to fail.
  bool note(const std::string& word, Fails what = Nothing) {
    const bool meant = what != Text || texts == failingText;
    const bool failing = what != Nothing && fails == what && meant;
    trace += (trace.empty() ? "" : " ") + word + (failing ? "!" : "") + (pending ? " UNDER-EXCEPTION" : "");
    return failing;
  }
  // Returns: `value`, or the type's zero with an exception pending.
  template <class Value>
  Value give(const char* word, Fails what, Value value) {
    pending = note(word, what) || pending;
    return pending ? Value() : value;
  }
};
FakeVm vm;

constexpr const char* kTexts[] = {"text1", "text2", "text3"};

// References are their own names.
template <class Reference>
Reference named(const char* name) {
  return reinterpret_cast<Reference>(const_cast<char*>(name));
}

JNIEnv* fakeEnvironment() {
  static const JNINativeInterface_ table = [] {
    JNINativeInterface_ made{};
    made.NewGlobalRef = [](JNIEnv*, jobject o) -> jobject { return vm.note("global", Class) ? nullptr : o; };
    made.DeleteGlobalRef = [](JNIEnv*, jobject) { vm.note("-global"); };
    made.DeleteLocalRef = [](JNIEnv*, jobject object) {
      vm.note(std::string("-") + reinterpret_cast<const char*>(object));
    };
    made.GetObjectClass = [](JNIEnv*, jobject) { return vm.give("class", Class, named<jclass>("class")); };
    made.GetMethodID = [](JNIEnv*, jclass, const char* name, const char*) {
      return vm.give(name, Method, reinterpret_cast<jmethodID>(&vm));
    };
    made.CallIntMethodV = [](JNIEnv*, jobject, jmethodID, va_list) { return vm.give("call", Call, kAnswer); };
    made.CallBooleanMethodV = [](JNIEnv*, jobject, jmethodID, va_list) {
      return vm.give("call", Call, jboolean{2});
    };
    made.CallObjectMethodV = [](JNIEnv*, jobject, jmethodID, va_list) {
      return vm.give("call", Call, vm.answersNull ? nullptr : named<jobject>("answer"));
    };
    made.ExceptionCheck = [](JNIEnv*) -> jboolean { return vm.pending; };
    made.ExceptionClear = [](JNIEnv*) { vm.pending = false; };
    return made;
  }();
  static JNIEnv environment{&table};
  return &environment;
}

}  // namespace

JNIEnv* TarqJniUtil::GetJNIEnv(int* attached) noexcept {
  EXPECT_EQ(*attached, 0);
  *attached = vm.attaches ? 1 : 0;
  return vm.note("env", Environment) ? nullptr : fakeEnvironment();
}
int TarqJniUtil::DetachVM() noexcept { return vm.note("detach", Detach) ? -1 : 0; }
jstring TarqJniUtil::NewJStringUTF8s(JNIEnv*, const char*) noexcept {
  const char* name = kTexts[vm.texts++];
  return vm.give(name, Text, named<jstring>(name));
}
int TarqJniUtil::NewCString(JNIEnv*, jobject string, char** text) noexcept {
  vm.note("copy");
  static char copy[] = "copy";
  if (string != nullptr) *text = copy;
  return string != nullptr ? 0 : 9;
}

extern "C" int __android_log_print(int priority, const char* tag, const char* format, ...) {
  vm.log.push_back(std::to_string(priority) + " " + tag + ": " + format);
  return 0;
}

namespace {

std::string logLine(const std::string& message, int priority = ANDROID_LOG_WARN) {
  return std::to_string(priority) + " TarqPlugin(DMR): " + message;
}

TarqDmrPlayerInterface& registeredPlayer() {
  TarqDmrPlayerInterface& player = *TarqDmrInvokeJava::GetInstance();
  player.AddCb(fakeEnvironment(), named<jobject>("handler"));
  return player;
}

constexpr const char* kWithoutMetadata = "text3 class setNextDataSource call -class -text1 -text3 ";

// One operation while something fails. `message`: the only one; empty: none.
void expectCall(const Operation& operation, const FakeVm& how, int result, const std::string& trace,
                const std::string& message = "") {
  SCOPED_TRACE(trace);
  vm = how;
  outs = {};
  EXPECT_EQ(operation.call(TarqDmrInvokeJava::GetInstance()), result);
  EXPECT_EQ(vm.trace, trace);
  const int priority = std::string_view(operation.name) == "getAction" ? ANDROID_LOG_ERROR : ANDROID_LOG_WARN;
  EXPECT_EQ(vm.log, message.empty() ? Log() : Log{logLine(message, priority)});
  EXPECT_FALSE(vm.pending);
  EXPECT_TRUE(how.fails == Call || (outs == Outs()) == (*operation.stored == '\0' || result != 0));
}

TEST_ROWS(Player, ReleasesAndDetachesOnEveryPath, kOperations) {
  registeredPlayer();
  const std::string method = row.name;
  const bool copies = method == "getPlaySpeedList" || method == "getAction";
  std::string taken = "env ";
  std::string given;
  for (size_t i = 0; i < row.strings; ++i) {
    const bool dispensable = method == "setNextDataSource" && i == 1;
    expectCall(row, {.fails = Text, .failingText = i + 1}, dispensable ? kAnswer : 5,
               taken + kTexts[i] + "! " + (dispensable ? kWithoutMetadata : given) + "detach");
    taken += kTexts[i] + std::string(" ");
    given += std::string("-") + kTexts[i] + " ";
  }
  const int success = *row.stored == '\0' ? kAnswer : 0;
  const std::string before = taken + "class " + method + " call";
  const std::string after = (copies ? " copy -class -answer " : " -class ") + given;
  expectCall(row, {}, success, before + after + "detach");
  if (copies) expectCall(row, {.answersNull = true}, 9, before + " copy -class detach");
  expectCall(row, {.attaches = false}, success, before + after.substr(0, after.size() - 1));
  expectCall(row, {.fails = Detach}, success, before + after + "detach!", "Detach failed.");
  expectCall(row, {.fails = Call}, copies ? 9 : 0,
             before + (copies ? "! copy" : "!") + " -class " + given + "detach");
  expectCall(row, {.fails = Environment}, 1, "env!", "Unknown Error: couldn't get JNIEnv");
  expectCall(row, {.fails = Class}, 3, taken + "class! " + given + "detach",
             "Unknown Error: Lcom/orsa/tarq/dlna/TarqRendererHandler is not found");
  const std::string logName = method.starts_with("update") ? "x_U" + method.substr(1) : method;
  expectCall(row, {.fails = Method}, 3, taken + "class " + method + "! -class " + given + "detach",
             "Unknown Error: Failed to get the methodID of " + logName);
  TarqDmrInvokeJava::GetInstance()->RemoveCb(fakeEnvironment());
  expectCall(row, {}, 10, "", "Invalid State: s_jCallback is NULL");
}

using I = TarqDmrPlayerInterface&;
const struct {
  const char* name;
  int (*call)(I player);
  size_t strings;              // how many Java strings its arguments become
  const char* null = nullptr;  // the required argument that is null
} kArguments[] = {
    {"NullUri", [](I p) { return p.SetDataSource(1, nullptr, "m", nullptr); }, 0, "pCurrentURI"},
    {"NullType", [](I p) { return p.SetDataSource(1, "u", "m", nullptr); }, 0, "pCurrentContentType"},
    {"NullNextUri", [](I p) { return p.SetNextDataSource(1, nullptr, "m", nullptr); }, 0, "pNextURI"},
    {"NullNextType", [](I p) { return p.SetNextDataSource(1, "", "", nullptr); }, 0, "pNextContentType"},
    {"NullSpeed", [](I p) { return p.Start(1, nullptr); }, 0, "pPlaySpeed"},
    {"SetNoVolume", [](I p) { return p.SetVolume(1, nullptr, 2, 3); }, 0, "pChannel"},
    {"GetNoVolume", [](I p) { return p.GetVolume(1, nullptr, 2, &outs.volume); }, 0, "pChannel"},
    {"SetNoMute", [](I p) { return p.SetMute(1, nullptr, true); }, 0, "pChannel"},
    {"GetNoMute", [](I p) { return p.GetMute(1, nullptr, outs.flag); }, 0, "pChannel"},
    {"UriAlone", [](I p) { return p.SetDataSource(1, "u", nullptr, nullptr); }, 1},
    {"EmptyUri", [](I p) { return p.SetDataSource(1, "", nullptr, nullptr); }, 1},
    {"EmptyUriWithMetadata", [](I p) { return p.SetDataSource(1, "", "m", nullptr); }, 2},
    {"EmptyMetadata", [](I p) { return p.SetDataSource(1, "u", "", nullptr); }, 2},
    {"All", [](I p) { return p.SetDataSource(1, "u", "m", "t"); }, 3},
    {"NoNextMetadata", [](I p) { return p.SetNextDataSource(1, "u", nullptr, "t"); }, 2},
    {"NoPlaylists", [](I p) { return p.SetBreakAuxStreamPlaylist(1, 2, nullptr, nullptr); }, 0},
    {"NullIsPassedOn", [](I p) { return p.PrepareForConnection(1, nullptr); }, 1},
};
TEST_ROWS(Player, Arguments, kArguments) {
  TarqDmrPlayerInterface& player = registeredPlayer();
  // A null argument is found before a missing handler.
  if (row.null != nullptr) player.RemoveCb(fakeEnvironment());
  vm = {};
  outs = {};
  EXPECT_EQ(row.call(player), row.null == nullptr ? kAnswer : 9);
  EXPECT_EQ(vm.texts, row.strings);
  EXPECT_EQ(vm.trace.empty(), row.null != nullptr);
  EXPECT_TRUE(outs == Outs());
  const std::string argument = row.null == nullptr ? "" : row.null;
  EXPECT_EQ(vm.log, argument.empty() ? Log() : Log{logLine("Invalid Argument: " + argument + " is NULL")});
  player.RemoveCb(fakeEnvironment());
}

TEST(Player, HoldsOneHandler) {
  TarqDmrPlayerInterface& player = registeredPlayer();
  JNIEnv* env = fakeEnvironment();
  vm = {};
  EXPECT_EQ(player.AddCb(env, named<jobject>("another")), 10);
  EXPECT_EQ(player.AddCb(env, nullptr), 10);
  EXPECT_EQ(player.RemoveCb(env), 0);
  EXPECT_EQ(player.RemoveCb(env), 10);
  EXPECT_EQ(player.AddCb(env, nullptr), 10);
  vm.fails = Class;
  EXPECT_EQ(player.AddCb(env, named<jobject>("handler")), 5);
  vm.fails = Nothing;
  EXPECT_EQ(player.AddCb(env, named<jobject>("handler")), 0);
  player.RemoveCb(env);
  EXPECT_EQ(vm.trace, "-global global! global -global");
  EXPECT_THAT(vm.log, testing::ElementsAre(logLine("Invalid State: s_jCallback is NULL"),
                                           logLine("Invalid State: jobject is NULL"),
                                           logLine("No Memory: NewGlobalRef failed")));
}

}  // namespace
