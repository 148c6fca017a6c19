#pragma once

#include "qelvrml/dictionary/CVRMLDictionaryEntry.h"
#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brixex/CKelList.h"

/// The entry of a separator: what was recorded directly inside it, in the order of the file. A replay opens a scope,
/// with a group of the entry's name, replays the children, and closes the scope.
class QELVRML_EXPORT CVRMLDictionarySeparator : public CVRMLDictionaryEntry {
public:
  CVRMLDictionarySeparator() { CVRMLDictionarySeparator::Initialize(); }
  CVRMLDictionarySeparator(const CVRMLDictionarySeparator&) = delete;
  CVRMLDictionarySeparator& operator=(const CVRMLDictionarySeparator&) = delete;
  /// The children stay in the dictionary.
  ~CVRMLDictionarySeparator() override { Children.RemoveAll(); }

  void Initialize() override { SetType(DictionaryEntrySeparator); }

  /// The children; not owned. They enter through AddChild only.
  CKelList& GetChildren() { return Children; }
  /// Adds a child behind the others, or removes its first place among them; the entry itself isn't touched. False for
  /// null; AddChild also without memory for its place, RemoveChild for an entry that isn't a child. Both take constant
  /// time, however many children there are.
  /// @{
  bool AddChild(CVRMLDictionaryEntry* child);
  bool RemoveChild(CVRMLDictionaryEntry* child);
  /// @}
  /// Empties the children without looking at them: for those that go as well, or are gone.
  void LetGoOfChildren() { Children.LetGo(); }

private:
  /// A list whose entries know their places in it, however they leave it.
  class ChildList : public CKelList {
  public:
    ChildList() = default;
    ChildList(const ChildList&) = delete;
    ChildList& operator=(const ChildList&) = delete;
    ~ChildList() override = default;

    void LetGo() { CKelList::RemoveAll(); }
    void RemoveAt(CBasicListElement* place);
    bool Remove(void* value) override;
    void* RemoveHead() override;
    bool RemoveAll() override;
  };

  ChildList Children;
};
