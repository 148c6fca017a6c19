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
  /// An empty map without an element handler; its table is made at the first insertion.
  CBasicMap() = default;
  CBasicMap(const CBasicMap&) = delete;
  CBasicMap& operator=(const CBasicMap&) = delete;
  ~CBasicMap() override;

  bool Remove(void* value) override;
  void* RemoveHead() override;
  bool RemoveAll() override;
  bool RemoveValue(void* value) override;
  bool RemoveAllValues() override;

  /// Adds at the end, as AddTailAny does, what the key then leads to. A text's key is its hash, with `upperCase` that
  /// of its upper-case form. False for null data, for a table of less than one bucket, and when there is no memory.
  /// @{
  virtual bool AddString(CBasicString key, void* data, bool upperCase);
  virtual bool AddHash(int key, void* data);
  /// @}
  /// Removes the very element that the key leads to, and destroys its value if the list has a handler. False if there
  /// is none.
  /// @{
  virtual bool RemoveString(CBasicString key, bool upperCase);
  virtual bool RemoveHash(int key);
  /// @}
  /// The word, or the address of the value, that was added last with that key; null if there is none. It stays the
  /// list's.
  /// @{
  virtual void* FindString(CBasicString key, bool upperCase);
  virtual void* FindHash(int key);
  /// @}
  /// Number of chains of the hash table, 10,009 at first. A change takes effect when the table is made, which is at the
  /// first insertion.
  /// @{
  virtual int GetBucketCount() { return BucketCount; }
  virtual void SetBucketCount(int count) { BucketCount = count; }
  /// @}

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
