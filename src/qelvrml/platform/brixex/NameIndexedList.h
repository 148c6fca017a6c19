#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>

#include "qelvrml/platform/brixex/CKelList.h"

namespace qelvrml {

/// A list of bare pointers with two indexes beside it: words are found by a key and elements by their word, both
/// without a walk. Whoever changes the list through the operations of CBasicList keeps the indexes right. A copy is
/// empty.
class NameIndexedList : public CKelList {
public:
  /// Gives the key of a word; nothing for a word that no search finds.
  using KeyFunction = std::optional<std::uint32_t> (*)(void* data);

  explicit NameIndexedList(KeyFunction keyOf) : KeyOf(keyOf) {}
  NameIndexedList(const NameIndexedList& other) : CKelList(), KeyOf(other.KeyOf) {}
  NameIndexedList& operator=(const NameIndexedList& other);
  ~NameIndexedList() override = default;

  /// The first word in the list with that key, or null.
  void* FindKey(std::uint32_t key);
  /// Lets searches forget a word that stays in the list; to be called before its key changes.
  void ForgetKey(void* data);

  CBasicListElement* FindElement(void* value) override;
  bool AddTail(void* data) override;
  bool AddHead(void* data) override;
  bool InsertAfter(CBasicListElement* element, void* data) override;
  bool Remove(void* value) override;
  void* RemoveHead() override;
  bool RemoveAll() override;
  bool RemoveValue(void* value) override;

private:
  /// The first element of a key or word, and how many there are.
  struct Place {
    CBasicListElement* First = nullptr;
    int Count = 0;
  };

  void Rebuild();
  void Enter(CBasicListElement* element);
  void ForgetElement(const CBasicListElement* element);
  template <class Map, class Key>
  void Leave(Map& index, const Key& key, const CBasicListElement* element);

  KeyFunction KeyOf;
  std::unordered_map<std::uint32_t, Place> ByKey;
  std::unordered_map<void*, Place> ByData;  ///< made when a word is first looked for
  bool IndexesWords = false;
  bool OutOfDate = false;  ///< the order of equal keys or words isn't known; the next search makes the indexes anew
};

}  // namespace qelvrml
