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
///
/// Texts are captured tokens (CVRMLIOManager), come from the system's allocator and aren't terminated; lengths are in
/// bytes. A prototype in a dictionary belongs to it, and is used by the thread of its parser.
class QELVRML_EXPORT CVRMLPrototype {
public:
  /// Nameless, without fields and a body.
  CVRMLPrototype();
  CVRMLPrototype(const CVRMLPrototype&) = delete;
  CVRMLPrototype& operator=(const CVRMLPrototype&) = delete;
  /// Frees the body and the fields.
  virtual ~CVRMLPrototype();

  /// Frees the body and the fields and gives the fields their element handler. The name stays, but its hash becomes 0.
  void Initialize();

  /// The name, and its hash by CBasicString::GetHash, 0 for none. It doesn't change while the prototype is in a
  /// dictionary.
  /// @{
  const CBasicString& GetName() const { return Name; }
  void SetName(const CBasicString& name);
  std::uint32_t GetNameHash() const { return NameHash; }
  /// @}
  /// The interface, in the order of the file; owned.
  CKelList& GetFields() { return Fields; }
  /// The body without its braces; null for an empty one. Belongs to the prototype.
  char* GetBodyText() const { return BodyText.get(); }
  /// Takes a text over, null for none; an earlier one is let go of, and freed only if ClearBody comes first. The length
  /// is set beside it.
  void SetBodyText(char* text);
  /// Length of the body in bytes; nothing checks it.
  /// @{
  int GetBodyLength() const { return BodyLength; }
  void SetBodyLength(int length);
  /// @}
  /// Whether there is a body that can be read.
  bool HasBody() const { return BodyText && BodyLength >= 0; }
  /// Frees the body and sets its length to 0; without one the length stays.
  void ClearBody();
  /// Destroys all fields.
  void ClearFields();

  /// The first field of that name in a list of fields, or in the interface; null if there is none. Case counts.
  /// @{
  static CVRMLPrototypeField* FindField(const CBasicString& name, CKelList& list);
  CVRMLPrototypeField* FindField(const CBasicString& name) { return FindField(name, Fields); }
  /// @}
  /// A new field, which belongs to the caller and takes `text` over; null for no value. Without memory it is null, or
  /// std::bad_alloc leaves, and the text stays with the caller. `typeName` is changed to upper case.
  /// @{
  static CVRMLPrototypeField* CreateField(const CBasicString& name, CBasicString& typeName, char* text, int length);
  static CVRMLPrototypeField* CreateField(const CBasicString& name, VRMLFieldTypes type, char* text, int length);
  /// @}
  /// Adds such a field to the interface; false if it couldn't be made, and then the text stays with the caller.
  bool AddField(const CBasicString& name, CBasicString& typeName, char* text, int length);

  /// Merges the body, the values in an instance's captured text, which may be null, and the defaults into a new text,
  /// which the caller releases with `free`. In the body, `word IS field` becomes the word and the field's value; what
  /// found no place stands behind the body, as name and value.
  ///
  /// False, without a text, for a prototype without a body, for more than 2,147,483,647 bytes, without memory for the
  /// text, and if one of the two places for the result is null.
  bool CreateInstanceText(const char* text, int length, char** result, int* resultLength);
  /// Reads the values in an instance's text into a list of new fields, which belong to the owner of the list. Words
  /// that name no field are passed over; a value that can't be read is empty. False for a null text or a negative
  /// length.
  bool ParseInstanceFields(const char* text, int length, CKelList& list);
  /// Marks the fields of the interface that an instance's list has by name as used, the others as not used.
  void MarkOverriddenFields(CKelList& list);
  /// The names and values of the fields of a list that aren't used, as two pieces each. Without a place to write to
  /// (`out` or `*out` is null) they are measured: `sum` grows by their bytes and `count` by the pieces. Else they are
  /// written to it as the last of `total` pieces.
  static void AddUnusedFields(CKelList& list, int* sum, int* count, int total, char** out);
  /// Writes one piece of text, which may be null, adds 1 to `count` and steps on, over a blank behind every piece but
  /// the last of `total`; the room holds blanks. Does nothing without a place to write to.
  static void WriteText(char** out, const char* text, int length, int* count, int total);

  /// The body cut into literal text and references to fields; made once. For the library itself.
  const qelvrml::BodyTemplate& GetBodyTemplate();

private:
  CBasicString Name;
  std::uint32_t NameHash = 0;
  CKelList Fields;
  int BodyLength = 0;
  CBasicAllocatedText BodyText;
  std::unique_ptr<qelvrml::BodyTemplate> Template;
};
