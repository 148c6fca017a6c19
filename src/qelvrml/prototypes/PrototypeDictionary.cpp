// The dictionary of prototypes, and the marking of words that name one.

#include "qelvrml/foundation/TextConversion.h"
#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/prototypes/CVRMLPrototype.h"

CVRMLPrototype* CVRMLParser::FindPrototype(const CBasicString& name) {
  return static_cast<CVRMLPrototype*>(PrototypeDictionary.FindKey(name.GetHash()));
}

CVRMLPrototype* CVRMLParser::FindPrototype(const char* name) {
  return name ? FindPrototype(CBasicString(name)) : nullptr;
}

bool CVRMLParser::AddPrototypeToDictionary(CVRMLPrototype* prototype) {
  return prototype && PrototypeDictionary.AddTail(prototype);
}

bool CVRMLParser::RemovePrototypeFromDictionary(CVRMLPrototype* prototype) {
  if (!prototype) return false;
  PrototypeDictionary.Remove(prototype);
  return true;
}

void CVRMLParser::ClearPrototypeDictionary() {
  for (CBasicListElement* element = PrototypeDictionary.GoToFirst(); element; element = element->Next) {
    delete static_cast<CVRMLPrototype*>(element->Data);
  }
  PrototypeDictionary.RemoveAll();
}

// A word that is nothing else may name a prototype that is known by now.
void CVRMLParser::MarkPrototypeNames() {
  if (PrototypeDictionary.GetCount() == 0) return;
  const auto mark = [this](CGenericToken& token, std::string_view text) {
    if (!PrototypeDictionary.FindKey(qelvrml::HashNarrow(text))) return;
    token.SetDataType(GenericTokenUserDefined);
    token.SetUserDefinedType(VRMLTokenProtoUse);
  };
  if (GetCurrentTokenType() == VRMLTokenUnknown) mark(IOManager.GetCurrentToken(), IOManager.GetCurrentTokenText());
  if (GetNextTokenType() == VRMLTokenUnknown) mark(IOManager.GetNextToken(), IOManager.GetNextTokenText());
}
