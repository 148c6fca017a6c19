#pragma once

#include <string_view>

#include "qelvrml/dictionary/CVRMLDictionaryEntry.h"
#include "qelvrml/foundation/CBasicAllocatedText.h"
#include "qelvrml/foundation/VRMLExport.h"

/// An instance of a prototype: the prototype's name and the instance's own captured text. A replay expands it anew.
class QELVRML_EXPORT CVRMLDictionaryProtoUse : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryProtoUse() { CVRMLDictionaryProtoUse::Initialize(); }

  /// Empties the name of the prototype and the text, and sets the type.
  void Initialize() override;

  /// The prototype by its name: the one that is known under it at the replay counts.
  /// @{
  const CBasicString& GetPrototypeName() const { return PrototypeName; }
  void SetPrototypeName(const CBasicString& name) { PrototypeName = name; }
  /// @}
  /// The text and its length in bytes. Not terminated, owned by the entry, valid until the next change; null for an
  /// instance without fields.
  /// @{
  char* GetFieldText() const { return FieldText.get(); }
  int GetFieldTextLength() const { return FieldTextLength; }
  /// @}
  /// Copies the text; a null text or a length of 0 or less leaves none, and so does a lack of memory.
  void SetFieldText(const char* text, int length);

private:
  CBasicString PrototypeName;
  CBasicAllocatedText FieldText;
  int FieldTextLength;
};
