#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "qelvrml/foundation/VRMLExport.h"

/// The one text type of the system: a growable text of 16-bit code units, with a narrow form on request.
///
/// Lengths and indices are signed and count code units. Bad indices and null pointers give neutral results: an empty
/// text, 0, -1 or false. Narrow texts are UTF-8; a byte that isn't part of valid UTF-8 becomes the code unit
/// 0xDC00 + byte and goes back to that byte on the way to narrow. Only a failed allocation raises.
///
/// An argument may be a part of this very text, narrow or wide.
///
/// An object is used by one thread at a time, for GetNarrowText changes it also when it is constant.
class QELVRML_EXPORT CBasicString {
public:
  /// The empty text.
  CBasicString() = default;
  /// The same text; a move leaves `other` empty.
  /// @{
  CBasicString(const CBasicString& other) : WideText(other.WideText) {}
  CBasicString(CBasicString&& other) noexcept;
  /// @}
  /// A copy of a text up to its NUL, or of a whole view; null gives the empty text.
  /// @{
  CBasicString(const char* narrow);    // NOLINT(google-explicit-constructor): texts convert as they do everywhere
  CBasicString(const char16_t* wide);  // NOLINT(google-explicit-constructor): as above
  explicit CBasicString(const CBasicString* other);
  explicit CBasicString(std::string_view narrow);
  explicit CBasicString(std::u16string_view wide) : WideText(wide) {}
  /// @}
  /// One code unit: the `char` widened with its sign.
  /// @{
  explicit CBasicString(char unit) : WideText(1, static_cast<char16_t>(static_cast<signed char>(unit))) {}
  explicit CBasicString(char16_t unit) : WideText(1, unit) {}
  /// @}
  virtual ~CBasicString() = default;

  /// Takes the text of another one, which a move leaves empty, or a copy of a text up to its NUL; null empties it.
  /// @{
  CBasicString& operator=(const CBasicString& other);
  CBasicString& operator=(CBasicString&& other) noexcept;
  CBasicString& operator=(const char* narrow);
  CBasicString& operator=(const char16_t* wide);
  /// @}
  /// Takes the text of another one. False on self-assignment.
  bool Assign(const CBasicString& other);
  /// As the assignment operators.
  /// @{
  void Assign(const char* narrow) { *this = narrow; }
  void Assign(const char16_t* wide) { *this = wide; }
  /// @}

  /// Appends a text up to its NUL, or all of another one; null changes nothing.
  /// @{
  CBasicString& operator+=(const CBasicString& other);
  CBasicString& operator+=(const char* narrow);
  CBasicString& operator+=(const char16_t* wide);
  /// @}
  /// The same; false if `other` is empty.
  bool Append(const CBasicString& other);
  /// The same; false for a null pointer.
  /// @{
  bool Append(const char* narrow);
  bool Append(const char16_t* wide);
  /// @}
  /// Appends the bytes from `first` up to but not including `last`, or up to a NUL; false if there are none.
  bool AppendRange(const char* first, const char* last);
  /// This text with another one behind it, which may be null.
  /// @{
  CBasicString operator+(const CBasicString& other) const;
  CBasicString operator+(const char* narrow) const;
  CBasicString operator+(const char16_t* wide) const;
  /// @}

  /// Number of code units.
  int GetLength() const { return static_cast<int>(WideText.size()); }
  /// Ends with a NUL; valid until the value changes; never null.
  const char16_t* GetWideText() const { return WideText.c_str(); }
  /// All code units; valid until the value changes.
  std::u16string_view GetView() const { return WideText; }
  /// The text up to its first NUL as UTF-8, made anew by every call and owned by this object. Valid until the next
  /// call and until an operation other than SetAt, MakeLower and MakeUpper changes the value. Null when the text begins
  /// with a NUL, or holds a surrogate that can't be converted.
  char* GetNarrowText() const;
  /// Code unit at `index`; 0 for a bad index.
  char16_t GetAt(int index) const { return IsValidIndex(index) ? WideText[static_cast<std::size_t>(index)] : u'\0'; }
  /// The first and the last code unit; 0 for an empty text.
  /// @{
  char16_t GetFirst() const { return GetAt(0); }
  char16_t GetLast() const { return GetAt(GetLength() - 1); }
  /// @}
  /// Whether a code unit stands at `index`, from 0 on.
  bool IsValidIndex(int index) const { return index >= 0 && index < GetLength(); }
  /// CRC-32 of the code units, low byte first; 0 for an empty text. Case counts.
  std::uint32_t GetHash() const;

