// Texts between UTF-8 and a real Java VM.
#include <gtest/gtest.h>

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

struct TextCase {
  const char* name;
  char way;  // '>': to Java, '<': from Java, '=': both
  std::string utf8;
  std::u16string java;
};

#define REPLACED "\xEF\xBF\xBD"  // U+FFFD
const TextCase kTexts[] = {
    {"Empty", '=', "", u""},
    {"Ascii", '=', "a\x7F", u"a\x7F"},
    {"TwoBytes", '=', "\xC2\x80\xDF\xBF", u"\u0080\u07FF"},
    {"ThreeBytes", '=', "\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF", u"\u0800\uD7FF\uE000\uFFFF"},
    {"FourBytes", '=', "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", u"\U00010000\U0010FFFF"},
    {"ByteOrderMark", '=', "\xEF\xBB\xBF", u"\uFEFF"},
    {"LoneContinuation", '>', "\x80\xBF", u"\uFFFD\uFFFD"},
    {"NeverABeginning", '>', "\xC0\xAF\xC1\xF5\xFF", u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
    {"CutShort", '>', "\xC3|\xE2\x82|\xF0\x9F\x98|\xF0\x9F", u"\uFFFD|\uFFFD|\uFFFD|\uFFFD"},
    {"OverlongThree", '>', "\xE0\x9F\xBF", u"\uFFFD\uFFFD\uFFFD"},
    {"OverlongFour", '>', "\xF0\x8F\xBF\xBF", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
    {"Surrogate", '>', "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
    {"AboveTheLast", '>', "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
    {"BeginningInside", '>', "\xE2\xC3\xA9", u"\uFFFD\u00E9"},
    {"Nul", '<', "a" REPLACED "z", std::u16string(u"a\0z", 3)},
    {"HighAlone", '<', REPLACED "z", u"\xD83Dz"},
    {"HighAtTheEnd", '<', "a" REPLACED, u"a\xD83D"},
    {"LowAlone", '<', REPLACED "z", u"\xDE00z"},
    {"WrongOrder", '<', REPLACED REPLACED, u"\xDE00\xD83D"},
    {"HighBeforePair", '<', REPLACED "\xF0\x9F\x98\x80", u"\xD83D\xD83D\xDE00"},
};

TEST(JavaText, IsRealUtf8) {
  for (const TextCase& row : kTexts) {
    EXPECT_TRUE(row.way == '<' || toJava(row.utf8) == row.java) << row.name;
    EXPECT_TRUE(row.way == '>' || fromJava(row.java) == row.utf8) << row.name;
  }
}

// Lengths around the buffers, with pairs across every border.
TEST(JavaText, MayBeLong) {
  for (size_t blanks = 0; blanks < 4; ++blanks) {
    for (const size_t emojis : {63u, 64u, 127u, 128u, 255u, 256u, 400u}) {
      std::string utf8(blanks, ' ');
      std::u16string java(blanks, u' ');
      for (size_t i = 0; i < emojis; ++i) utf8 += "\xF0\x9F\x98\x80", java += u"\U0001F600";
      EXPECT_EQ(toJava(utf8), java);
      EXPECT_EQ(fromJava(java), utf8);
    }
  }
}

TEST(JavaThreads, WithoutAVmThereIsNoEnvironment) {
  JavaVM* vm = nullptr;
  ASSERT_EQ(testEnv().GetJavaVM(&vm), JNI_OK);
  int attached = 0;
  TarqJniUtil::SetJavaVM(nullptr);
  EXPECT_EQ(TarqJniUtil::GetJNIEnv(&attached), nullptr);
  EXPECT_NE(TarqJniUtil::DetachVM(), 0);
  TarqJniUtil::SetJavaVM(vm);
  EXPECT_EQ(TarqJniUtil::GetJNIEnv(&attached), &testEnv());
  EXPECT_EQ(attached, 0);
}

}  // namespace
