#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "VondArrayMap.h"
#include "VondString.h"

using Entry = VondMapEntryT<VondString, int>;
using testing::ElementsAre;

namespace {

std::vector<int> valuesOf(VondArrayListT<Entry>& list) {
  std::vector<int> values;
  const std::unique_ptr<VondArrayListIteratorT<Entry>> it(list.iterator());
  while (it->hasNext()) values.push_back(it->next().value);
  EXPECT_FALSE(it->remove());
  return values;
}

constexpr const char* kKey = "a key that does not fit into the string itself";

TEST(VondArrayList, GrowsByOnePastItsReserve) {
  VondArrayListT<Entry> list;
  EXPECT_TRUE(list.growCapacity(2) && list.capacity() == 2);
  for (int i = 1; i <= 3; ++i) EXPECT_TRUE(list.add({kKey, i}));
  EXPECT_EQ(list.capacity(), 3);
  EXPECT_TRUE(list.growCapacity(1));
  EXPECT_EQ(list.capacity(), 3);
}

TEST(VondArrayList, FindsAndRemovesWithinItsBounds) {
  VondArrayListT<Entry> list;
  for (int i = 1; i <= 5; ++i) list.add({kKey, i});
  EXPECT_FALSE(list.removeAt(5) || list.removeAt(-1) || list.remove({"b", 1}));
  EXPECT_TRUE(list.removeAt(0) && list.removeAt(1, 2) && list.removeAt(0, 0));
  EXPECT_THAT(valuesOf(list), ElementsAre(2, 5));
  EXPECT_EQ(list.indexOf({kKey, 5}), 1);
  EXPECT_FALSE(list.contains({kKey, 4}));
  Entry out{"before", 7};
  EXPECT_FALSE(list.get(2, &out) || list.get(-1, &out) || list.get(0, nullptr));
  EXPECT_EQ(out.value, 7);
  EXPECT_TRUE(list.get(1, &out) && out == list.get(1));
  EXPECT_TRUE(list.get(1, &list.get(1)) && list.get(1) == out);
}

TEST(VondArrayList, AddsAnEntryOfItsOwn) {
  VondArrayListT<Entry> list;
  list.add({kKey, 1});
  EXPECT_TRUE(list.add(list.get(0)) && list.get(1) == list.get(0));
}

TEST(VondArrayMap, PutNeverOverwritesAndKeepsTheOrder) {
  VondArrayMapT<VondString, int> map;
  VondArrayListT<VondString> keys;
  VondArrayListT<int> values;
  EXPECT_TRUE(map.getKeys(keys) && keys.isEmpty());
  EXPECT_TRUE(map.put("a", 1) && !map.put("a", 2) && map.put("A", 3));
  EXPECT_TRUE(map.getKeys(keys) && map.getValues(values));
  EXPECT_TRUE(keys.indexOf("a") == 0 && keys.indexOf("A") == 1 && values.indexOf(3) == 1);
  EXPECT_EQ(map.get(VondString("a")), 1);
  EXPECT_TRUE(map.containsValue(3) && !map.containsValue(2));
  const int other = 9;
  const int* value = &other;
  EXPECT_TRUE(!map.get("b", value) && value == &other);
  EXPECT_TRUE(map.get("A", value) && *value == 3);
  EXPECT_TRUE(map.remove("a") && !map.remove("a") && map.size() == 1);
  map.clear();
  EXPECT_TRUE(map.size() == 0 && map.put("A", 4));
}

}  // namespace
