#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <new>
#include <numeric>
#include <vector>

#include "qelvrml/foundation/CBasicList.h"
#include "qelvrml/foundation/CBasicListIterator.h"
#include "qelvrml/foundation/CBasicMap.h"
#include "qelvrml/platform/brix/brixFloatPoint.h"
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
  EXPECT_FALSE(list.AddTail(nullptr));
  EXPECT_TRUE(list.AddTail(Word(2)));
  EXPECT_TRUE(list.AddHead(Word(1)));
  EXPECT_TRUE(list.AddTail(Word(4)));
  EXPECT_TRUE(list.InsertAfter(list.FindElement(Word(2)), Word(3)));
  EXPECT_FALSE(list.InsertAfter(nullptr, Word(9)));
  EXPECT_EQ(Words(list), (Expected{1, 2, 3, 4}));
  EXPECT_EQ(list.RemoveHead(), Word(1));
  EXPECT_FALSE(list.Remove(Word(7)));
  EXPECT_TRUE(list.Remove(Word(4)));
  EXPECT_EQ(list.GetTail(), Word(3));
  EXPECT_TRUE(list.RemoveAll());
  EXPECT_FALSE(list.RemoveAll());
  EXPECT_EQ(list.RemoveHead(), nullptr);
}

// The cache of positions is dropped by every change.
TEST(List, FindsByPositionAfterEveryChange) {
  CBasicList list;
  Fill(list, 3);
  EXPECT_EQ(list.GetAt(2), Word(3));
  EXPECT_EQ(list.GetAt(3), nullptr);
  EXPECT_EQ(list.GetAt(-1), nullptr);
  list.AddHead(Word(9));
  EXPECT_EQ(list.GetAt(0), Word(9));
  list.Remove(Word(1));
  EXPECT_EQ(list.GetAt(1), Word(2));
  list.InsertAfter(list.GetElementAt(1), Word(8));
  EXPECT_EQ(list.GetAt(2), Word(8));
}

TEST(List, IteratorsGoBackToTheFirstAfterARemoval) {
  CBasicList list;
  Fill(list, 4);
  CBasicListIterator third(&list);
  CBasicListIterator other(&list);
  EXPECT_EQ(third.GetAt(2), Word(3));
  EXPECT_TRUE(other.GoToLast());
  EXPECT_EQ(list.GetIteratorCount(), 2);
  EXPECT_TRUE(third.Remove(Word(3)));
  EXPECT_EQ(third.GetData(), Word(1));
  EXPECT_EQ(other.GetData(), Word(1));
  other.GoToLast();
  other.Next();
  EXPECT_EQ(other.GetData(), nullptr);
  other.Next();
  EXPECT_EQ(other.GetData(), Word(1)) << "from behind the end to the first";
  other.Previous();
  other.Previous();
  EXPECT_EQ(other.GetData(), Word(4)) << "and backwards to the last";
  list.RemoveAll();
  EXPECT_EQ(third.GetData(), nullptr);
}

/// Detaches itself, and keeps its place, when it is told to go to the first element.
class ShyIterator : public CBasicListIterator {
public:
  using CBasicListIterator::CBasicListIterator;
  bool GoToFirst() override {
    ++Told;
    return GetList() && GetList()->DetachIterator(this);
  }
  int Told = 0;
};

TEST(List, IteratorsMayDetachThemselvesWhenTold) {
  CBasicList list;
  CBasicList other;
  Fill(list, 3);
  ShyIterator shy(&list);
  CBasicListIterator missed(&list);
  CBasicListIterator last(&list);
  CBasicListIterator elsewhere(&list);
  shy.GetAt(1);
  missed.GetAt(1);
  last.GetAt(1);
  elsewhere.GetAt(2);
  EXPECT_TRUE(list.Remove(Word(2)));
  EXPECT_EQ(shy.Told, 1);
  EXPECT_EQ(list.GetIteratorCount(), 3);
  EXPECT_EQ(shy.GetData(), nullptr);
  EXPECT_EQ(missed.GetData(), nullptr) << "the walk began anew with it and went on";
  EXPECT_EQ(last.GetData(), Word(1));
  EXPECT_EQ(elsewhere.GetData(), Word(1));
  shy.SetList(&other);
  EXPECT_EQ(shy.Told, 2) << "on the way to its new list";
  EXPECT_EQ(other.GetIteratorCount(), 0);
  list.RemoveAll();
  EXPECT_EQ(elsewhere.GetData(), nullptr);
}

TEST(List, IteratorsMayOutliveTheirListWhenUnused) {
  auto list = std::make_unique<CBasicList>();
  CBasicListIterator iterator(list.get());
  list.reset();
  EXPECT_EQ(iterator.GetList(), nullptr);
  EXPECT_EQ(iterator.GetData(), nullptr);
  EXPECT_FALSE(iterator.AddTail(Word(1)));
}

