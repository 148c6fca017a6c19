#include "qelvrml/foundation/CBasicMap.h"

#include <cstddef>
#include <limits>
#include <new>

namespace {

int KeyOf(CBasicString& text, bool upperCase) {
  if (upperCase) text.MakeUpper();
  return static_cast<int>(text.GetHash());
}

unsigned Magnitude(int key) { return key < 0 ? 0U - static_cast<unsigned>(key) : static_cast<unsigned>(key); }

}  // namespace

CBasicMap::~CBasicMap() { ClearBuckets(); }

bool CBasicMap::Remove(void* value) {
  CBasicListElement* element = FindElement(value);
  if (!element) return false;
  ForgetElement(element);
  RemoveElement(element);
  return true;
}

void* CBasicMap::RemoveHead() {
  ForgetElement(GetHeadElement());
  return CBasicList::RemoveHead();
}

bool CBasicMap::RemoveValue(void* value) {
  const CBasicElementHandler handler = GetElementHandler();
  CBasicListElement* element = handler ? FindElement(value) : nullptr;
  if (!element || !handler(1, &element->Data, nullptr)) return false;
  ForgetElement(element);
  RemoveElement(element);
  return true;
}

bool CBasicMap::RemoveAll() {
  ClearBuckets();
  return CBasicList::RemoveAll();
}

bool CBasicMap::RemoveAllValues() {
  ClearBuckets();
  return CBasicList::RemoveAllValues();
}

bool CBasicMap::AddString(CBasicString key, void* data, bool upperCase) { return AddHash(KeyOf(key, upperCase), data); }

bool CBasicMap::AddHash(int key, void* data) {
  std::unique_ptr<CBasicMapElement> element(new (std::nothrow) CBasicMapElement(nullptr, nullptr, key));
  if (!element || !MakeBuckets() || !AddTailAny(data)) return false;
  CBasicMapElement** bucket = Bucket(key);
  element->Next = *bucket;
  element->ListElement = GetTailElement();
  *bucket = element.release();
  return true;
}

bool CBasicMap::RemoveString(CBasicString key, bool upperCase) { return RemoveHash(KeyOf(key, upperCase)); }

bool CBasicMap::RemoveHash(int key) {
  if (!Buckets) return false;
  CBasicMapElement** link = Bucket(key);
  while (*link && (*link)->Key != key) link = &(*link)->Next;
  const std::unique_ptr<CBasicMapElement> element(*link);
  if (!element) return false;
  *link = element->Next;

  CBasicListElement* place = element->ListElement;
  if (FindElement(place->Data) == place) return RemoveAny(place->Data);
  if (const CBasicElementHandler handler = GetElementHandler()) handler(1, &place->Data, nullptr);
  RemoveElement(place);
  return true;
}

void* CBasicMap::FindString(CBasicString key, bool upperCase) { return FindHash(KeyOf(key, upperCase)); }

void* CBasicMap::FindHash(int key) {
  if (!Buckets) return nullptr;
  for (const CBasicMapElement* element = *Bucket(key); element; element = element->Next) {
    if (element->Key == key) return element->ListElement->Data;
  }
  return nullptr;
}

void CBasicMap::ForgetElement(const CBasicListElement* element) {
  for (int i = 0; i < AllocatedBuckets(); ++i) {
    for (CBasicMapElement** link = &Buckets[static_cast<std::size_t>(i)]; *link;) {
      CBasicMapElement* candidate = *link;
      if (candidate->ListElement == element) {
        *link = candidate->Next;
        delete candidate;
      } else {
        link = &candidate->Next;
      }
    }
  }
}

CBasicMapElement** CBasicMap::Bucket(int key) {
  return &Buckets[Magnitude(key) % static_cast<unsigned>(AllocatedBuckets())];
}

bool CBasicMap::MakeBuckets() {
  constexpr int ElementSize = sizeof(void*);
  if (Buckets) return true;
  if (BucketCount < 1 || BucketCount > std::numeric_limits<int>::max() / ElementSize) return false;
  Buckets.reset(new (std::nothrow) CBasicMapElement* [static_cast<std::size_t>(BucketCount)] {});
  if (!Buckets) return false;
  BucketsSize = BucketCount * ElementSize;
  return true;
}

void CBasicMap::ClearBuckets() {
  for (int i = 0; i < AllocatedBuckets(); ++i) {
    CBasicMapElement*& first = Buckets[static_cast<std::size_t>(i)];
    while (first) {
      CBasicMapElement* next = first->Next;
      delete first;
      first = next;
    }
  }
}
