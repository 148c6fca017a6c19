#pragma once

#include <string_view>

#include "qelvrml/foundation/CBasicAllocatedText.h"
#include "qelvrml/foundation/CBasicString.h"
#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/parser/VRMLFieldTypes.h"

/// A field of a prototype's interface with its default, or a value that an instance gives. The value is captured token
/// text.
class QELVRML_EXPORT CVRMLPrototypeField {
public:
  CVRMLPrototypeField() = default;
  CVRMLPrototypeField(const CVRMLPrototypeField& other) { *this = other; }
  virtual ~CVRMLPrototypeField() = default;

  /// Sets the defaults; a value text is let go of and not freed.
  virtual void Reset();
  CVRMLPrototypeField& operator=(const CVRMLPrototypeField& other);
  /// Compares name, type and length of the value; not the text of the value.
  bool operator==(const CVRMLPrototypeField& other) const;

  const CBasicString& GetName() const { return Name; }
  void SetName(const CBasicString& name) { Name = name; }
  VRMLFieldTypes GetType() const { return Type; }
  void SetType(VRMLFieldTypes type) { Type = type; }
  /// Takes the type by its name, in any case; `name` is changed to upper case.
  void SetTypeFromName(CBasicString& name);
  /// Not terminated; null without a value.
  char* GetValueText() const { return ValueText.get(); }
  /// Takes a text from the system's allocator over; the earlier one is let go of and not freed.
  void SetValueText(char* text);
  int GetValueLength() const { return ValueLength; }
  void SetValueLength(int length) { ValueLength = length; }
  void ClearValue();
  /// Whether the text has found its place in the expansion at hand.
  bool GetUsed() const { return Used; }
  void SetUsed(bool used) { Used = used; }

  std::string_view GetValue() const;
  /// The name as UTF-8; valid until the next call. Empty for a name that can't be converted.
  std::string_view GetNarrowName() const;

private:
  CBasicString Name;
  VRMLFieldTypes Type = VRMLFieldUnknown;
  int ValueLength = 0;
  CBasicAllocatedText ValueText;
  bool Used = false;
};

/// The element handler of lists of fields (CBasicElementHandler).
QELVRML_EXPORT bool FieldElementHandler(int operation, void** slot, void* value);
