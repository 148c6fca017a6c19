#include "qelvrml/foundation/CBasicString.h"

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstring>
#include <cwchar>
#include <cwctype>
#include <optional>

#include "qelvrml/foundation/TextConversion.h"

namespace {

std::u16string_view View(const char16_t* wide) { return wide ? std::u16string_view(wide) : std::u16string_view(); }
std::u16string Wide(const char* narrow) { return narrow ? qelvrml::Widen(narrow) : std::u16string(); }

char16_t Lower(char16_t unit) { return static_cast<char16_t>(std::towlower(unit)); }
char16_t Upper(char16_t unit) { return static_cast<char16_t>(std::towupper(unit)); }
bool IsSpace(char16_t unit) { return std::iswspace(unit) != 0; }

}  // namespace

CBasicString::CBasicString(const char* narrow) : WideText(Wide(narrow)) {}
CBasicString::CBasicString(const char16_t* wide) : WideText(View(wide)) {}
CBasicString::CBasicString(CBasicString&& other) noexcept { *this = std::move(other); }
CBasicString::CBasicString(const CBasicString* other) : WideText(other ? other->WideText : std::u16string()) {}
CBasicString::CBasicString(std::string_view narrow) : WideText(qelvrml::Widen(narrow)) {}

CBasicString& CBasicString::operator=(const CBasicString& other) {
  Assign(other);
  return *this;
}

CBasicString& CBasicString::operator=(CBasicString&& other) noexcept {
  if (this != &other) {
    SetText(std::move(other.WideText));
    other.SetText({});
  }
  return *this;
}

CBasicString& CBasicString::operator=(const char* narrow) {
  SetText(Wide(narrow));
  return *this;
}

CBasicString& CBasicString::operator=(const char16_t* wide) {
  SetText(std::u16string(View(wide)));  // a copy first: `wide` may point into this very text
  return *this;
}

bool CBasicString::Assign(const CBasicString& other) {
  if (this == &other) return false;
  WideText = other.WideText;
  DropNarrowText();
  return true;
}

CBasicString& CBasicString::operator+=(const CBasicString& other) {
  Append(other);
  return *this;
}

CBasicString& CBasicString::operator+=(const char* narrow) {
  Append(narrow);
  return *this;
}

CBasicString& CBasicString::operator+=(const char16_t* wide) {
  Append(wide);
  return *this;
}

bool CBasicString::Append(const CBasicString& other) {
  if (other.WideText.empty()) return false;
  AppendText(other.WideText);
  return true;
}

bool CBasicString::Append(const char* narrow) {
  if (!narrow) return false;
  AppendText(Wide(narrow));
  return true;
}

bool CBasicString::Append(const char16_t* wide) {
  if (!wide) return false;
  AppendText(View(wide));
  return true;
}

bool CBasicString::AppendRange(const char* first, const char* last) {
  if (!first || !last || last <= first) return false;
  const std::string_view bytes(first, static_cast<std::size_t>(last - first));
  AppendText(qelvrml::Widen(bytes.substr(0, bytes.find('\0'))));
  return true;
}

CBasicString CBasicString::operator+(const CBasicString& other) const {
  CBasicString sum(*this);
  sum += other;
  return sum;
}

CBasicString CBasicString::operator+(const char* narrow) const {
  CBasicString sum(*this);
  sum += narrow;
  return sum;
}

CBasicString CBasicString::operator+(const char16_t* wide) const {
  CBasicString sum(*this);
  sum += wide;
  return sum;
}

char* CBasicString::GetNarrowText() const {
  NarrowText.reset();
  const std::optional<std::string> narrow = qelvrml::Narrow(GetWideText());
  if (!narrow || (narrow->empty() && !WideText.empty())) return nullptr;
  NarrowText = std::make_unique<char[]>(narrow->size() + 1);
  std::memcpy(NarrowText.get(), narrow->c_str(), narrow->size() + 1);
  return NarrowText.get();
}

std::uint32_t CBasicString::GetHash() const { return qelvrml::Hash(WideText); }

int CBasicString::CompareNoCase(const CBasicString& other) const {
  const char16_t* left = GetWideText();
  const char16_t* right = other.GetWideText();
  for (; *left != u'\0' && Lower(*left) == Lower(*right); ++left) ++right;
  return Lower(*left) - Lower(*right);
}

