#pragma once

#include <string>

/// A wide text: the name of an object or a group.
class brixWRope {
public:
  brixWRope() = default;
  /// A null pointer gives the empty text.
  explicit brixWRope(const char16_t* text) : Text(text ? text : u"") {}

  const char16_t* GetText() const { return Text.c_str(); }
  bool IsEmpty() const { return Text.empty(); }

private:
  std::u16string Text;
};
