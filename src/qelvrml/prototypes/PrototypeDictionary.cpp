// The dictionary of prototypes, and the marking of words that name one.

#include "qelvrml/foundation/TextConversion.h"
#include "qelvrml/parser/load/ParserInternals.h"
#include "qelvrml/platform/brixex/NameIndexedList.h"
#include "qelvrml/prototypes/CVRMLPrototype.h"
#include "qelvrml/prototypes/PrototypeNames.h"

CKelList* CVRMLParser::GetPrototypeDictionary() { return PrototypeDictionary.get(); }

CVRMLPrototype* CVRMLParser::FindPrototype(const CBasicString& name) {
  return static_cast<CVRMLPrototype*>(PrototypeDictionary->FindKey(name.GetHash()));
}

CVRMLPrototype* CVRMLParser::FindPrototype(const char* name) {
  return name ? FindPrototype(CBasicString(name)) : nullptr;
}

bool CVRMLParser::AddPrototypeToDictionary(CVRMLPrototype* prototype) {
  return prototype && PrototypeDictionary->AddTail(prototype);
}

bool CVRMLParser::RemovePrototypeFromDictionary(CVRMLPrototype* prototype) {
  if (!prototype) return false;
  PrototypeDictionary->Remove(prototype);
  return true;
}

void CVRMLParser::ClearPrototypeDictionary() {
  for (CBasicListElement* element = PrototypeDictionary->GoToFirst(); element; element = element->Next) {
    delete static_cast<CVRMLPrototype*>(element->Data);
  }
  PrototypeDictionary->RemoveAll();
}

void qelvrml::MarkPrototypeNames(CVRMLParser& parser) {
  NameIndexedList& prototypes = ParserInternals::Prototypes(parser);
  if (prototypes.GetCount() == 0) return;
  const auto mark = [&prototypes](CGenericToken& token, std::string_view text) {
    if (!prototypes.FindKey(HashNarrow(text))) return;
    token.SetDataType(GenericTokenUserDefined);
    token.SetUserDefinedType(VRMLTokenProtoUse);
  };
  CVRMLIOManager& tokens = *parser.GetIOManager();
  if (parser.GetCurrentTokenType() == VRMLTokenUnknown) mark(tokens.GetCurrentToken(), tokens.GetCurrentTokenText());
  if (parser.GetNextTokenType() == VRMLTokenUnknown) mark(tokens.GetNextToken(), tokens.GetNextTokenText());
}
