#pragma once

#include "qelvrml/dictionary/CVRMLDictionaryEntry.h"
#include "qelvrml/foundation/VRMLExport.h"

/// A USE inside a recorded separator: its name is the one that the statement refers to, looked up anew at each replay.
class QELVRML_EXPORT CVRMLDictionaryUse : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryUse() { CVRMLDictionaryUse::Initialize(); }

  void Initialize() override { SetType(DictionaryEntryUse); }
};
