// Texts on their way into Java and back.
// Input: bytes, taken for UTF-8 and for UTF-16.
#include <algorithm>
#include <cstring>
#include <memory>
#include <string>

#include "FuzzInput.h"
#include "TarqJniUtil.h"
#include "Utf8.h"

namespace {

// What libtarq uses of a Java VM: strings are UTF-16, as Java's are, and live as long as `made`.
class FakeJava {
 public:
  FakeJava() {
    table_.NewString = [](JNIEnv* env, const jchar* units, jsize length) {
      auto& java = *static_cast<FakeEnv*>(env)->java;
      java.made_ = std::make_unique<std::u16string>(units, units + length);
      return reinterpret_cast<jstring>(java.made_.get());
    };
    table_.GetStringLength = [](JNIEnv*, jstring string) { return static_cast<jsize>(text(string).size()); };
    table_.GetStringRegion = [](JNIEnv*, jstring string, jsize begin, jsize length, jchar* units) {
      require(begin >= 0 && length >= 0 && static_cast<size_t>(begin + length) <= text(string).size(),
              "a region lies within its string");
      std::copy_n(text(string).begin() + begin, length, units);
    };
    env_.functions = &table_;
    env_.java = this;
  }

  std::u16string toJava(const std::string& utf8) {
    const Text bytes(utf8);
    return text(TarqJniUtil::NewJStringUTF8s(&env_, bytes.c_str()));
  }

  std::string fromJava(std::u16string units) {
    char* utf8 = nullptr;
    require(TarqJniUtil::NewCString(&env_, reinterpret_cast<jstring>(&units), &utf8) == 0,
            "a string becomes a text");
    const std::string text = utf8;
    std::free(utf8);
    return text;
  }

 private:
  struct FakeEnv : JNIEnv {
    FakeJava* java;
  };

  static const std::u16string& text(jobject string) {
    return *reinterpret_cast<const std::u16string*>(string);
  }

  JNINativeInterface_ table_{};
  FakeEnv env_{};
  std::unique_ptr<std::u16string> made_;
};

bool isHigh(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool isLow(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

bool isValidUtf16(const std::u16string& units) {
  for (size_t i = 0; i < units.size(); ++i) {
    if (isLow(units[i]) || (isHigh(units[i]) && !isLow(i + 1 < units.size() ? units[i + 1] : u'\0')))
      return false;
    i += isHigh(units[i]) ? 1 : 0;
  }
  return true;
}

void checkUtf8(FakeJava& java, const std::string& text) {
  const std::u16string units = java.toJava(text);
  require(isValidUtf16(units), "a text becomes valid UTF-16");
  require(units.find(u'\0') == units.npos, "no NUL comes out of a text");
  const std::string back = java.fromJava(units);
  require(isValidUtf8(back), "what comes back is valid UTF-8");
  require((back == text) == isValidUtf8(text), "a text comes back as it was if it is valid, and only then");
  require(java.toJava(back) == units, "mended once, a text stays");
}

void checkUtf16(FakeJava& java, const std::u16string& units) {
  const std::string text = java.fromJava(units);
  require(isValidUtf8(text), "a string becomes valid UTF-8");
  const std::u16string back = java.toJava(text);
  const bool survives = isValidUtf16(units) && units.find(u'\0') == units.npos;
  require((back == units) == survives, "a string comes back as it was if it is valid, and only then");
  require(back.size() == units.size(), "one U+FFFD stands for each unit that is not valid");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static FakeJava java;
  checkUtf8(java, std::string(Text({reinterpret_cast<const char*>(data), size}).view()));
  std::u16string units(size / 2, u'\0');
  if (!units.empty()) std::memcpy(units.data(), data, units.size() * 2);
  checkUtf16(java, units);
  return 0;
}
