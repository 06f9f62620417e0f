#include "TarqJniUtil.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>
#include <string_view>

#include "TarqDmrPlayerInterface.h"
#include "Utf8Decoder.h"

namespace {

constexpr unsigned kReplacement = 0xFFFD;

constinit std::atomic<JavaVM*> javaVm = nullptr;

// Where the VM stores an environment. To attach a thread, a desktop's jni.h takes void**, Android's JNIEnv**.
struct EnvironmentSlot {
  JNIEnv* env = nullptr;

  operator JNIEnv**() { return &env; }
  operator void**() { return reinterpret_cast<void**>(&env); }
};

// `to` has room for two units.
// Returns: the end of what was written.
jchar* writeUtf16(uint32_t codePoint, jchar* to) {
  if (codePoint < 0x10000) {
    *to++ = static_cast<jchar>(codePoint);
  } else {
    *to++ = static_cast<jchar>(0xD7C0 + (codePoint >> 10));
    *to++ = static_cast<jchar>(0xDC00 + (codePoint & 0x3FF));
  }
  return to;
}

// Takes UTF-16 unit by unit and writes UTF-8: at most three bytes for each unit.
class Utf8Writer {
 public:
  explicit Utf8Writer(char* to) : to_(to) {}

  void put(uint32_t unit) {
    const bool isLow = unit >= 0xDC00 && unit < 0xE000;
    const uint32_t high = high_;
    high_ = 0;
    if (high != 0 && isLow) return write(0x10000 + ((high & 0x3FF) << 10 | (unit & 0x3FF)));
    if (high != 0) write(kReplacement);
    if (unit >= 0xD800 && unit < 0xDC00) {
      high_ = unit;
    } else {
      write(isLow || unit == 0 ? kReplacement : unit);
    }
  }

  void finish() {
    if (high_ != 0) write(kReplacement);
    *to_ = '\0';
  }

 private:
  void write(uint32_t codePoint) {
    if (codePoint < 0x80) return byte(codePoint);
    if (codePoint < 0x800) {
      byte(0xC0 | codePoint >> 6);
    } else {
      if (codePoint < 0x10000) {
        byte(0xE0 | codePoint >> 12);
      } else {
        byte(0xF0 | codePoint >> 18);
        byte(0x80 | (codePoint >> 12 & 0x3F));
      }
      byte(0x80 | (codePoint >> 6 & 0x3F));
    }
    byte(0x80 | (codePoint & 0x3F));
  }

  void byte(uint32_t value) { *to_++ = static_cast<char>(value); }

  char* to_;
  // A high surrogate that waits for its low surrogate, or 0.
  uint32_t high_ = 0;
};

}  // namespace

void TarqJniUtil::SetJavaVM(JavaVM* vm) noexcept { javaVm.store(vm); }

JNIEnv* TarqJniUtil::GetJNIEnv(int* attached) noexcept {
  JavaVM* vm = javaVm.load();
  if (vm == nullptr) return nullptr;
  EnvironmentSlot slot;
  const jint status = vm->GetEnv(slot, JNI_VERSION_1_6);
  if (status == JNI_OK) return slot.env;
  if (status != JNI_EDETACHED || vm->AttachCurrentThread(slot, nullptr) != JNI_OK) return nullptr;
  *attached = 1;
  return slot.env;
}

int TarqJniUtil::DetachVM() noexcept {
  JavaVM* vm = javaVm.load();
  return vm == nullptr ? JNI_ERR : vm->DetachCurrentThread();
}

jstring TarqJniUtil::NewJStringUTF8s(JNIEnv* env, const char* string) noexcept {
  if (string == nullptr) return nullptr;
  std::string_view rest = string;
  if (rest.size() > INT32_MAX) return nullptr;
  // No byte becomes more than one unit.
  std::array<jchar, 256> inlineUnits;
  std::unique_ptr<jchar[]> heapUnits;
  jchar* units = inlineUnits.data();
  if (rest.size() > inlineUnits.size()) {
    heapUnits.reset(new (std::nothrow) jchar[rest.size()]);
    units = heapUnits.get();
    if (units == nullptr) return nullptr;
  }
  jchar* end = units;
  while (!rest.empty()) {
    const Utf8Character character = decodeUtf8(rest);
    end = writeUtf16(character.codePoint, end);
    rest.remove_prefix(character.length);
  }
  return env->NewString(units, static_cast<jsize>(end - units));
}

int TarqJniUtil::NewCString(JNIEnv* env, jobject string, char** copy) noexcept {
  if (string == nullptr) return kPlayerInvalidArgument;
  const auto javaString = static_cast<jstring>(string);
  const jsize length = env->GetStringLength(javaString);
  constexpr size_t kMostUnits = (SIZE_MAX - 1) / 3;
  if (static_cast<size_t>(length) > kMostUnits) return kPlayerOutOfMemory;
  const auto utf8 = static_cast<char*>(std::malloc(static_cast<size_t>(length) * 3 + 1));
  if (utf8 == nullptr) return kPlayerOutOfMemory;

  Utf8Writer writer(utf8);
  std::array<jchar, 512> piece;
  for (jsize begin = 0, count; begin < length; begin += count) {
    count = std::min(static_cast<jsize>(piece.size()), length - begin);
    env->GetStringRegion(javaString, begin, count, piece.data());
    std::for_each_n(piece.begin(), count, [&](jchar unit) { writer.put(unit); });
  }
  writer.finish();
  *copy = utf8;
  return kPlayerOk;
}