  /// Comparisons go by code units as unsigned numbers; a null pointer stands for the empty text.
  /// @{
  bool operator==(const CBasicString& other) const { return WideText == other.WideText; }
  bool operator==(const char* narrow) const { return *this == CBasicString(narrow); }
  bool operator==(const char16_t* wide) const { return *this == CBasicString(wide); }
  bool operator!=(const CBasicString& other) const { return !(*this == other); }
  bool operator!=(const char* narrow) const { return !(*this == narrow); }
  bool operator!=(const char16_t* wide) const { return !(*this == wide); }
  bool operator<(const CBasicString& other) const { return WideText < other.WideText; }
  bool operator<(const char* narrow) const { return *this < CBasicString(narrow); }
  bool operator<(const char16_t* wide) const { return *this < CBasicString(wide); }
  bool operator>(const CBasicString& other) const { return other < *this; }
  bool operator>(const char* narrow) const { return CBasicString(narrow) < *this; }
  bool operator>(const char16_t* wide) const { return CBasicString(wide) < *this; }
  /// @}
  /// Negative, 0 or positive, without regard to case as the current locale has it; a text ends at its first NUL.
  int CompareNoCase(const CBasicString& other) const;

  /// Index of the first `what` at or after `start`, or -1. An empty `what` is found at any valid `start`.
  int Find(const CBasicString& what, int start) const;
  /// Index of the last `unit` at or before `start`, or -1. A `start` of 0 means the last index.
  /// @{
  int ReverseFind(char unit, int start) const;
  int ReverseFind(char16_t unit, int start) const;
  /// @}
  /// The code units `first` to `last`, both inclusive; a `last` of -1 means the last index. Empty for bad indices and
  /// for a `last` of `first` - 1; a smaller valid `last` gives the tail from `first`.
  CBasicString Mid(int first, int last = -1) const;

  /// Replaces or removes the code unit at `index`. False for a bad index.
  /// @{
  bool SetAt(int index, char16_t unit);
  bool RemoveAt(int index);
  /// @}
  /// Shortens the text to `length` code units, or to none. False if it isn't longer, and for a negative length.
  /// @{
  bool Truncate(int length);
  bool Empty();
  /// @}
  /// Changes the case of all letters, as the current locale has it; the length stays. False for an empty text.
  /// @{
  bool MakeLower();
  bool MakeUpper();
  /// @}
  /// Removes what the current locale has as white space from the beginning or from the end. False if there was none.
  /// @{
  bool TrimLeft();
  bool TrimRight();
  /// @}
  /// Replaces every `what`, from left to right, without looking into what was put in. False if there is none.
  bool Replace(const CBasicString& what, const CBasicString& with);

  /// Formats as the C library's `vswprintf` does, in the current locale, up to 4095 characters. False, and no change,
  /// for a null format and when the result would be empty.
  bool Format(const char16_t* format, ...);
  /// There are no string resources here: always false.
  bool LoadString(int id, void* module = nullptr);

private:
  // The narrow text goes last: what is set or appended may have been made from it.
  void SetText(std::u16string text);
  void AppendText(std::u16string_view text);
  void DropNarrowText() { NarrowText.reset(); }

  std::u16string WideText;
  mutable std::unique_ptr<char[]> NarrowText;  ///< result of the last GetNarrowText; never copied with the value
};
