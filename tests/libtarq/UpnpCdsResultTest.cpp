#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "OutcomeRows.h"
#include "UpnpCdsResult.h"

namespace {

std::string didl(const std::string& properties) {
  return "<DIDL-Lite><item id='1'>" + properties + "</item></DIDL-Lite>";
}

std::string repeated(const std::string& text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

std::string objectsIn(const char* text) {
  const UpnpCdsResult result(text);
  EXPECT_EQ(result.GetObject(-1), nullptr);
  EXPECT_EQ(result.GetObject(result.GetNumOfObjects()), nullptr);
  return result.GetStatus() == 0 ? std::to_string(result.GetNumOfObjects()) : "not parsed";
}

TEST(UpnpCdsResult, TellsDidlFromOtherText) {
  const std::string root = "<DIDL-Lite/>";
  const std::string filler(size_t{4} * 1024 * 1024 - root.size(), ' ');
  // clang-format off
  expectOutcomes(objectsIn, {
      root + " => 0",
      "\xEF\xBB\xBF \n<?xml version='1.0'?><!-- c --> <DIDL-Lite><item/></DIDL-Lite>\n<!-- c --> => 1",
      "<d:DIDL-Lite><d:item/><item/><x:item/><container/><other/></d:DIDL-Lite> => 3",
      "<DIDL-Lite><item><item/></item>text<x:item/></DIDL-Lite> => 1",
      "<DIDL-Lite><item a='1' a='2' b='\xFF\xC0'>\x80</item></DIDL-Lite> => 1", " => not parsed",
      "  => not parsed", "NOT_IMPLEMENTED => not parsed", "<didl-lite/> => not parsed",
      "<:DIDL-Lite/> => not parsed", "<DIDL-LiteX/> => not parsed", root + root + " => not parsed",
      root + "text => not parsed", "text" + root + " => not parsed",
      "<![CDATA[ ]]>" + root + " => not parsed", "<!DOCTYPE DIDL-Lite>" + root + " => not parsed",
      "<DIDL-Lite><item></DIDL-Lite> => not parsed", "<DIDL-Lite><item a=1/></DIDL-Lite> => not parsed",
      root + filler + " => 0", root + filler + "  => not parsed"});
  // clang-format on
  EXPECT_EQ(objectsIn(nullptr), "not parsed");
  const std::string whole = didl("<res p='&amp;&#x1F600;&#0;'>a<!-- c --><![CDATA[b]]><?pi?>&lt;</res>");
  for (size_t length = 0; length < whole.size(); ++length)
    EXPECT_EQ(objectsIn(whole.substr(0, length).c_str()), "not parsed") << length;
}

TEST(UpnpCdsResult, JoinsTextAndCutsBlanks) {
  const auto text = [](const char* content) {
    const UpnpCdsResult result(didl("<res>" + std::string(content) + "</res><res/><res>next</res>").c_str());
    const UpnpAvObject* item = result.GetObject(0);
    std::string read = item->GetPropertyText("res", 0);
    EXPECT_EQ(item->GetPropertyText("res", 0), read) << "once joined, the text stays";
    EXPECT_STREQ(item->GetPropertyText("res", 1), "");
    EXPECT_STREQ(item->GetPropertyText("res", 2), "next");
    return read;
  };
  // clang-format off
  expectOutcomes(text, {
      "http://a/b => http://a/b", "\r\n\t http://a/b c \n => http://a/b c", " => ", "   => ",
      " <!-- c -->  => ", "http://a<!-- c -->/b<?pi?>/c => http://a/b/c",
      " <![CDATA[ a&amp;<b ]]>  => a&amp;<b", "<![CDATA[a]]> <![CDATA[]]><!-- -->\n<![CDATA[b]]> => a \nb",
      "a<x y='1'>inner</x>b<z/> c => ab c", "&#32;a&amp;&#x1F600;&bogus; => a&\xF0\x9F\x98\x80&bogus;",
      "a&#0;b<!-- -->c => ac"});
  // clang-format on
}

TEST(UpnpCdsResult, FindsPropertiesAndAttributesByName) {
  const UpnpCdsResult result(
      "<d:DIDL-Lite d:x='0'><d:item id='7' d:k='p'><d:res size='1' size='2' av:n='a\n&quot;&#0;z'>u</d:res>"
      "text<dc:title>t</dc:title><res size=''>v</res></d:item><d:container/></d:DIDL-Lite>");
  const UpnpAvObject* item = result.GetObject(0);
  EXPECT_EQ(item->GetNumOfProperties(), 3);
  EXPECT_EQ(item->GetNumOfProperties("res"), 2);
  EXPECT_EQ(item->GetNumOfProperties("d:res"), 0);
  EXPECT_STREQ(item->GetPropertyText("dc:title", 0), "t");
  EXPECT_EQ(item->GetPropertyText("title", 0), nullptr);
  EXPECT_EQ(item->GetPropertyText("res", 2), nullptr);
  EXPECT_EQ(item->GetPropertyText(nullptr, 0), nullptr);
  EXPECT_EQ(item->GetPropertyByName("dc:title", 0)->GetAttributes(), nullptr);
  const UpnpAvAttributes* res = item->GetPropertyByName("res", 0)->GetAttributes();
  EXPECT_STREQ(res->GetValue("size"), "1");
  EXPECT_STREQ(res->GetValue("av:n"), "a \"");
  EXPECT_EQ(res->GetValue("n"), nullptr);
  EXPECT_EQ(res->GetValue(nullptr), nullptr);
  EXPECT_STREQ(item->GetPropertyByName("res", 1)->GetAttributes()->GetValue("size"), "");
  EXPECT_STREQ(item->GetAttributes()->GetValue("d:k"), "p");
  EXPECT_EQ(result.GetObject(1)->GetNumOfProperties(), 0);
  EXPECT_EQ(result.GetObject(1)->GetAttributes(), nullptr);
}

TEST(UpnpCdsResult, SurvivesDeepNesting) {
  constexpr int kDepth = 200'000;
  const UpnpCdsResult result(
      didl("<res>" + repeated("<a>", kDepth) + repeated("</a>", kDepth) + "u</res>").c_str());
  ASSERT_EQ(result.GetStatus(), 0);
  EXPECT_STREQ(result.GetObject(0)->GetPropertyText("res", 0), "u");
  EXPECT_EQ(objectsIn(repeated("<a>", kDepth).c_str()), "not parsed");
}

TEST(UpnpCdsResult, ReadsManyPropertiesInLinearTime) {
  constexpr unsigned kCount = 100'000;
  const std::string text = didl(repeated("<res size='1'>http://a/b</res>\n", kCount));
  const auto start = std::chrono::steady_clock::now();
  const UpnpCdsResult result(text.c_str());
  ASSERT_EQ(result.GetStatus(), 0);
  size_t read = 0;
  for (unsigned i = 0; i < kCount; ++i) {
    const UpnpAvObject* item = result.GetObject(0);
    read += std::string_view(item->GetPropertyText("res", i)).size();
    read += std::string_view(item->GetPropertyByName("res", i)->GetAttributes()->GetValue("size")).size();
    read += static_cast<size_t>(item->GetNumOfProperties()) / kCount;
  }
  EXPECT_EQ(read, 12u * kCount);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2)) << "quadratic: minutes";
}

}  // namespace
