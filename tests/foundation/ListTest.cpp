#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <new>
#include <vector>

#include "qelvrml/foundation/CBasicList.h"
#include "qelvrml/foundation/CBasicListIterator.h"
#include "qelvrml/foundation/CBasicMap.h"
#include "qelvrml/platform/brix/brixFloatPoint.h"
#include "qelvrml/platform/brix/brixMaterial.h"
#include "qelvrml/platform/brix/brixVector.h"
#include "qelvrml/platform/brixex/CKelList.h"

namespace {

void* Word(std::uintptr_t value) { return reinterpret_cast<void*>(value); }

std::vector<std::uintptr_t> Words(CBasicList& list) {
  std::vector<std::uintptr_t> words;
  CBasicListIterator iterator(&list);
  for (; iterator.GetData(); iterator.Next(0)) words.push_back(reinterpret_cast<std::uintptr_t>(iterator.GetData()));
  return words;
}

using Expected = std::vector<std::uintptr_t>;

void Fill(CBasicList& list, std::uintptr_t count) {
  for (std::uintptr_t i = 1; i <= count; ++i) list.AddTail(Word(i));
}

TEST(List, KeepsTheOrderOfInsertion) {
  CBasicList list;
  EXPECT_FALSE(list.AddTail(nullptr) || list.AddHead(nullptr) || list.InsertAfter(nullptr, Word(9)));
  EXPECT_TRUE(list.AddTail(Word(2)) && list.AddHead(Word(1)) && list.AddTail(Word(4)));
  EXPECT_TRUE(list.InsertAfter(list.FindElement(Word(2)), Word(3)));
  EXPECT_EQ(Words(list), (Expected{1, 2, 3, 4}));
  EXPECT_EQ(list.RemoveHead(), Word(1));
  EXPECT_TRUE(!list.Remove(Word(7)) && list.Remove(Word(4)));
  EXPECT_EQ(list.GetTail(), Word(3));
  EXPECT_TRUE(list.RemoveAll() && !list.RemoveAll());
  EXPECT_EQ(list.RemoveHead(), nullptr);
}

// The cache of positions is dropped by every change; making it leaves the list's own cursor behind the end.
TEST(List, FindsByPositionAfterEveryChange) {
  CBasicList list;
  Fill(list, 3);
  EXPECT_EQ(list.GetAt(2), Word(3));
  EXPECT_TRUE(!list.GetAt(3) && !list.GetAt(-1));
  list.AddHead(Word(9));
  EXPECT_EQ(list.GetAt(0), Word(9));
  list.Remove(Word(1));
  EXPECT_EQ(list.GetCurrentElement()->Data, Word(9)) << "the cursor has moved back";
  EXPECT_EQ(list.GetElementAt(1)->Data, Word(2));
  EXPECT_FALSE(list.GetCurrentElement() || list.GoToNext() || list.GoToPrevious());
  list.InsertAfter(list.GetElementAt(1), Word(8));
  EXPECT_EQ(list.GetAt(2), Word(8));
  EXPECT_EQ(list.GoToPrevious()->Data, Word(2));
}

TEST(List, IteratorsGoBackToTheFirstAfterARemoval) {
  CBasicList list;
  Fill(list, 4);
  CBasicListIterator third(&list);
  CBasicListIterator other(nullptr);
  EXPECT_EQ(third.GetAt(2), Word(3));
  other = third;
  EXPECT_EQ(other.GetData(), Word(3));
  EXPECT_EQ(list.GetIteratorCount(), 2);
  EXPECT_FALSE(third.RemoveValue(Word(3))) << "no handler";
  EXPECT_TRUE(third.GetData() == Word(3) && third.Remove(Word(3)));
  EXPECT_TRUE(third.GetData() == Word(1) && other.GetData() == Word(1));
  EXPECT_TRUE(other.InsertAfterCurrent(Word(5)) && other.GoToLast());
  other.Next();
  EXPECT_EQ(other.GetData(), nullptr);
  other.Next();
  EXPECT_EQ(other.GetData(), Word(1)) << "from behind the end to the first";
  other.Previous();
  other.Previous();
  EXPECT_EQ(other.GetData(), Word(4)) << "and backwards to the last";
  EXPECT_EQ(Words(list), (Expected{1, 5, 2, 4}));
  list.RemoveAll();
  EXPECT_EQ(third.GetData(), nullptr);
}

/// Detaches itself, and keeps its place, when it is told to go to the first element.
struct ShyIterator : CBasicListIterator {
  using CBasicListIterator::CBasicListIterator;
  bool GoToFirst() override { return GetList() && GetList()->DetachIterator(this); }
};

TEST(List, IteratorsMayDetachThemselvesWhenTold) {
  CBasicList list;
  CBasicList other;
  Fill(list, 3);
  ShyIterator shy(&list);
  CBasicListIterator missed(&list);
  CBasicListIterator last(&list);
  for (CBasicListIterator* iterator : std::initializer_list<CBasicListIterator*>{&shy, &missed, &last})
    iterator->GetAt(1);
  EXPECT_TRUE(list.Remove(Word(2)));
  EXPECT_EQ(list.GetIteratorCount(), 2);
  EXPECT_FALSE(shy.GetData() || missed.GetData()) << "the walk began anew with the missed one and went on";
  EXPECT_EQ(last.GetData(), Word(1));
  shy.SetList(&other);
  EXPECT_EQ(other.GetIteratorCount(), 0) << "it is told on the way to another list";
}

TEST(List, OwnsValuesThroughAHandler) {
  CBasicList list;
  int value = 5;
  EXPECT_FALSE(list.AddTailValue(&value)) << "no handler";
  list.SetIntegerElements();
  EXPECT_TRUE(list.AddTailValue(&value));
  value = 6;
  EXPECT_TRUE(list.AddTailAny(&value) && !list.AddTailValue(nullptr));
  EXPECT_EQ(*static_cast<int*>(list.GetHead()), 5) << "a copy";
  EXPECT_TRUE(list.RemoveValue(&value) && !list.RemoveValue(&value));
  EXPECT_EQ(list.GetCount(), 1);
  list.SetStringElements();
  EXPECT_EQ(list.GetCount(), 0) << "another handler empties the list";
  CBasicString text("a text that is too long to stand in the string object itself");
  EXPECT_TRUE(list.AddHeadValue(&text) && list.FindElement(&text));
  EXPECT_TRUE(list.RemoveAllValues() && !list.RemoveAllValues());
}

// A copy that runs out of memory half way is destroyed.
TEST(List, AddsNoValueThatCannotBeCopied) {
  CBasicList list;
  static int values = 0;
  list.SetElementHandler([](int operation, void** slot, void* /*value*/) {
    if (operation == 2) throw std::bad_alloc();
    values += operation == 0 ? 1 : -1;
    *slot = &values;
    return true;
  });
  EXPECT_FALSE(list.AddTailValue(&list) || list.AddHeadValue(&list) || values != 0);
}

// A copy has values of its own, but never the bare pointers of another list.
TEST(List, CopiesValuesButNotPointers) {
  CKelList points;
  points.SetListTypePoint();
  brixFloatPoint point(1, 2, 3);
  points.AddTailValue(&point);
  points.GoToFirst();
  CKelList copy(points);
  EXPECT_EQ(points.GetCurrentElement()->Data, points.GetHead()) << "the cursor stays";
  ASSERT_EQ(copy.GetCount(), 1);
  EXPECT_NE(copy.GetHead(), points.GetHead());
  EXPECT_EQ(static_cast<brixFloatPoint*>(copy.GetHead())->z, 3.0F);
  points.RemoveAllValues();
  copy.RemoveAllValues();

  CKelList pointers;
  Fill(pointers, 2);
  EXPECT_EQ(CKelList(pointers).GetCount(), 0);
}

template <class Value>
void ExpectFoundAmong(void (CKelList::*setType)(), std::vector<Value> others) {
  CKelList list;
  (list.*setType)();
  Value value;
  EXPECT_TRUE(list.AddTailValue(&value));
  for (Value& other : others) EXPECT_FALSE(list.FindElement(&other));
  EXPECT_TRUE(list.RemoveValue(&value));
}

TEST(List, FindsTheValueThatIsTheSameInAllItsParts) {
  ExpectFoundAmong<brixFloatPoint>(&CKelList::SetListTypePoint, {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}});
  ExpectFoundAmong<brixVector>(&CKelList::SetListTypeVector, {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}});
  ExpectFoundAmong<brix2DFloatPoint>(&CKelList::SetListType2DPoint, {{1, 0}, {0, 1}});
  ExpectFoundAmong<brixChroma>(&CKelList::SetListTypeColor, {{1, 0, 0, 1}, {0, 1, 0, 1}, {0, 0, 1, 1}, {0, 0, 0, 0}});
}

