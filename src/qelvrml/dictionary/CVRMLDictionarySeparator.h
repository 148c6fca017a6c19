#pragma once

#include "qelvrml/dictionary/CVRMLDictionaryEntry.h"
#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brixex/NameIndexedList.h"

/// The entry of a separator: what was recorded directly inside it, in the order of the file.
class QELVRML_EXPORT CVRMLDictionarySeparator : public CVRMLDictionaryEntry {
public:
  CVRMLDictionarySeparator() { CVRMLDictionarySeparator::Initialize(); }
  CVRMLDictionarySeparator(const CVRMLDictionarySeparator&) = delete;
  CVRMLDictionarySeparator& operator=(const CVRMLDictionarySeparator&) = delete;
  /// The children stay in the dictionary.
  ~CVRMLDictionarySeparator() override { RemoveChildren(); }

  void Initialize() override { SetType(DictionaryEntrySeparator); }

  /// The children; not owned.
  CKelList& GetChildren() { return Children; }
  /// These two give false for null; RemoveChild also for an entry that isn't a child.
  bool AddChild(CVRMLDictionaryEntry* child);
  bool RemoveChild(CVRMLDictionaryEntry* child);
  /// Lets go of all children.
  void RemoveChildren();

private:
  qelvrml::NameIndexedList Children{nullptr};
};
