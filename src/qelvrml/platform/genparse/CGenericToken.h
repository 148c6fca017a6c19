#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/genparse/GenericTypes.h"

/// One token: its class, its value, and where its text stands in the input. A plain value that is cheap to copy; it
/// refers to the text that it was read from and holds none of its own.
class QELVRML_EXPORT CGenericToken {
public:
  /// The class of the token; GenericTokenOther at first. To set it changes neither the value nor the text.
  /// @{
  GenericTokenTypes GetDataType() const { return DataType; }
  void SetDataType(GenericTokenTypes type) { DataType = type; }
  /// @}
  /// The value of the keyword table's row; 0 for a token of another class than GenericTokenUserDefined.
  /// @{
  unsigned int GetUserDefinedType() const { return UserDefinedType; }
  void SetUserDefinedType(unsigned int type) { UserDefinedType = type; }
  /// @}
  /// Length of the text in bytes; that of a quoted string without its quotes. 0 for a token without text.
  int GetTokenLength() const;
  /// 0.0 for a token of another class than GenericTokenNumber.
  double GetNumericValue() const { return NumericValue; }
  /// False for a token of another class than GenericTokenBoolean.
  bool GetBooleanValue() const { return BooleanValue; }

private:
  friend class CGenericParser;

  /// How the text stands in the input.
  enum class Encodings : unsigned char {
    Plain,
    Quoted,   ///< behind a quote
    Escaped,  ///< behind a quote, with backslashes in it
    Shifted,  ///< a word of a buffer with shift codes in it
  };
  bool IsQuoted() const { return Encoding == Encodings::Quoted || Encoding == Encodings::Escaped; }

  /// The text as a token gives it; what isn't plain is decoded into `scratch`.
  std::string_view GetText(std::string& scratch) const;

  /// The text as it stands in the input, without quotes.
  std::string_view GetRawText() const { return {Begin + (IsQuoted() ? 1 : 0), RawLength}; }

  const char* Begin = nullptr;  ///< first character of the token, the opening quote included
  std::size_t RawLength = 0;
  double NumericValue = 0.0;
  GenericTokenTypes DataType = GenericTokenOther;
  unsigned int UserDefinedType = 0;
  bool BooleanValue = false;
  Encodings Encoding = Encodings::Plain;
};
