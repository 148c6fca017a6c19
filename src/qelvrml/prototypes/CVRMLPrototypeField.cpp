#include "qelvrml/prototypes/CVRMLPrototypeField.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <string_view>

#include "qelvrml/platform/genparse/Characters.h"

namespace {

// By the values of the types, from 1 on.
constexpr std::array<std::string_view, 19> TypeNames = {
    "SFBITMASK", "SFBOOL",     "SFCOLOR",  "MFCOLOR",  "SFENUM",  "SFFLOAT", "MFFLOAT", "SFIMAGE", "SFLONG", "MFLONG",
    "SFMATRIX",  "SFROTATION", "SFSTRING", "MFSTRING", "SFVEC2F", "MFVEC2F", "SFVEC3F", "MFVEC3F", "MFNODE"};
static_assert(TypeNames.size() == VRMLFieldMFNODE);

// No locale plays a part.
bool SameLetter(char16_t letter, char upper) {
  constexpr char16_t AsciiEnd = 0x80;
  return letter < AsciiEnd && qelvrml::ToUpperAscii(static_cast<char>(letter)) == upper;
}

}  // namespace

void CVRMLPrototypeField::Reset() {
  Name.Empty();
  Type = VRMLFieldUnknown;
  ValueLength = 0;
  ValueText.release();
  Used = false;
}

CVRMLPrototypeField& CVRMLPrototypeField::operator=(const CVRMLPrototypeField& other) {
  if (this == &other) return *this;
  Name = other.Name;
  Type = other.Type;
  Used = other.Used;
  ClearValue();
  const std::string_view value = other.GetValue();
  if (value.empty()) return *this;
  ValueText.reset(static_cast<char*>(std::malloc(value.size())));
  if (!ValueText) return *this;
  std::memcpy(ValueText.get(), value.data(), value.size());
  ValueLength = other.ValueLength;
  return *this;
}

bool CVRMLPrototypeField::operator==(const CVRMLPrototypeField& other) const {
  return Name == other.Name && Type == other.Type && ValueLength == other.ValueLength;
}

void CVRMLPrototypeField::SetTypeFromName(CBasicString& name) {
  const std::u16string_view view = name.GetView();
  const auto* found = std::find_if(TypeNames.begin(), TypeNames.end(), [view](std::string_view known) {
    return std::equal(view.begin(), view.end(), known.begin(), known.end(), SameLetter);
  });
  name.MakeUpper();
  Type = found == TypeNames.end() ? VRMLFieldUnknown : static_cast<VRMLFieldTypes>(found - TypeNames.begin() + 1);
}

void CVRMLPrototypeField::SetValueText(char* text) {
  ValueText.release();
  ValueText.reset(text);
}

void CVRMLPrototypeField::ClearValue() {
  if (!ValueText) return;
  ValueText.reset();
  ValueLength = 0;
}

std::string_view CVRMLPrototypeField::GetValue() const {
  return ValueText && ValueLength > 0 ? std::string_view(ValueText.get(), static_cast<std::size_t>(ValueLength))
                                      : std::string_view();
}

std::string_view CVRMLPrototypeField::GetNarrowName() const {
  const char* name = Name.GetNarrowText();
  return name ? name : "";
}

bool FieldElementHandler(int operation, void** slot, void* value) {
  if (!slot) return false;
  auto* own = static_cast<CVRMLPrototypeField*>(*slot);
  const auto* other = static_cast<const CVRMLPrototypeField*>(value);
  switch (operation) {
    case 0: *slot = new (std::nothrow) CVRMLPrototypeField; return true;
    case 1:
      delete own;
      *slot = nullptr;
      return true;
    case 2:
      if (!own || !other) return false;
      *own = *other;
      return true;
    case 3: return own && other && *own == *other;
    default: return false;
  }
}
