// The fields that an instance gives: `name value`, in any order. What isn't a field of the prototype is passed over.

#include "qelvrml/prototypes/InstanceFields.h"

#include <memory>
#include <string>

#include "qelvrml/parser/CVRMLIOManager.h"
#include "qelvrml/prototypes/CVRMLPrototype.h"
#include "qelvrml/prototypes/FieldIndex.h"

namespace qelvrml {
namespace {

/// Tells the names of fields from their values, among tokens that are passed over: a name is a word outside of all
/// brackets and not behind another word, as the name of a node is.
class NameFinder {
public:
  bool IsName(const CVRMLIOManager& tokens) {
    if (tokens.GetCurrentTokenBeginType()) ++Depth;
    if (tokens.GetCurrentTokenEndType() && Depth > 0) --Depth;
    const GenericTokenTypes type = tokens.GetCurrentTokenDataType();
    const bool isWord = Depth == 0 && (type == GenericTokenOther || type == GenericTokenUserDefined);
    const bool isName = isWord && !BehindWord;
    BehindWord = isWord;
    return isName;
  }
  void StepBehindField(bool hasValue) { BehindWord = !hasValue; }

private:
  int Depth = 0;
  bool BehindWord = false;
};

// False if the text has no value that is read for the field's type.
bool AddField(CVRMLPrototype& prototype, const CVRMLPrototypeField& field, CVRMLIOManager& tokens, CKelList& list) {
  char* value = nullptr;
  int length = 0;
  const bool captured = tokens.CaptureFieldText(&value, &length, field.GetType(), &prototype);
  CBasicAllocatedText owned(value);
  std::unique_ptr<CVRMLPrototypeField> given(
      CVRMLPrototype::CreateField(field.GetName(), field.GetType(), value, length));
  if (!given) return captured;
  owned.release();
  if (list.AddTail(given.get())) given.release();
  return captured;
}

}  // namespace

bool ReadInstanceFields(CVRMLPrototype& prototype, const char* text, int length, CKelList& list,
                        const VainFieldHandler& inVain) {
  CVRMLIOManager tokens;
  if (!tokens.StartBufferReading(text, length)) return false;
  FieldIndex fields(prototype.GetFields());
  NameFinder names;
  if (tokens.GetCurrentTokenBeginType()) tokens.Tokenize();
  while (tokens.GetCurrentTokenType() != VRMLTokenEndOfFile) {
    const CBasicString name(tokens.GetCurrentTokenText());
    const CVRMLPrototypeField* field = fields.Find(name.GetView());
    if (!field && names.IsName(tokens)) inVain(VRMLNoteUnknownField, tokens.GetCurrentTokenText());
    tokens.Tokenize();
    if (!field) continue;
    const bool hasValue = AddField(prototype, *field, tokens, list);
    if (!hasValue) inVain(VRMLNoteFieldWithoutValue, field->GetNarrowName());
    names.StepBehindField(hasValue);
  }
  tokens.StopBufferReading();
  return true;
}

}  // namespace qelvrml
