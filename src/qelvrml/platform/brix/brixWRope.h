#pragma once

#include <string>

/// A wide text, in UTF-16: the name of an object or a group.
class brixWRope {
public:
  /// The empty text.
  brixWRope() = default;
  /// A copy of the text up to its NUL. A null pointer gives the empty text.
  explicit brixWRope(const char16_t* text) : Text(text ? text : u"") {}

  /// Ends with a NUL and is never null; good until this is assigned to or destroyed.
  const char16_t* GetText() const { return Text.c_str(); }
  /// Whether the text has no characters.
  bool IsEmpty() const { return Text.empty(); }

private:
  std::u16string Text;
};
