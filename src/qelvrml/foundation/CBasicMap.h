#pragma once

#include <memory>

#include "qelvrml/foundation/CBasicList.h"
#include "qelvrml/foundation/CBasicMapElement.h"
#include "qelvrml/foundation/CBasicString.h"

/// A list whose elements can also be found by a key, through a hash table with chains.
///
/// Equal keys aren't refused: the youngest is found first. Two texts with the same hash are one key. A search by key is
/// quick; the removal of an element costs a walk over the table.
class QELVRML_EXPORT CBasicMap : public CBasicList {
public:
  CBasicMap() = default;
  CBasicMap(const CBasicMap&) = delete;
  CBasicMap& operator=(const CBasicMap&) = delete;
  ~CBasicMap() override;

  bool Remove(void* value) override;
  void* RemoveHead() override;
  bool RemoveAll() override;
  bool RemoveValue(void* value) override;
  bool RemoveAllValues() override;

  /// The key is the hash of `key`, with `upperCase` of its upper-case form.
  virtual bool AddString(CBasicString key, void* data, bool upperCase);
  virtual bool AddHash(int key, void* data);
  virtual bool RemoveString(CBasicString key, bool upperCase);
  /// Removes the very element that the key leads to, and destroys its value if the list has a handler.
  virtual bool RemoveHash(int key);
  virtual void* FindString(CBasicString key, bool upperCase);
  virtual void* FindHash(int key);
  virtual int GetBucketCount() { return BucketCount; }
  /// Takes effect when the table is made, which is at the first insertion.
  virtual void SetBucketCount(int count) { BucketCount = count; }

private:
  void ForgetElement(const CBasicListElement* element);
  CBasicMapElement** Bucket(int key);
  bool MakeBuckets();
  void ClearBuckets();
  int AllocatedBuckets() const { return BucketsSize / static_cast<int>(sizeof(void*)); }

  static constexpr int DefaultBucketCount = 10009;  // a prime

  std::unique_ptr<CBasicMapElement*[]> Buckets;  ///< heads of the chains, youngest element first
  int BucketsSize = 0;                           ///< in bytes
  int BucketCount = DefaultBucketCount;
};
