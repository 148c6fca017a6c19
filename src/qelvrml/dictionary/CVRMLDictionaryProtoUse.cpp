#include "qelvrml/dictionary/CVRMLDictionaryProtoUse.h"

#include <cstring>

void CVRMLDictionaryProtoUse::Initialize() {
  SetType(DictionaryEntryProtoUse);
  PrototypeName.Empty();
  SetFieldText(nullptr, 0);
}

void CVRMLDictionaryProtoUse::SetFieldText(const char* text, int length) {
  FieldText.reset();
  FieldTextLength = 0;
  if (!text || length <= 0) return;
  FieldText.reset(static_cast<char*>(std::malloc(static_cast<std::size_t>(length))));
  if (!FieldText) return;
  std::memcpy(FieldText.get(), text, static_cast<std::size_t>(length));
  FieldTextLength = length;
}
