#pragma once

#include <string_view>
#include <unordered_map>

#include "qelvrml/platform/brixex/CKelList.h"
#include "qelvrml/prototypes/CVRMLPrototypeField.h"

namespace qelvrml {

template <class Visit>
void ForEachField(CKelList& list, Visit visit) {
  for (CBasicListElement* element = list.GoToFirst(); element; element = element->Next) {
    visit(*static_cast<CVRMLPrototypeField*>(element->Data));
  }
}

/// Finds fields of a list by their names; the first one of a name counts. The list stays as it is meanwhile. A few
/// fields are looked through, for more there is an index.
class FieldIndex {
public:
  explicit FieldIndex(CKelList& list) : List(list) {
    if (List.GetCount() <= FewFields) return;
    ForEachField(List, [this](CVRMLPrototypeField& field) { ByName.emplace(field.GetName().GetView(), &field); });
  }

  /// Null if there is none.
  CVRMLPrototypeField* Find(std::u16string_view name) {
    if (ByName.empty()) return LookThrough(name);
    const auto found = ByName.find(name);
    return found == ByName.end() ? nullptr : found->second;
  }

private:
  static constexpr int FewFields = 16;

  CVRMLPrototypeField* LookThrough(std::u16string_view name) {
    for (CBasicListElement* element = List.GoToFirst(); element; element = element->Next) {
      auto* field = static_cast<CVRMLPrototypeField*>(element->Data);
      if (field->GetName().GetView() == name) return field;
    }
    return nullptr;
  }

  CKelList& List;
  std::unordered_map<std::u16string_view, CVRMLPrototypeField*> ByName;
};

}  // namespace qelvrml
