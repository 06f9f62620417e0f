#include <gtest/gtest.h>

#include "DidlText.h"
#include "TarqCdsAccess.h"

namespace {

const char* attribute(const TARQ_Object* object, const char* name, unsigned index,
                      const char* attributeName) {
  return plainText(TARQ_Object_GetAttributeValue(object, cdsText(name), index, cdsText(attributeName)));
}

TEST(CdsAccess, TurnsWhateverIsMissingIntoNull) {
  EXPECT_EQ(TARQ_Result_ParseCds(nullptr), nullptr);
  EXPECT_EQ(TARQ_Result_ParseCds(cdsText("<item/>")), nullptr);
  TARQ_Result_DestroyResult(nullptr);

  const Didl didl({"<res protocolInfo='a:b' size=''> u </res>", "<res/>", "<dc:title>t</dc:title>"});
  const TARQ_Object* object = didl.object();
  EXPECT_EQ(TARQ_Object_NumOfProperties(object, nullptr), 3);
  EXPECT_EQ(TARQ_Object_NumOfProperties(object, cdsText("res")), 2);
  EXPECT_STREQ(plainText(TARQ_Object_GetPropertyValue(object, cdsText("res"), 0)), "u");
  EXPECT_STREQ(plainText(TARQ_Object_GetPropertyValue(object, cdsText("res"), 1)), "");
  EXPECT_EQ(TARQ_Object_GetPropertyValue(object, cdsText("res"), 2), nullptr);
  EXPECT_STREQ(attribute(object, "res", 0, "protocolInfo"), "a:b");
  EXPECT_STREQ(attribute(object, "res", 0, "size"), "");
  EXPECT_EQ(attribute(object, "res", 0, "duration"), nullptr);
  EXPECT_EQ(attribute(object, "res", 1, "protocolInfo"), nullptr);
  EXPECT_EQ(attribute(object, "res", 2, "protocolInfo"), nullptr);
  EXPECT_STREQ(plainText(TARQ_Object_GetAttributeValue(object, nullptr, 9, cdsText("id"))), "1");
  EXPECT_EQ(TARQ_Object_GetAttributeValue(object, nullptr, 0, cdsText("res")), nullptr);
}

TEST(CdsAccess, ParsesResolutionsOrNot) {
  for (const char* text : {"1280X720", "1280x", "x720", "-1x5", "99999999999x1", ""}) {
    EXPECT_EQ(TARQ_Resolution_Parse(cdsText(text)), nullptr) << text;
  }
  EXPECT_EQ(TARQ_Resolution_Parse(nullptr), nullptr);
  TARQ_Resolution_Destroy(nullptr);
  TARQ_Resolution* resolution = TARQ_Resolution_Parse(cdsText("1280x720"));
  ASSERT_NE(resolution, nullptr);
  EXPECT_EQ(TARQ_Resolution_GetWidth(resolution), 1280);
  EXPECT_EQ(TARQ_Resolution_GetHeight(resolution), 720);
  TARQ_Resolution_Destroy(resolution);
}

}  // namespace