TEST(Map, FindsByTheYoungestKey) {
  CBasicMap map;
  EXPECT_FALSE(map.FindHash(1) || map.RemoveHash(1));
  EXPECT_TRUE(map.AddHash(1, Word(10)) && map.AddHash(1, Word(11)));
  EXPECT_TRUE(map.AddHash(-10010, Word(12))) << "the same bucket: its magnitude is one more than the bucket count";
  EXPECT_EQ(map.FindHash(1), Word(11));
  EXPECT_EQ(map.FindHash(-10010), Word(12));
  EXPECT_TRUE(map.RemoveHash(1) && !map.RemoveHash(2));
  EXPECT_EQ(map.FindHash(1), Word(10));
  EXPECT_EQ(Words(map), (Expected{10, 12}));
}

// Of equal words and values, the one goes that the key leads to.
TEST(Map, RemovesTheElementOfTheKey) {
  CBasicMap map;
  for (const int key : {1, 2, 3}) map.AddHash(key, Word(key == 2 ? 9 : 8));
  EXPECT_TRUE(map.RemoveHash(3));
  EXPECT_EQ(Words(map), (Expected{8, 9}));

  CBasicMap values;
  values.SetDoubleElements();
  double numbers[] = {1, 2, 1, std::numeric_limits<double>::quiet_NaN()};
  for (int key = 0; key < 4; ++key) values.AddHash(key, &numbers[key]);
  EXPECT_TRUE(values.RemoveHash(2));
  EXPECT_TRUE(values.RemoveHash(3)) << "it isn't equal to itself";
  EXPECT_TRUE(values.RemoveValue(&numbers[1]) && !values.FindHash(1));
  EXPECT_EQ(values.FindHash(0), values.GetHead());
  EXPECT_TRUE(values.RemoveHash(0) && values.GetCount() == 0);
}

