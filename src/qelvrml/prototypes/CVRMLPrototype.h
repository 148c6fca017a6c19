#pragma once

#include <cstdint>
#include <memory>

#include "qelvrml/foundation/CBasicString.h"
#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brixex/CKelList.h"
#include "qelvrml/prototypes/CVRMLPrototypeField.h"

namespace qelvrml {
class BodyTemplate;
}  // namespace qelvrml

/// A prototype, held as text: its name, its interface with the defaults as text, and the token text of its body. An
/// instance is a merge of these into one text, which is read like the text of a file.
class QELVRML_EXPORT CVRMLPrototype {
public:
  CVRMLPrototype();
  CVRMLPrototype(const CVRMLPrototype&) = delete;
  CVRMLPrototype& operator=(const CVRMLPrototype&) = delete;
  virtual ~CVRMLPrototype();

  /// Empties the body and the fields and gives the fields their element handler; the name stays.
  void Initialize();

  const CBasicString& GetName() const { return Name; }
  /// Stores the name and its hash. The name doesn't change while the prototype is in a dictionary.
  void SetName(const CBasicString& name);
  std::uint32_t GetNameHash() const { return NameHash; }
  /// The interface, in the order of the file; owned.
  CKelList& GetFields() { return Fields; }
  /// The body without its braces; not terminated; null for an empty one.
  char* GetBodyText() const { return BodyText.get(); }
  /// Takes a text from the system's allocator over; an earlier one is freed only by ClearBody.
  void SetBodyText(char* text);
  int GetBodyLength() const { return BodyLength; }
  void SetBodyLength(int length);
  /// Whether there is a body that can be read.
  bool HasBody() const { return BodyText && BodyLength >= 0; }
  /// Frees the body; without one the length stays.
  void ClearBody();
  void ClearFields();

  /// The first field of that name in a list of fields; null if there is none. Case counts.
  static CVRMLPrototypeField* FindField(const CBasicString& name, CKelList& list);
  CVRMLPrototypeField* FindField(const CBasicString& name) { return FindField(name, Fields); }
  /// A new field that takes `text` over; null if there is no memory, and then the text stays with the caller.
  static CVRMLPrototypeField* CreateField(const CBasicString& name, CBasicString& typeName, char* text, int length);
  static CVRMLPrototypeField* CreateField(const CBasicString& name, VRMLFieldTypes type, char* text, int length);
  /// Adds a field to the interface; false if it couldn't be made, and then the text stays with the caller.
  bool AddField(const CBasicString& name, CBasicString& typeName, char* text, int length);

  /// Merges the body, the values in an instance's captured text, which may be null, and the defaults into a new text,
  /// which the caller frees. False, without a text, for a prototype without a body.
  bool CreateInstanceText(const char* text, int length, char** result, int* resultLength);
  /// Reads the values in an instance's text into a list of fields.
  bool ParseInstanceFields(const char* text, int length, CKelList& list);
  /// Marks the fields that an instance's list has a value for as used, the others as not used.
  void MarkOverriddenFields(CKelList& list);
  /// The names and values of the fields of a list that aren't used: measured into `sum` and `count` without a place to
  /// write to, else written to it as the last of `total` pieces.
  static void AddUnusedFields(CKelList& list, int* sum, int* count, int total, char** out);
  /// Writes one piece of text and steps on, with a blank behind every piece but the last of `total`.
  static void WriteText(char** out, const char* text, int length, int* count, int total);

  /// The body cut into literal text and references to fields; made once.
  const qelvrml::BodyTemplate& GetBodyTemplate();

private:
  CBasicString Name;
  std::uint32_t NameHash = 0;
  CKelList Fields;
  int BodyLength = 0;
  CBasicAllocatedText BodyText;
  std::unique_ptr<qelvrml::BodyTemplate> Template;
};
