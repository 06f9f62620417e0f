#include "TarqJniUtil.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

#include "TarqDmrPlayerInterface.h"

namespace {

constexpr unsigned kReplacement = 0xFFFD;

constinit std::atomic<JavaVM*> javaVm = nullptr;

// Where the VM stores an environment: a desktop's jni.h wants void**, Android's JNIEnv** to attach a thread.
struct EnvironmentSlot {
  JNIEnv* env = nullptr;

  operator JNIEnv**() { return &env; }
  operator void**() { return reinterpret_cast<void**>(&env); }
};

// Code points to UTF-16. `to` has room for two units.
jchar* writeUtf16(uint32_t character, jchar* to) {
  if (character < 0x10000) {
    *to++ = static_cast<jchar>(character);
  } else {
    *to++ = static_cast<jchar>(0xD7C0 + (character >> 10));
    *to++ = static_cast<jchar>(0xDC00 + (character & 0x3FF));
  }
  return to;
}

// Takes one character off the text. Of an invalid one it takes what could have begun a valid one, at least a
// byte, and gives U+FFFD (WHATWG Encoding Standard, UTF-8 decoder). The final NUL continues nothing.
uint32_t takeCharacter(const unsigned char*& at) {
  const unsigned lead = *at++;
  if (lead < 0x80) return lead;
  if (lead < 0xC2 || lead > 0xF4) return kReplacement;
  int missing = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
  // The second byte's range: no overlong forms, no surrogates, nothing above U+10FFFF.
  unsigned low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  unsigned high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  uint32_t character = lead & (0x3Fu >> missing);
  for (; missing > 0 && low <= *at && *at <= high; --missing) {
    character = character << 6 | (*at++ & 0x3Fu);
    low = 0x80;
    high = 0xBF;
  }
  return missing == 0 ? character : kReplacement;
}

// Writes UTF-16 that comes unit by unit as UTF-8. A unit needs three bytes at most.
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
  void write(uint32_t character) {
    if (character < 0x80) return byte(character);
    if (character < 0x800) {
      byte(0xC0 | character >> 6);
    } else {
      if (character < 0x10000) {
        byte(0xE0 | character >> 12);
      } else {
        byte(0xF0 | character >> 18);
        byte(0x80 | (character >> 12 & 0x3F));
      }
      byte(0x80 | (character >> 6 & 0x3F));
    }
    byte(0x80 | (character & 0x3F));
  }

  void byte(uint32_t value) { *to_++ = static_cast<char>(value); }

  char* to_;
  uint32_t high_ = 0;  // the first half of a pair whose second half is to come; 0: none
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

jstring TarqJniUtil::NewJStringUTF8s(JNIEnv* env, const char* text) noexcept {
  if (text == nullptr) return nullptr;
  const size_t bytes = std::strlen(text);  // no byte becomes more than one unit
  if (bytes > INT32_MAX) return nullptr;
  std::array<jchar, 256> inlineUnits{};
  std::unique_ptr<jchar[]> heapUnits;
  jchar* units = inlineUnits.data();
  if (bytes > inlineUnits.size()) {
    heapUnits.reset(new (std::nothrow) jchar[bytes]);
    units = heapUnits.get();
    if (units == nullptr) return nullptr;
  }
  jchar* end = units;
  for (auto at = reinterpret_cast<const unsigned char*>(text); *at != 0;)
    end = writeUtf16(takeCharacter(at), end);
  return env->NewString(units, static_cast<jsize>(end - units));
}

int TarqJniUtil::NewCString(JNIEnv* env, jobject string, char** text) noexcept {
  if (string == nullptr) return kPlayerInvalidArgument;
  const auto javaString = static_cast<jstring>(string);
  const jsize length = env->GetStringLength(javaString);
  constexpr size_t kMostUnits = (SIZE_MAX - 1) / 3;
  if (static_cast<size_t>(length) > kMostUnits) return kPlayerOutOfMemory;
  const auto copy = static_cast<char*>(std::malloc(static_cast<size_t>(length) * 3 + 1));
  if (copy == nullptr) return kPlayerOutOfMemory;

  Utf8Writer writer(copy);
  std::array<jchar, 512> piece;
  for (jsize begin = 0, count; begin < length; begin += count) {
    count = std::min(static_cast<jsize>(piece.size()), length - begin);
    env->GetStringRegion(javaString, begin, count, piece.data());
    std::for_each_n(piece.begin(), count, [&](jchar unit) { writer.put(unit); });
  }
  writer.finish();
  *text = copy;
  return kPlayerOk;
}
