#include <gtest/gtest.h>

#include "qelvrml/platform/brixex/NameIndexedList.h"

namespace {

struct Item {
  int Key;  // negative: none
};

std::optional<std::uint32_t> KeyOf(void* data) {
  const int key = static_cast<Item*>(data)->Key;
  return key < 0 ? std::nullopt : std::optional<std::uint32_t>(key);
}

class NameIndexedListTest : public testing::Test {
protected:
  qelvrml::NameIndexedList List{KeyOf};
  Item One{1};
  Item Two{2};
  Item OtherTwo{2};
  Item Nameless{-1};
};

TEST_F(NameIndexedListTest, TheFirstOfAKeyIsFound) {
  for (Item* item : {&One, &Nameless, &Two, &OtherTwo}) ASSERT_TRUE(List.AddTail(item));
  EXPECT_EQ(List.FindKey(2), &Two);
  EXPECT_TRUE(!List.FindKey(3) && List.Remove(&Two));
  EXPECT_EQ(List.FindKey(2), &OtherTwo);
  EXPECT_TRUE(List.AddHead(&Two));
  EXPECT_EQ(List.FindKey(2), &Two) << "now it stands in front again";
  EXPECT_TRUE(List.InsertAfter(List.FindElement(&OtherTwo), &One) && List.Remove(&One));
  EXPECT_EQ(List.FindKey(1), &One) << "it was in the list twice";
  EXPECT_FALSE(List.AddTail(nullptr));
  EXPECT_EQ(List.RemoveHead(), &Two);
  EXPECT_EQ(List.FindKey(2), &OtherTwo);
}

TEST_F(NameIndexedListTest, KeysAreForgottenBeforeTheyChange) {
  List.AddTail(&One);
  List.ForgetKey(&One);
  One.Key = 7;
  EXPECT_FALSE(List.FindKey(1) || List.FindKey(7));
  EXPECT_EQ(List.RemoveHead(), &One);
  List.ForgetKey(&One);
  EXPECT_EQ(List.GetCount(), 0);
}

TEST_F(NameIndexedListTest, ManyChangesKeepTheIndexRight) {
  std::vector<Item> items(1000);
  for (int i = 0; i < 1000; ++i) items[static_cast<std::size_t>(i)].Key = i % 100;
  for (Item& item : items) List.AddTail(&item);
  for (std::size_t i = 0; i < 900; ++i) {
    EXPECT_EQ(List.FindKey(static_cast<std::uint32_t>(i % 100)), &items[i]);
    EXPECT_TRUE(List.Remove(&items[i]));
  }
  qelvrml::NameIndexedList copy(List);
  EXPECT_EQ(copy.GetCount(), 0);
  List.RemoveAll();
  EXPECT_EQ(List.FindKey(5), nullptr);
  List.AddTail(&items[5]);
  EXPECT_EQ(List.FindKey(5), &items[5]);
}

}  // namespace
