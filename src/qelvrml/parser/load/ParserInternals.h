#pragma once

#include "qelvrml/parser/CVRMLParser.h"

namespace qelvrml {

/// What the parser's own operations share beyond its public interface.
struct ParserInternals {
  static LoadState& Load(CVRMLParser& parser) { return *parser.Load; }
  static const LoadState& Load(const CVRMLParser& parser) { return *parser.Load; }
  static NameIndexedList& Entries(CVRMLParser& parser) { return *parser.ObjectDictionary; }
  static NameIndexedList& Prototypes(CVRMLParser& parser) { return *parser.PrototypeDictionary; }
  static bool& SkippingBlock(CVRMLParser& parser) { return parser.SkippingBlock; }
  static bool& AllowDictionaryUpdate(CVRMLParser& parser) { return parser.AllowDictionaryUpdate; }
  static NoteBook& Notes(CVRMLParser& parser) { return *parser.Notes; }
  static const CBasicString& UnpackedFile(const CVRMLParser& parser) { return parser.TemporaryFilename; }
  static std::vector<CBasicString>& MissingFiles(CVRMLParser& parser) { return parser.MissingFiles; }
};

}  // namespace qelvrml
