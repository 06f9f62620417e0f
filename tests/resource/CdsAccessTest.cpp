#include <gtest/gtest.h>

#include "Didl.h"
#include "TarqCdsAccess.h"

namespace {

const char* attribute(const TARQ_Object* object, const char* name, unsigned index,
                      const char* attributeName) {
  return plainText(TARQ_Object_GetAttributeValue(object, cdsText(name), index, cdsText(attributeName)));
}

TEST(CdsAccess, TurnsWhateverIsMissingIntoNull) {
  EXPECT_EQ(TARQ_Result_ParseCds(nullptr), nullptr);
  EXPECT_EQ(TARQ_Resolution_Parse(nullptr), nullptr);
  TARQ_Result_DestroyResult(nullptr);

  const Didl didl({"<res size=''> u </res>", "<res/>", "<dc:title>t</dc:title>"});
  const TARQ_Object* object = didl.object();
  EXPECT_EQ(TARQ_Object_NumOfProperties(object, nullptr), 3);
  EXPECT_EQ(TARQ_Object_NumOfProperties(object, cdsText("res")), 2);
  EXPECT_STREQ(plainText(TARQ_Object_GetPropertyValue(object, cdsText("res"), 1)), "");
  EXPECT_EQ(TARQ_Object_GetPropertyValue(object, cdsText("res"), 2), nullptr);
  EXPECT_STREQ(attribute(object, "res", 0, "size"), "");
  for (const unsigned index : {0u, 1u, 2u}) EXPECT_EQ(attribute(object, "res", index, "duration"), nullptr);
  EXPECT_STREQ(attribute(object, nullptr, 9, "id"), "1");
  EXPECT_EQ(attribute(object, nullptr, 0, "res"), nullptr);
}

}  // namespace
