#include "qelvrml/prototypes/CVRMLPrototype.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <string_view>

#include "qelvrml/parser/CVRMLIOManager.h"
#include "qelvrml/prototypes/FieldIndex.h"
#include "qelvrml/prototypes/InstanceFields.h"
#include "qelvrml/prototypes/InstanceMerge.h"

namespace {

CVRMLPrototypeField* FieldOf(CBasicListElement* element) { return static_cast<CVRMLPrototypeField*>(element->Data); }

int AddSaturated(int a, std::size_t b) {
  constexpr auto Largest = static_cast<std::size_t>(std::numeric_limits<int>::max());
  return static_cast<int>(std::min(static_cast<std::size_t>(std::max(a, 0)) + b, Largest));
}

}  // namespace

CVRMLPrototype::CVRMLPrototype() { Initialize(); }
CVRMLPrototype::~CVRMLPrototype() { ClearFields(); }

void CVRMLPrototype::Initialize() {
  NameHash = 0;
  ClearBody();
  BodyLength = 0;
  Fields.SetElementHandler(FieldElementHandler);
  ClearFields();
}

void CVRMLPrototype::SetName(const CBasicString& name) {
  Name = name;
  NameHash = Name.GetHash();
}

void CVRMLPrototype::SetBodyText(char* text) {
  BodyText.release();
  BodyText.reset(text);
  Template.reset();
}

void CVRMLPrototype::SetBodyLength(int length) {
  BodyLength = length;
  Template.reset();
}

void CVRMLPrototype::ClearBody() {
  if (!BodyText) return;
  BodyText.reset();
  BodyLength = 0;
  Template.reset();
}

void CVRMLPrototype::ClearFields() { Fields.RemoveAllValues(); }

CVRMLPrototypeField* CVRMLPrototype::FindField(const CBasicString& name, CKelList& list) {
  for (CBasicListElement* element = list.GoToFirst(); element; element = element->Next) {
    if (FieldOf(element)->GetName() == name) return FieldOf(element);
  }
  return nullptr;
}

CVRMLPrototypeField* CVRMLPrototype::CreateField(const CBasicString& name, CBasicString& typeName, char* text,
                                                 int length) {
  CVRMLPrototypeField typed;
  typed.SetTypeFromName(typeName);
  return CreateField(name, typed.GetType(), text, length);
}

CVRMLPrototypeField* CVRMLPrototype::CreateField(const CBasicString& name, VRMLFieldTypes type, char* text,
                                                 int length) {
  std::unique_ptr<CVRMLPrototypeField> field(new (std::nothrow) CVRMLPrototypeField);
  if (!field) return nullptr;
  field->SetName(name);
  field->SetType(type);
  field->SetValueText(text);
  field->SetValueLength(length);
  return field.release();
}

bool CVRMLPrototype::AddField(const CBasicString& name, CBasicString& typeName, char* text, int length) {
  std::unique_ptr<CVRMLPrototypeField> field(CreateField(name, typeName, text, length));
  if (!field) return false;
  if (!Fields.AddTail(field.get())) {
    field->SetValueText(nullptr);  // the text stays with the caller
    return false;
  }
  field.release();
  return true;
}

const qelvrml::BodyTemplate& CVRMLPrototype::GetBodyTemplate() {
  if (!Template) Template = std::make_unique<qelvrml::BodyTemplate>(BodyText.get(), BodyLength);
  return *Template;
}

bool CVRMLPrototype::CreateInstanceText(const char* text, int length, char** result, int* resultLength) {
  if (!HasBody() || !result || !resultLength) return false;
  qelvrml::InstanceMerge merge(*this, text, length);
  const std::uint64_t merged = merge.GetLength();
  if (merged > static_cast<std::uint64_t>(std::numeric_limits<int>::max())) return false;
  CBasicAllocatedText buffer(static_cast<char*>(std::malloc(std::max<std::size_t>(merged, 1))));
  if (!buffer) return false;
  merge.Write(buffer.get());
  *result = buffer.release();
  *resultLength = static_cast<int>(merged);
  return true;
}

bool CVRMLPrototype::ParseInstanceFields(const char* text, int length, CKelList& list) {
  return qelvrml::ReadInstanceFields(*this, text, length, list, [](VRMLNoteTypes, std::string_view) {});
}

void CVRMLPrototype::MarkOverriddenFields(CKelList& list) {
  qelvrml::FieldIndex given(list);
  qelvrml::ForEachField(Fields, [&given](CVRMLPrototypeField& field) {
    field.SetUsed(given.Find(field.GetName().GetView()) != nullptr);
  });
}

void CVRMLPrototype::AddUnusedFields(CKelList& list, int* sum, int* count, int total, char** out) {
  for (CBasicListElement* element = list.GoToFirst(); element; element = element->Next) {
    const CVRMLPrototypeField& field = *FieldOf(element);
    if (field.GetUsed()) continue;
    const std::string_view name = field.GetNarrowName();
    if (out && *out) {
      WriteText(out, name.data(), static_cast<int>(name.size()), count, total);
      WriteText(out, field.GetValueText(), field.GetValueLength(), count, total);
    } else {
      *sum = AddSaturated(*sum, name.size() + field.GetValue().size());
      *count = AddSaturated(*count, 2);
    }
  }
}

void CVRMLPrototype::WriteText(char** out, const char* text, int length, int* count, int total) {
  if (!out || !*out) return;
  if (text && length > 0) {
    std::memcpy(*out, text, static_cast<std::size_t>(length));
    *out += length;
  }
  if (++*count < total) ++*out;
}
