// Every operation of the player against a Java VM that fails on demand and writes down what is asked of it.
#include <android/log.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdarg>
#include <string>
#include <thread>
#include <vector>

#include "TarqDmrInvokeJava.h"
#include "TarqJniUtil.h"

namespace {

using testing::ElementsAre;

enum class Fails { Nothing, Environment, Text, Class, Method, Call, Detach };

constexpr jint kAnswer = -5;

struct FakeVm {
  Fails fails = Fails::Nothing;
  size_t failingText = 0;  // from 1
  bool attaches = true;    // otherwise the thread is in the VM already
  bool answersNull = false;

  std::string trace = {};  // what was asked, a word each; "!" where it failed, "-" where it was released
  std::vector<std::string> log = {};
  size_t texts = 0;
  bool pending = false;  // a Java exception

  // True: this is to fail.
  bool note(const std::string& word, Fails what = Fails::Nothing) {
    const bool meant = what != Fails::Text || texts == failingText;
    const bool failing = what != Fails::Nothing && fails == what && meant;
    trace += (trace.empty() ? "" : " ") + word + (failing ? "!" : "") + (pending ? " UNDER-EXCEPTION" : "");
    return failing;
  }
  bool noteThrowing(const std::string& word, Fails what) { return (pending = note(word, what) || pending); }
};
thread_local FakeVm vm;  // of the thread that is inside

constexpr const char* kTexts[] = {"text1", "text2", "text3"};

// References are their own names.
template <class Reference = jobject>
Reference named(const char* name) {
  return reinterpret_cast<Reference>(const_cast<char*>(name));
}
std::string nameOf(jobject reference) { return reinterpret_cast<const char*>(reference); }

JNIEnv* fakeEnvironment() {
  static const JNINativeInterface_ table = [] {
    JNINativeInterface_ made{};
    made.NewGlobalRef = [](JNIEnv*, jobject object) -> jobject {
      return vm.note("global", Fails::Class) ? nullptr : object;
    };
    made.DeleteGlobalRef = [](JNIEnv*, jobject) { vm.note("-global"); };
    made.DeleteLocalRef = [](JNIEnv*, jobject object) { vm.note("-" + nameOf(object)); };
    made.GetObjectClass = [](JNIEnv*, jobject) -> jclass {
      return vm.noteThrowing("class", Fails::Class) ? nullptr : named<jclass>("class");
    };
    made.GetMethodID = [](JNIEnv*, jclass, const char* name, const char*) -> jmethodID {
      return vm.noteThrowing(name, Fails::Method) ? nullptr : reinterpret_cast<jmethodID>(&vm);
    };
    made.CallIntMethodV = [](JNIEnv*, jobject, jmethodID, va_list) -> jint {
      return vm.noteThrowing("call", Fails::Call) ? 0 : kAnswer;
    };
    made.CallBooleanMethodV = [](JNIEnv*, jobject, jmethodID, va_list) -> jboolean {
      return vm.noteThrowing("call", Fails::Call) ? JNI_FALSE : 2;
    };
    made.CallObjectMethodV = [](JNIEnv*, jobject, jmethodID, va_list) -> jobject {
      return vm.noteThrowing("call", Fails::Call) || vm.answersNull ? nullptr : named("answer");
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
  return vm.note("env", Fails::Environment) ? nullptr : fakeEnvironment();
}
int TarqJniUtil::DetachVM() noexcept { return vm.note("detach", Fails::Detach) ? -1 : 0; }
jstring TarqJniUtil::NewJStringUTF8s(JNIEnv*, const char*) noexcept {
  const char* name = kTexts[vm.texts++];
  return vm.noteThrowing(name, Fails::Text) ? nullptr : named<jstring>(name);
}
int TarqJniUtil::NewCString(JNIEnv*, jobject string, char** text) noexcept {
  vm.note("copy");
  if (string != nullptr) *text = nullptr;
  return string != nullptr ? 0 : 9;
}

extern "C" int __android_log_print(int priority, const char* tag, const char* format, ...) {
  vm.log.push_back(std::to_string(priority) + " " + tag + ": " + format);
  return 0;
}

namespace {

char untouchedText[] = "untouched";

struct Outs {
  int number = 77;
  unsigned int volume = 77;
  bool flag = false;
  char* text = untouchedText;

  bool areUntouched() const { return number == 77 && volume == 77 && !flag && text == untouchedText; }
};

using P = TarqDmrPlayerInterface&;
using O = Outs&;

struct Operation {
  const char* method;
  size_t texts;
  char result;  // 'i': the Java int; 'v': a stored value; 's': a copied text
  int (*call)(P player, O out);
  const char* logName = method;
  int priority = ANDROID_LOG_WARN;
};

constexpr const char* kAudio = "x_UpdateAudioSelection";
constexpr const char* kVideo = "x_UpdateVideoSelection";
constexpr Operation kOperations[] = {
    {"setDataSource", 3, 'i', [](P p, O) { return p.SetDataSource(1, "u", "m", "t"); }},
    {"setNextDataSource", 3, 'i', [](P p, O) { return p.SetNextDataSource(1, "u", "m", "t"); }},
    {"start", 1, 'i', [](P p, O) { return p.Start(1, "1"); }},
    {"stop", 0, 'i', [](P p, O) { return p.Stop(1); }},
    {"pause", 0, 'i', [](P p, O) { return p.Pause(1); }},
    {"seekTo", 0, 'i', [](P p, O) { return p.SeekTo(1, 2); }},
    {"next", 0, 'i', [](P p, O) { return p.Next(1); }},
    {"getCurrentPosition", 0, 'v', [](P p, O o) { return p.GetCurrentPosition(1, &o.number); }},
    {"getState", 0, 'v', [](P p, O o) { return p.GetState(1, &o.number); }},
    {"setVolume", 1, 'i', [](P p, O) { return p.SetVolume(1, "LF", 2, 3); }},
    {"getVolume", 1, 'v', [](P p, O o) { return p.GetVolume(1, "LF", 2, &o.volume); }},
    {"setMute", 1, 'i', [](P p, O) { return p.SetMute(1, "LF", true); }},
    {"getMute", 1, 'v', [](P p, O o) { return p.GetMute(1, "LF", o.flag); }},
    {"getPlaySpeedList", 0, 's', [](P p, O o) { return p.GetPlaySpeedList(1, &o.text); }},
    {"getAction", 0, 's', [](P p, O o) { return p.GetAction(1, &o.text); }, "getAction", ANDROID_LOG_ERROR},
    {"updateAudioSelection", 1, 'i', [](P p, O) { return p.X_UpdateAudioSelection(1, 2, nullptr); }, kAudio},
    {"updateVideoSelection", 1, 'i', [](P p, O) { return p.X_UpdateVideoSelection(1, 2, nullptr); }, kVideo},
    {"prepareForConnection", 1, 'i', [](P p, O) { return p.PrepareForConnection(1, nullptr); }},
    {"connectionComplete", 0, 'i', [](P p, O) { return p.ConnectionComplete(1); }},
    {"setBreakAuxStreamPlaylist", 2, 'i', [](P p, O) { return p.SetBreakAuxStreamPlaylist(1, 2, "", ""); }},
    {"setBreakAuxStreamTrigger", 0, 'i', [](P p, O) { return p.SetBreakAuxStreamTrigger(1, 2, 3); }},
    {"getTrackDuration", 0, 'v', [](P p, O o) { return p.GetTrackDuration(1, &o.number); }},
};
static_assert(std::size(kOperations) == 22);

std::string logLine(const std::string& message, int priority = ANDROID_LOG_WARN) {
  return std::to_string(priority) + " TarqPlugin(DMR): " + message;
}

// The player with a handler.
class Player : public testing::Test {
 protected:
  void SetUp() override { player_.AddCb(fakeEnvironment(), named("handler")); }
  void TearDown() override { player_.RemoveCb(fakeEnvironment()); }

  TarqDmrPlayerInterface& player_ = *TarqDmrInvokeJava::GetInstance();
};

// `message`: the only one; empty: none.
void expectCall(TarqDmrPlayerInterface& player, const Operation& operation, const FakeVm& how, int result,
                const std::string& trace, const std::string& message = "") {
  SCOPED_TRACE(std::string(operation.method) + ": " + trace);
  vm = how;
  Outs out;
  EXPECT_EQ(operation.call(player, out), result);
  EXPECT_EQ(vm.trace, trace);
  EXPECT_EQ(vm.log,
            message.empty() ? std::vector<std::string>() : std::vector{logLine(message, operation.priority)});
  EXPECT_FALSE(vm.pending);
  const bool stores = operation.result != 'i' && result == 0;
  EXPECT_TRUE(how.fails == Fails::Call || out.areUntouched() != stores);
  vm = {};
}

void expectEveryPath(TarqDmrPlayerInterface& player, const Operation& operation) {
  const auto expect = [&](auto&&... expected) { expectCall(player, operation, expected...); };
  const std::string method = operation.method;
  const bool copies = operation.result == 's';
  const int success = operation.result == 'i' ? kAnswer : 0;
  std::string taken = "env ";
  std::string given;
  for (size_t i = 0; i < operation.texts; ++i) {
    if (method != "setNextDataSource" || i != 1)
      expect(FakeVm{.fails = Fails::Text, .failingText = i + 1}, 5,
             taken + kTexts[i] + "! " + given + "detach");
    taken += kTexts[i] + std::string(" ");
    given += std::string("-") + kTexts[i] + " ";
  }
  const std::string before = taken + "class " + method + " call";
  const std::string after = (copies ? " copy -class -answer " : " -class ") + given;
  expect(FakeVm{}, success, before + after + "detach");
  expect(FakeVm{.attaches = false}, success, before + after.substr(0, after.size() - 1));
  expect(FakeVm{.fails = Fails::Detach}, success, before + after + "detach!", "Detach failed.");
  expect(FakeVm{.fails = Fails::Call}, copies ? 9 : 0,
         before + (copies ? "! copy" : "!") + " -class " + given + "detach");
  expect(FakeVm{.fails = Fails::Environment}, 1, "env!", "Unknown Error: couldn't get JNIEnv");
  expect(FakeVm{.fails = Fails::Class}, 3, taken + "class! " + given + "detach",
         "Unknown Error: Lcom/orsa/tarq/dlna/TarqRendererHandler is not found");
  expect(FakeVm{.fails = Fails::Method}, 3, taken + "class " + method + "! -class " + given + "detach",
         std::string("Unknown Error: Failed to get the methodID of ") + operation.logName);
}

TEST_F(Player, ReleasesAndDetachesOnEveryPathOfManyThreads) {
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([this] {
      for (int round = 0; round < 20; ++round)
        for (const Operation& operation : kOperations) expectEveryPath(player_, operation);
    });
  }
  for (std::thread& thread : threads) thread.join();
  player_.RemoveCb(fakeEnvironment());
  for (const Operation& operation : kOperations)
    expectCall(player_, operation, {}, 10, "", "Invalid State: s_jCallback is NULL");
}

struct ArgumentCase {
  const char* name;
  int (*call)(P player, O out);
  int result;
  const char* trace;
  const char* null = nullptr;  // the argument that must not be null, tested before anything else
  FakeVm how = {};
};

constexpr const char* kUriOnly = "env text1 class setDataSource call -class -text1 detach";
constexpr const char* kNoType = "env text1 text2 class setDataSource call -class -text1 -text2 detach";
constexpr const char* kNextTexts = "env text1 text2 class setNextDataSource call -class -text1 -text2 detach";
constexpr const char* kNextFails =
    "env text1 text2! text3 class setNextDataSource call -class -text1 -text3 detach";
constexpr const char* kPlaylist = "env class setBreakAuxStreamPlaylist call -class detach";
const FakeVm kSecondTextFails = {.fails = Fails::Text, .failingText = 2};
// clang-format off
const ArgumentCase kArguments[] = {
    {"NullUri", [](P p, O) { return p.SetDataSource(1, nullptr, "m", nullptr); }, 9, "", "pCurrentURI"},
    {"NullType", [](P p, O) { return p.SetDataSource(1, "u", "m", nullptr); }, 9, "", "pCurrentContentType"},
    {"NullNextUri", [](P p, O) { return p.SetNextDataSource(1, nullptr, "m", nullptr); }, 9, "", "pNextURI"},
    {"NullNextType", [](P p, O) { return p.SetNextDataSource(1, "", nullptr, nullptr); }, 9, "", "pNextContentType"},
    {"NullSpeed", [](P p, O) { return p.Start(1, nullptr); }, 9, "", "pPlaySpeed"},
    {"SetNoVolume", [](P p, O) { return p.SetVolume(1, nullptr, 2, 3); }, 9, "", "pChannel"},
    {"GetNoVolume", [](P p, O o) { return p.GetVolume(1, nullptr, 2, &o.volume); }, 9, "", "pChannel"},
    {"SetNoMute", [](P p, O) { return p.SetMute(1, nullptr, true); }, 9, "", "pChannel"},
    {"GetNoMute", [](P p, O o) { return p.GetMute(1, nullptr, o.flag); }, 9, "", "pChannel"},
    {"UriAlone", [](P p, O) { return p.SetDataSource(1, "u", nullptr, nullptr); }, kAnswer, kUriOnly},
    {"EmptyUri", [](P p, O) { return p.SetDataSource(1, "", nullptr, nullptr); }, kAnswer, kUriOnly},
    {"EmptyUriWithMetadata", [](P p, O) { return p.SetDataSource(1, "", "m", nullptr); }, kAnswer, kNoType},
    {"EmptyMetadata", [](P p, O) { return p.SetDataSource(1, "u", "", nullptr); }, kAnswer, kNoType},
    {"NoNextMetadata", [](P p, O) { return p.SetNextDataSource(1, "u", nullptr, "t"); }, kAnswer, kNextTexts},
    {"NextMetadataIsDispensable", [](P p, O) { return p.SetNextDataSource(1, "u", "m", "t"); }, kAnswer, kNextFails,
     nullptr, kSecondTextFails},
    {"NoPlaylists", [](P p, O) { return p.SetBreakAuxStreamPlaylist(1, 2, nullptr, nullptr); }, kAnswer, kPlaylist},
    {"NullAnswer", [](P p, O o) { return p.GetAction(1, &o.text); }, 9, "env class getAction call copy -class detach",
     nullptr, {.answersNull = true}},
    {"SetDecibel", [](P p, O) { return p.SetVolumeDB(1, nullptr, 2, 3); }, 2, ""},
    {"GetDecibel", [](P p, O o) { return p.GetVolumeDB(1, nullptr, 2, &o.number); }, 2, ""},
};
// clang-format on

TEST_F(Player, TakesWhatMayBeMissingAndRefusesWhatMayNot) {
  for (const ArgumentCase& row : kArguments) {
    SCOPED_TRACE(row.name);
    if (row.null != nullptr) player_.RemoveCb(fakeEnvironment());
    vm = row.how;
    Outs out;
    EXPECT_EQ(row.call(player_, out), row.result);
    EXPECT_EQ(vm.trace, row.trace);
    EXPECT_TRUE(out.areUntouched());
    EXPECT_EQ(vm.log, row.null == nullptr
                          ? std::vector<std::string>()
                          : std::vector{logLine(std::string("Invalid Argument: ") + row.null + " is NULL")});
    player_.AddCb(fakeEnvironment(), named("handler"));
  }
}

TEST_F(Player, HoldsOneHandler) {
  JNIEnv* env = fakeEnvironment();
  vm = {};
  EXPECT_EQ(player_.AddCb(env, named("another")), 10);
  EXPECT_EQ(player_.AddCb(env, nullptr), 10);
  EXPECT_EQ(player_.RemoveCb(env), 0);
  EXPECT_EQ(player_.RemoveCb(env), 10);
  EXPECT_EQ(player_.AddCb(env, nullptr), 10);
  vm.fails = Fails::Class;
  EXPECT_EQ(player_.AddCb(env, named("handler")), 5);
  vm.fails = Fails::Nothing;
  EXPECT_EQ(player_.AddCb(env, named("handler")), 0);
  EXPECT_EQ(vm.trace, "-global global! global");
  EXPECT_THAT(vm.log, ElementsAre(logLine("Invalid State: s_jCallback is NULL"),
                                  logLine("Invalid State: jobject is NULL"),
                                  logLine("No Memory: NewGlobalRef failed")));
}

}  // namespace