TEST(Map, TakesKeysInAnyCaseOnRequest) {
  CBasicMap map;
  map.AddString("Name", Word(1), true);
  map.AddString("Exact", Word(2), false);
  EXPECT_EQ(map.FindString("nAME", true), Word(1));
  EXPECT_EQ(map.FindString("Exact", false), Word(2));
  EXPECT_FALSE(map.FindString("exact", false));
  EXPECT_TRUE(map.RemoveString("NAME", true) && !map.FindString("name", true));
}

// Whatever way an element goes, no key leads to it any more.
TEST(Map, ForgetsElementsThatTheListRemoves) {
  CBasicMap map;
  map.SetBucketCount(3);
  for (int key = 1; key <= 4; ++key) map.AddHash(key, Word(static_cast<std::uintptr_t>(key)));
  EXPECT_TRUE(map.RemoveHead() && map.Remove(Word(3)));
  EXPECT_FALSE(map.FindHash(1) || map.FindHash(3));
  map.SetBucketCount(1000000);  // has no effect on a table that is made
  EXPECT_EQ(map.FindHash(4), Word(4));
  EXPECT_TRUE(map.RemoveAll() && !map.FindHash(4));
}

// Whether virtual operations stand one behind the other among those of their class, as the ABI has it in pointers to
// members.
template <class... Operations>
bool StandInOrder(std::ptrdiff_t place, Operations... operations) {
  const auto placeOf = [](auto operation) {
    std::ptrdiff_t offset = 0;
    std::memcpy(&offset, &operation, sizeof offset);
    return offset / static_cast<std::ptrdiff_t>(sizeof(void*));
  };
  return ((placeOf(operations) == place++) && ...);
}

// Hosts that derive from these classes, built elsewhere, share the order. The destructor takes the first two places.
TEST(List, VirtualOperationsKeepTheirOrder) {
  using L = CBasicList;
  EXPECT_TRUE(StandInOrder(2, &L::GetAt, &L::GetCount, &L::GoToFirst, &L::GetTailElement, &L::GoToNext,
                           &L::GoToPrevious, &L::FindElement, &L::AddTail, &L::AddHead, &L::InsertAfter, &L::Remove,
                           &L::RemoveHead, &L::RemoveAll, &L::GetHead, &L::GetTail, &L::GetCurrentElement,
                           &L::GetElementAt, &L::GetIteratorCount, &L::GetElementHandler, &L::SetElementHandler,
                           &L::AddTailValue, &L::AddHeadValue, &L::RemoveValue, &L::RemoveAllValues, &L::AddTailAny,
                           &L::RemoveAny, &L::SetIntegerElements, &L::SetDoubleElements, &L::SetStringElements,
                           &L::AttachIterator, &L::DetachIterator, &L::DetachAllIterators, &L::SetCurrentElement));
  using M = CBasicMap;
  EXPECT_TRUE(StandInOrder(35, &M::AddString, &M::AddHash, &M::RemoveString, &M::RemoveHash, &M::FindString,
                           &M::FindHash, &M::GetBucketCount, &M::SetBucketCount));
  using I = CBasicListIterator;
  using Step = void (I::*)(int);
  using PlainStep = void (I::*)();
  EXPECT_TRUE(StandInOrder(
      2, &I::GetList, &I::SetList, &I::GetAt, Step(&I::Next), PlainStep(&I::Next), Step(&I::Previous),
      PlainStep(&I::Previous), &I::GetData, static_cast<I& (I::*)(I&)>(&I::operator=), &I::GetCount, &I::GoToFirst,
      &I::GoToLast, &I::AddTail, &I::AddHead, &I::InsertAfterCurrent, &I::Remove, &I::RemoveHead, &I::RemoveAll,
      &I::AddTailValue, &I::AddHeadValue, &I::RemoveValue, &I::RemoveAllValues, &I::GetCurrentElement));
}

}  // namespace
