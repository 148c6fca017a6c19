#pragma once

#include <cstdint>

/// The class of a token.
enum GenericTokenTypes : std::uint32_t {
  GenericTokenOther = 0,         ///< anything else, such as a plain word
  GenericTokenEndOfFile = 1,     ///< the file, or the buffer that is being read, is at its end
  GenericTokenOpenBrace = 2,     ///< {
  GenericTokenCloseBrace = 3,    ///< }
  GenericTokenOpenBracket = 4,   ///< [
  GenericTokenCloseBracket = 5,  ///< ]
  GenericTokenOpenParen = 6,     ///< (
  GenericTokenCloseParen = 7,    ///< )
  GenericTokenString = 8,        ///< quoted text
  GenericTokenBoolean = 9,       ///< TRUE or FALSE in any case
  GenericTokenNumber = 10,       ///< decimal or hexadecimal
  GenericTokenUserDefined = 11,  ///< a word of the keyword table
};

/// What opening a file led to.
enum GenericLoadResultTypes : std::uint32_t {
  GenericLoadOK = 0,            ///< open, and the header accepted
  GenericLoadHeaderFailed = 1,  ///< readable, but the header was refused
  GenericLoadOpenFailed = 2,    ///< can't be opened or read
};

/// One row of a keyword table.
struct ParserKeywordEntry {
  /// The keyword, which matches in any case; zeros fill the rest.
  char Name[52];        // NOLINT(modernize-avoid-c-arrays): the layout is shared with the tables of hosts
  std::uint32_t Value;  ///< what GetUserDefinedType of a matching token gives
};
static_assert(sizeof(ParserKeywordEntry) == 56, "a row's layout is a format shared with other libraries");
