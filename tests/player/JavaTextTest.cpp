// Strings between UTF-8 and a real Java VM.
#include "TestRows.h"
#include "TestVm.h"

namespace {

std::u16string toJava(const std::string& utf8) {
  JNIEnv& env = testEnv();
  const jstring string = TarqJniUtil::NewJStringUTF8s(&env, utf8.c_str());
  std::u16string units(static_cast<size_t>(env.GetStringLength(string)), u'\0');
  env.GetStringRegion(string, 0, env.GetStringLength(string), reinterpret_cast<jchar*>(units.data()));
  env.DeleteLocalRef(string);
  return units;
}

std::string fromJava(const std::u16string& units) {
  JNIEnv& env = testEnv();
  const jstring string =
      env.NewString(reinterpret_cast<const jchar*>(units.data()), static_cast<jsize>(units.size()));
  char* text = nullptr;
  EXPECT_EQ(TarqJniUtil::NewCString(&env, string, &text), 0);
  env.DeleteLocalRef(string);
  return PlayerOf::taken(text);
}

#define REPLACED "\xEF\xBF\xBD"  // U+FFFD
const struct {
  const char* name;
  bool bothWays;  // false: only from Java
  std::string utf8;
  std::u16string java;
} kTexts[] = {
    {"Empty", true, "", u""},
    {"OneAndTwoBytes", true, "a\x7F\xC2\x80\xDF\xBF", u"a\x7F\u0080\u07FF"},
    {"ThreeBytes", true, "\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF", u"\u0800\uD7FF\uE000\uFFFF"},
    {"FourBytes", true, "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", u"\U00010000\U0010FFFF"},
    {"ByteOrderMark", true, "\xEF\xBB\xBF", u"\uFEFF"},
    {"Nul", false, "a" REPLACED "z", std::u16string(u"a\0z", 3)},
    {"HighAlone", false, REPLACED "z", u"\xD83Dz"},
    {"HighAtTheEnd", false, "a" REPLACED, u"a\xD83D"},
    {"LowAlone", false, REPLACED "z", u"\xDE00z"},
    {"WrongOrder", false, REPLACED REPLACED, u"\xDE00\xD83D"},
    {"HighBeforePair", false, REPLACED "\xF0\x9F\x98\x80", u"\xD83D\xD83D\xDE00"},
};
TEST_ROWS(JavaText, IsStandardUtf8, kTexts) {
  EXPECT_TRUE(!row.bothWays || toJava(row.utf8) == row.java);
  EXPECT_EQ(fromJava(row.java), row.utf8);
}

TEST(JavaText, ReplacesWhatIsNotUtf8) {
  EXPECT_TRUE(toJava("\xF0\x9F\x98|\xC0\xAF\xE2\x82") == u"\uFFFD|\uFFFD\uFFFD\uFFFD");
}

// Lengths around those of the buffers, with pairs across every border.
TEST(JavaText, MayBeLong) {
  for (size_t emojis = 60; emojis < 600; ++emojis) {
    std::string utf8(emojis % 4, ' ');
    std::u16string java(emojis % 4, u' ');
    for (size_t i = 0; i < emojis; ++i) utf8 += "\xF0\x9F\x98\x80", java += u"\U0001F600";
    EXPECT_TRUE(toJava(utf8) == java && fromJava(java) == utf8) << emojis;
  }
}

}  // namespace