TEST(List, OwnsValuesThroughAHandler) {
  CBasicList list;
  int value = 5;
  EXPECT_FALSE(list.AddTailValue(&value)) << "no handler";
  list.SetIntegerElements();
  EXPECT_TRUE(list.AddTailValue(&value));
  value = 6;
  EXPECT_TRUE(list.AddTailAny(&value));
  EXPECT_FALSE(list.AddTailValue(nullptr));
  EXPECT_EQ(*static_cast<int*>(list.GetHead()), 5) << "a copy";
  EXPECT_TRUE(list.RemoveValue(&value));
  EXPECT_EQ(list.GetCount(), 1);
  EXPECT_FALSE(list.RemoveValue(&value));
  list.SetStringElements();
  EXPECT_EQ(list.GetCount(), 0) << "another handler empties the list";
  CBasicString text("a text that is too long to stand in the string object itself");
  list.AddHeadValue(&text);
  EXPECT_TRUE(list.FindElement(&text));
  EXPECT_TRUE(list.RemoveAllValues());
  EXPECT_FALSE(list.RemoveAllValues());
}

TEST(List, HandlersRefuseWhatTheyCannotDo) {
  CBasicList list;
  list.SetIntegerElements();
  const CBasicElementHandler handler = list.GetElementHandler();
  void* slot = nullptr;
  EXPECT_FALSE(handler(0, nullptr, nullptr));
  EXPECT_FALSE(handler(4, &slot, nullptr));
  ASSERT_TRUE(handler(0, &slot, nullptr));
  EXPECT_FALSE(handler(2, &slot, nullptr));
  EXPECT_FALSE(handler(3, &slot, nullptr));
  EXPECT_TRUE(handler(1, &slot, nullptr));
  EXPECT_EQ(slot, nullptr);
}

// A copy that runs out of memory half way is destroyed.
TEST(List, AddsNoValueThatCannotBeCopied) {
  static int values = 0;
  CBasicList list;
  list.SetElementHandler([](int operation, void** slot, void* /*value*/) {
    if (operation == 2) throw std::bad_alloc();
    values += operation == 0 ? 1 : -1;
    *slot = &values;
    return true;
  });
  EXPECT_FALSE(list.AddTailValue(&list));
  EXPECT_FALSE(list.AddHeadValue(&list));
  EXPECT_EQ(values, 0);
  EXPECT_EQ(list.GetCount(), 0);
}

// A copy has values of its own, but never the bare pointers of another list.
TEST(List, CopiesValuesButNotPointers) {
  CKelList points;
  points.SetListTypePoint();
  brixFloatPoint point(1, 2, 3);
  points.AddTailValue(&point);
  CKelList copy(points);
  ASSERT_EQ(copy.GetCount(), 1);
  EXPECT_NE(copy.GetHead(), points.GetHead());
  EXPECT_EQ(static_cast<brixFloatPoint*>(copy.GetHead())->z, 3.0F);
  points.RemoveAllValues();
  copy.RemoveAllValues();

  CKelList pointers;
  Fill(pointers, 2);
  EXPECT_EQ(CKelList(pointers).GetCount(), 0);
}

TEST(Map, FindsByTheYoungestKey) {
  CBasicMap map;
  EXPECT_EQ(map.FindHash(1), nullptr);
  EXPECT_TRUE(map.AddHash(1, Word(10)));
  EXPECT_TRUE(map.AddHash(1, Word(11)));
  EXPECT_TRUE(map.AddHash(-10010, Word(12))) << "the same bucket: its magnitude is one more than the bucket count";
  EXPECT_EQ(map.FindHash(1), Word(11));
  EXPECT_EQ(map.FindHash(-10010), Word(12));
  EXPECT_TRUE(map.RemoveHash(1));
  EXPECT_EQ(map.FindHash(1), Word(10));
  EXPECT_FALSE(map.RemoveHash(2));
  EXPECT_EQ(Words(map), (Expected{10, 12}));
}

// Of equal words and values, the one goes that the key leads to.
TEST(Map, RemovesTheElementOfTheKey) {
  CBasicMap map;
  for (const int key : {1, 2, 3}) map.AddHash(key, Word(key == 2 ? 9 : 8));
  EXPECT_TRUE(map.RemoveHash(3));
  EXPECT_EQ(Words(map), (Expected{8, 9}));
  EXPECT_EQ(map.FindHash(1), Word(8));

  CBasicMap values;
  values.SetDoubleElements();
  double numbers[] = {1, 2, 1, std::numeric_limits<double>::quiet_NaN()};
  for (int key = 0; key < 4; ++key) values.AddHash(key, &numbers[key]);
  EXPECT_TRUE(values.RemoveHash(2));
  EXPECT_TRUE(values.RemoveHash(3)) << "it isn't equal to itself";
  EXPECT_TRUE(values.RemoveValue(&numbers[1]));
  EXPECT_EQ(values.FindHash(1), nullptr);
  EXPECT_EQ(values.FindHash(0), values.GetHead());
  EXPECT_TRUE(values.RemoveHash(0));
  EXPECT_EQ(values.GetCount(), 0);
}

