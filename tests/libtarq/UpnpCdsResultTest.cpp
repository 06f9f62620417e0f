#include <string>

#include "StringRows.h"
#include "UpnpCdsResult.h"

namespace {

std::string objectsIn(const char* didl) {
  const UpnpCdsResult result(didl);
  EXPECT_EQ(result.GetObject(-1), nullptr);
  EXPECT_EQ(result.GetObject(result.GetNumOfObjects()), nullptr);
  return result.GetStatus() == 0 ? std::to_string(result.GetNumOfObjects()) : "invalid";
}

const auto kDocuments = stringRows(
    {"<DIDL-Lite/> => 0",
     "\xEF\xBB\xBF \n<?xml version='1.0'?><!-- c --> <DIDL-Lite><item/></DIDL-Lite>\n<!-- c --> => 1",
     "<d:DIDL-Lite><d:item/><item/><x:item/><container/><other/></d:DIDL-Lite> => 3",
     "<DIDL-Lite><item><item/></item>text<x:item/></DIDL-Lite> => 1",
     // What control points get wrong.
     "<DIDL-Lite><item a='1' a='2'/><item b='\xFF\xC0'>\x80</item></DIDL-Lite> => 2",
     "<DIDL-Lite><item a='<&' b='&x;'>& &nbsp; &x;</item></DIDL-Lite> => 1",
     "<DIDL-Lite><item>a < b</item></DIDL-Lite> => invalid", "<DIDL-Lite/>x => invalid",
     "<DIDL-Lite/>< => invalid", " => invalid", "  => invalid", "NOT_IMPLEMENTED => invalid",
     "<didl-lite/> => invalid", "<:DIDL-Lite/> => invalid", "<DIDL-LiteX/> => invalid",
     "<DIDL-Lite/><DIDL-Lite/> => invalid", "<DIDL-Lite/>text => invalid", "text<DIDL-Lite/> => invalid",
     "<![CDATA[ ]]><DIDL-Lite/> => invalid", "<!DOCTYPE DIDL-Lite><DIDL-Lite/> => invalid",
     "<DIDL-Lite><item></DIDL-Lite> => invalid", "<DIDL-Lite><item a=1/></DIDL-Lite> => invalid"});
TEST_ROWS(UpnpCdsResult, Document, kDocuments) { EXPECT_EQ(objectsIn(row.input.c_str()), row.outcome); }

TEST(UpnpCdsResult, TakesADocumentWithinItsLimitsAndNoPartOfOne) {
  const std::string longest = "<DIDL-Lite/>" + std::string(size_t{4} * 1024 * 1024 - 12, ' ');
  EXPECT_EQ(objectsIn(longest.c_str()), "0");
  EXPECT_TRUE(objectsIn((longest + ' ').c_str()) == "invalid" && objectsIn(nullptr) == "invalid");
  const auto crowded = [](size_t items, const char* rest) {
    std::string didl = "<DIDL-Lite>";
    for (; items > 0; --items) didl += "<item/>";
    return objectsIn((didl + rest + "</DIDL-Lite>").c_str());
  };
  EXPECT_TRUE(crowded(16'382, "") == "16382" && crowded(16'383, "") == "invalid");
  const std::string equalSigns(65'536, '=');
  EXPECT_EQ(crowded(1, equalSigns.c_str()), "1");
  EXPECT_EQ(crowded(1, (equalSigns + '=').c_str()), "invalid");
  const std::string whole =
      "<DIDL-Lite><item p='&amp;&#0;'>a<!-- c --><![CDATA[b]]><?pi?>&lt;</item></DIDL-Lite>";
  for (size_t length = 0; length < whole.size(); ++length)
    EXPECT_EQ(objectsIn(whole.substr(0, length).c_str()), "invalid") << length;
}

const auto kTexts = stringRows(
    {"http://a/b => http://a/b", "\r\n\t http://a/b c \n => http://a/b c", " => ", " <!-- c -->   => ",
     "http://a<!-- c -->/b<?pi?>/c => http://a/b/c", " <![CDATA[ a&amp;<b ]]>  => a&amp;<b",
     "<![CDATA[a]]> <![CDATA[]]><!-- -->\n<![CDATA[b]]> => a \nb", "a<x y='1'>inner</x>b<z/> c => ab c",
     "&#32;a&amp;&#x1F600;&bogus; => a&\xF0\x9F\x98\x80&bogus;", "a&#0;b<!-- -->c => ac"});
TEST_ROWS(UpnpCdsResult, Text, kTexts) {
  const std::string didl =
      "<DIDL-Lite><item><res>" + row.input + "</res><res/><res>next</res></item></DIDL-Lite>";
  const UpnpCdsResult result(didl.c_str());
  for (const std::string when : {"first", "again"})
    EXPECT_EQ(result.GetObject(0)->GetPropertyText("res", 0), row.outcome) << when;
  EXPECT_STREQ(result.GetObject(0)->GetPropertyText("res", 1), "");
  EXPECT_STREQ(result.GetObject(0)->GetPropertyText("res", 2), "next");
}

TEST(UpnpCdsResult, FindsPropertiesAndAttributesByName) {
  const UpnpCdsResult result(
      "<d:DIDL-Lite d:x='0'><d:item id='7' d:k='p'><d:res size='1' size='2' av:n='a\n&quot;&#0;z'>u</d:res>"
      "text<dc:title>t</dc:title><res size=''>v</res></d:item><d:container/></d:DIDL-Lite>");
  const UpnpAvObject* item = result.GetObject(0);
  EXPECT_EQ(item->GetNumOfProperties(), 3);
  EXPECT_TRUE(item->GetNumOfProperties("res") == 2 && item->GetNumOfProperties("d:res") == 0);
  EXPECT_STREQ(item->GetPropertyText("dc:title", 0), "t");
  EXPECT_TRUE(item->GetPropertyText("res", 2) == nullptr && item->GetPropertyText(nullptr, 0) == nullptr);
  EXPECT_EQ(item->GetPropertyByName("dc:title", 0)->GetAttributes(), nullptr);
  const UpnpAvAttributes* res = item->GetPropertyByName("res", 0)->GetAttributes();
  EXPECT_EQ(std::string(res->GetValue("size")) + res->GetValue("av:n"), "1a \"");
  EXPECT_TRUE(res->GetValue("n") == nullptr && res->GetValue(nullptr) == nullptr);
  EXPECT_STREQ(item->GetPropertyByName("res", 1)->GetAttributes()->GetValue("size"), "");
  EXPECT_STREQ(item->GetAttributes()->GetValue("d:k"), "p");
  EXPECT_EQ(result.GetObject(1)->GetAttributes(), nullptr);
}

}  // namespace
