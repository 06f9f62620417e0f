// Strings on their way into Java and back.
// Input: bytes, taken for UTF-8 and for UTF-16.
#include <iconv.h>

#include <algorithm>
#include <optional>
#include <string>

#include "FuzzInput.h"
#include "TarqJniUtil.h"

namespace {

// What libtarq uses of a Java VM. It has one string at a time.
class FakeJava {
 public:
  FakeJava() {
    table_.NewString = [](JNIEnv* env, const jchar* units, jsize length) {
      std::u16string& made = static_cast<FakeEnv*>(env)->made;
      made.assign(units, units + length);
      return reinterpret_cast<jstring>(&made);
    };
    table_.GetStringLength = [](JNIEnv*, jstring string) {
      return static_cast<jsize>(unitsOf(string).size());
    };
    table_.GetStringRegion = [](JNIEnv*, jstring string, jsize begin, jsize length, jchar* units) {
      require(begin >= 0 && length >= 0 && static_cast<size_t>(begin + length) <= unitsOf(string).size(),
              "a region is inside its string");
      std::copy_n(unitsOf(string).begin() + begin, length, units);
    };
    env_.functions = &table_;
  }

  std::u16string toJava(const std::string& utf8) {
    return unitsOf(TarqJniUtil::NewJStringUTF8s(&env_, CString(utf8).c_str()));
  }

  std::string fromJava(std::u16string units) {
    char* utf8 = nullptr;
    require(TarqJniUtil::NewCString(&env_, reinterpret_cast<jstring>(&units), &utf8) == 0,
            "every Java string becomes a C string");
    const std::string copy = utf8;
    std::free(utf8);
    return copy;
  }

 private:
  struct FakeEnv : JNIEnv {
    std::u16string made;
  };

  static const std::u16string& unitsOf(jobject string) {
    return *reinterpret_cast<const std::u16string*>(string);
  }

  JNINativeInterface_ table_{};
  FakeEnv env_{};
};

std::string bytesOf(const std::u16string& units) {
  return {reinterpret_cast<const char*>(units.data()), units.size() * sizeof(char16_t)};
}

// What the C library converts `bytes` to; nothing when they are not valid.
std::optional<std::string> converted(const char* from, const char* to, std::string bytes) {
  std::string result(2 * bytes.size(), '\0');
  char *in = bytes.data(), *out = result.data();
  size_t inLeft = bytes.size(), outLeft = result.size();
  const iconv_t converter = iconv_open(to, from);
  const bool valid = iconv(converter, &in, &inLeft, &out, &outLeft) == 0;
  iconv_close(converter);
  result.resize(result.size() - outLeft);
  return valid ? std::optional(result) : std::nullopt;
}

void checkUtf8(FakeJava& java, const std::string& utf8) {
  const std::u16string units = java.toJava(utf8);
  const std::optional<std::string> expected = converted("UTF-8", "UTF-16LE", utf8);
  require(!expected || bytesOf(units) == *expected, "a valid string becomes what the C library makes of it");
  require(units.find(u'\0') == units.npos, "no NUL comes out of a C string");
  const std::string back = java.fromJava(units);
  require(converted("UTF-8", "UTF-16LE", back) == bytesOf(units), "what comes back is valid and the same");
}

void checkUtf16(FakeJava& java, const std::u16string& units) {
  const std::string utf8 = java.fromJava(units);
  const std::optional<std::string> expected = converted("UTF-16LE", "UTF-8", bytesOf(units));
  require(!expected || units.find(u'\0') != units.npos || utf8 == *expected,
          "a valid Java string becomes what the C library makes of it");
  require(converted("UTF-8", "UTF-16LE", utf8).has_value(), "every Java string becomes valid UTF-8");
  require(java.toJava(utf8).size() == units.size(), "one U+FFFD stands for each unit that is not valid");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static FakeJava java;
  checkUtf8(java, std::string(CString({reinterpret_cast<const char*>(data), size}).view()));
  std::u16string units(size / 2, u'\0');
  if (!units.empty()) std::memcpy(units.data(), data, units.size() * 2);
  checkUtf16(java, units);
  return 0;
}