TEST(Map, TakesKeysInAnyCaseOnRequest) {
  CBasicMap map;
  map.AddString("Name", Word(1), true);
  map.AddString("Exact", Word(2), false);
  EXPECT_EQ(map.FindString("nAME", true), Word(1));
  EXPECT_EQ(map.FindString("exact", false), nullptr);
  EXPECT_EQ(map.FindString("Exact", false), Word(2));
  EXPECT_TRUE(map.RemoveString("NAME", true));
  EXPECT_EQ(map.FindString("name", true), nullptr);
}

// Whatever way an element goes, no key leads to it any more.
TEST(Map, ForgetsElementsThatTheListRemoves) {
  CBasicMap map;
  map.SetBucketCount(3);
  for (int key = 1; key <= 4; ++key) map.AddHash(key, Word(static_cast<std::uintptr_t>(key)));
  map.RemoveHead();
  map.Remove(Word(3));
  EXPECT_EQ(map.FindHash(1), nullptr);
  EXPECT_EQ(map.FindHash(3), nullptr);
  EXPECT_EQ(map.FindHash(4), Word(4));
  map.SetBucketCount(1000000);  // has no effect any more
  EXPECT_EQ(map.FindHash(4), Word(4));
  map.RemoveAll();
  EXPECT_EQ(map.FindHash(4), nullptr);
}

// The place of a virtual operation among those of its class, as the ABI has it in a pointer to a member.
template <class Operation>
std::ptrdiff_t Slot(Operation operation) {
  std::ptrdiff_t offset = 0;
  std::memcpy(&offset, &operation, sizeof offset);
  return offset / static_cast<std::ptrdiff_t>(sizeof(void*));
}

std::vector<std::ptrdiff_t> From(std::ptrdiff_t first, std::size_t count) {
  std::vector<std::ptrdiff_t> slots(count);
  std::iota(slots.begin(), slots.end(), first);
  return slots;
}

// Hosts that derive from these classes, built elsewhere, share the order of their virtual operations. The destructor
// takes the first two places.
TEST(List, VirtualOperationsKeepTheirOrder) {
  using L = CBasicList;
  const std::vector list = {Slot(&L::GetAt),
                            Slot(&L::GetCount),
                            Slot(&L::GoToFirst),
                            Slot(&L::GetTailElement),
                            Slot(&L::GoToNext),
                            Slot(&L::GoToPrevious),
                            Slot(&L::FindElement),
                            Slot(&L::AddTail),
                            Slot(&L::AddHead),
                            Slot(&L::InsertAfter),
                            Slot(&L::Remove),
                            Slot(&L::RemoveHead),
                            Slot(&L::RemoveAll),
                            Slot(&L::GetHead),
                            Slot(&L::GetTail),
                            Slot(&L::GetCurrentElement),
                            Slot(&L::GetElementAt),
                            Slot(&L::GetIteratorCount),
                            Slot(&L::GetElementHandler),
                            Slot(&L::SetElementHandler),
                            Slot(&L::AddTailValue),
                            Slot(&L::AddHeadValue),
                            Slot(&L::RemoveValue),
                            Slot(&L::RemoveAllValues),
                            Slot(&L::AddTailAny),
                            Slot(&L::RemoveAny),
                            Slot(&L::SetIntegerElements),
                            Slot(&L::SetDoubleElements),
                            Slot(&L::SetStringElements),
                            Slot(&L::AttachIterator),
                            Slot(&L::DetachIterator),
                            Slot(&L::DetachAllIterators),
                            Slot(&L::SetCurrentElement)};
  EXPECT_EQ(list, From(2, list.size()));

  using M = CBasicMap;
  const std::vector map = {Slot(&M::AddString),      Slot(&M::AddHash),       Slot(&M::RemoveString),
                           Slot(&M::RemoveHash),     Slot(&M::FindString),    Slot(&M::FindHash),
                           Slot(&M::GetBucketCount), Slot(&M::SetBucketCount)};
  EXPECT_EQ(map, From(list.back() + 1, map.size()));

  using I = CBasicListIterator;
  const std::vector iterator = {Slot(&I::GetList),
                                Slot(&I::SetList),
                                Slot(&I::GetAt),
                                Slot<void (I::*)(int)>(&I::Next),
                                Slot<void (I::*)()>(&I::Next),
                                Slot<void (I::*)(int)>(&I::Previous),
                                Slot<void (I::*)()>(&I::Previous),
                                Slot(&I::GetData),
                                Slot<I& (I::*)(I&)>(&I::operator=),
                                Slot(&I::GetCount),
                                Slot(&I::GoToFirst),
                                Slot(&I::GoToLast),
                                Slot(&I::AddTail),
                                Slot(&I::AddHead),
                                Slot(&I::InsertAfterCurrent),
                                Slot(&I::Remove),
                                Slot(&I::RemoveHead),
                                Slot(&I::RemoveAll),
                                Slot(&I::AddTailValue),
                                Slot(&I::AddHeadValue),
                                Slot(&I::RemoveValue),
                                Slot(&I::RemoveAllValues),
                                Slot(&I::GetCurrentElement)};
  EXPECT_EQ(iterator, From(2, iterator.size()));
}

}  // namespace