int CBasicString::Find(const CBasicString& what, int start) const {
  if (!IsValidIndex(start)) return -1;
  const std::size_t position = WideText.find(what.WideText, static_cast<std::size_t>(start));
  return position == std::u16string::npos ? -1 : static_cast<int>(position);
}

int CBasicString::ReverseFind(char unit, int start) const {
  return ReverseFind(static_cast<char16_t>(static_cast<signed char>(unit)), start);
}

int CBasicString::ReverseFind(char16_t unit, int start) const {
  if (!IsValidIndex(start)) return -1;
  const auto from = static_cast<std::size_t>(start == 0 ? GetLength() - 1 : start);
  const std::size_t position = WideText.rfind(unit, from);
  return position == std::u16string::npos ? -1 : static_cast<int>(position);
}

CBasicString CBasicString::Mid(int first, int last) const {
  if (last == -1) last = GetLength() - 1;
  if (!IsValidIndex(first) || !IsValidIndex(last)) return {};
  const auto start = static_cast<std::size_t>(first);
  const std::size_t count = last < first - 1 ? std::u16string::npos : static_cast<std::size_t>(last - first + 1);
  return CBasicString(GetView().substr(start, count));
}

bool CBasicString::SetAt(int index, char16_t unit) {
  if (!IsValidIndex(index)) return false;
  WideText[static_cast<std::size_t>(index)] = unit;
  return true;
}

bool CBasicString::RemoveAt(int index) {
  if (!IsValidIndex(index)) return false;
  DropNarrowText();
  WideText.erase(static_cast<std::size_t>(index), 1);
  return true;
}

bool CBasicString::Truncate(int length) {
  if (length < 0 || length >= GetLength()) return false;
  DropNarrowText();
  WideText.resize(static_cast<std::size_t>(length));
  return true;
}

bool CBasicString::Empty() {
  if (WideText.empty()) return false;
  DropNarrowText();
  WideText.clear();
  return true;
}

bool CBasicString::MakeLower() {
  std::transform(WideText.begin(), WideText.end(), WideText.begin(), Lower);
  return !WideText.empty();
}

bool CBasicString::MakeUpper() {
  std::transform(WideText.begin(), WideText.end(), WideText.begin(), Upper);
  return !WideText.empty();
}

bool CBasicString::TrimLeft() {
  const auto first = std::find_if_not(WideText.begin(), WideText.end(), IsSpace);
  if (first == WideText.begin()) return false;
  DropNarrowText();
  WideText.erase(WideText.begin(), first);
  return true;
}

bool CBasicString::TrimRight() {
  const auto last = std::find_if_not(WideText.rbegin(), WideText.rend(), IsSpace).base();
  if (last == WideText.end()) return false;
  DropNarrowText();
  WideText.erase(last, WideText.end());
  return true;
}

bool CBasicString::Replace(const CBasicString& what, const CBasicString& with) {
  if (what.WideText.empty()) return false;
  std::size_t position = WideText.find(what.WideText);
  if (position == std::u16string::npos) return false;

  std::u16string value;
  std::size_t start = 0;
  for (; position != std::u16string::npos; position = WideText.find(what.WideText, start)) {
    value.append(WideText, start, position - start).append(with.WideText);
    start = position + what.WideText.size();
  }
  value.append(WideText, start);
  SetText(std::move(value));
  return true;
}

bool CBasicString::Format(const char16_t* format, ...) {
  if (!format) return false;
  constexpr std::size_t BufferUnits = 4096;
  std::array<wchar_t, BufferUnits> buffer{};
  const std::wstring systemFormat = qelvrml::ToSystemWide(format);
  std::va_list arguments;
  va_start(arguments, format);
  // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): va_start stands right above
  const int length = std::vswprintf(buffer.data(), buffer.size(), systemFormat.c_str(), arguments);
  va_end(arguments);
  if (length < 1) return false;
  SetText(qelvrml::FromSystemWide({buffer.data(), static_cast<std::size_t>(length)}));
  return true;
}

bool CBasicString::LoadString(int /*id*/, void* /*module*/) { return false; }

void CBasicString::SetText(std::u16string text) {
  WideText = std::move(text);
  DropNarrowText();
}

void CBasicString::AppendText(std::u16string_view text) {
  if (text.empty()) return;
  WideText += text;
  DropNarrowText();
}
