#pragma once

#include <string_view>

#include "qelvrml/dictionary/CVRMLDictionaryEntry.h"
#include "qelvrml/foundation/CBasicAllocatedText.h"
#include "qelvrml/foundation/VRMLExport.h"

/// An instance of a prototype: the prototype's name and the instance's own captured text. A replay expands it anew.
class QELVRML_EXPORT CVRMLDictionaryProtoUse : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryProtoUse() { CVRMLDictionaryProtoUse::Initialize(); }

  void Initialize() override;

  const CBasicString& GetPrototypeName() const { return PrototypeName; }
  void SetPrototypeName(const CBasicString& name) { PrototypeName = name; }
  /// Not terminated; null for an instance without fields.
  char* GetFieldText() const { return FieldText.get(); }
  int GetFieldTextLength() const { return FieldTextLength; }
  /// Copies the text; a null text or a length of 0 or less leaves none.
  void SetFieldText(const char* text, int length);

private:
  CBasicString PrototypeName;
  CBasicAllocatedText FieldText;
  int FieldTextLength;
};
