#pragma once

#include <string_view>

#include "qelvrml/foundation/CBasicAllocatedText.h"
#include "qelvrml/foundation/CBasicString.h"
#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/parser/VRMLFieldTypes.h"

/// A field of a prototype's interface with its default, or a value that an instance gives. The value is captured token
/// text, which belongs to the field. A field is used by one thread at a time.
class QELVRML_EXPORT CVRMLPrototypeField {
public:
  /// Nameless, of the type VRMLFieldUnknown, without a value.
  CVRMLPrototypeField() = default;
  /// A copy has a text of its own, or no value if there is no memory for one.
  CVRMLPrototypeField(const CVRMLPrototypeField& other) { *this = other; }
  virtual ~CVRMLPrototypeField() = default;

  /// Makes it what a new field is; a value text is let go of and not freed.
  virtual void Reset();
  /// Frees the earlier value. As for a copy.
  CVRMLPrototypeField& operator=(const CVRMLPrototypeField& other);
  /// Compares name, type and length of the value; not the text of the value.
  bool operator==(const CVRMLPrototypeField& other) const;

  /// The name, in the spelling of the file.
  /// @{
  const CBasicString& GetName() const { return Name; }
  void SetName(const CBasicString& name) { Name = name; }
  /// @}
  /// The type, which tells how much text is a value.
  /// @{
  VRMLFieldTypes GetType() const { return Type; }
  void SetType(VRMLFieldTypes type) { Type = type; }
  /// @}
  /// Takes the type by its name, in any case of ASCII letters, or VRMLFieldUnknown for any other name; `name` is
  /// changed to upper case.
  void SetTypeFromName(CBasicString& name);
  /// Not terminated; null without a value.
  char* GetValueText() const { return ValueText.get(); }
  /// Takes a text from the system's allocator over, null for none; the earlier one is let go of and not freed. The
  /// length is set beside it.
  void SetValueText(char* text);
  /// Length of the value in bytes; nothing checks it.
  /// @{
  int GetValueLength() const { return ValueLength; }
  void SetValueLength(int length) { ValueLength = length; }
  /// @}
  /// Frees the value and sets its length to 0; without a text the length stays.
  void ClearValue();
  /// Whether the text has found its place in the expansion at hand.
  /// @{
  bool GetUsed() const { return Used; }
  void SetUsed(bool used) { Used = used; }
  /// @}

  /// The value with its length; empty without a text or for a length of 0 or less. Valid until the value changes.
  std::string_view GetValue() const;
  /// The name as UTF-8; valid until the next call, and as long as the name. Empty for a name that can't be converted.
  std::string_view GetNarrowName() const;

private:
  CBasicString Name;
  VRMLFieldTypes Type = VRMLFieldUnknown;
  int ValueLength = 0;
  CBasicAllocatedText ValueText;
  bool Used = false;
};

/// The element handler of lists that own their fields; see CBasicElementHandler for its operations.
QELVRML_EXPORT bool FieldElementHandler(int operation, void** slot, void* value);
