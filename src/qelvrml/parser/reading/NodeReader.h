#pragma once

#include <initializer_list>

#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/parser/load/Notes.h"

namespace qelvrml {

/// A file that a scene refers to.
struct FileReference {
  CBasicString Name;
  bool IsName = false;  ///< false for a bracket, or the end of the input, in the name's place
};

/// The steps that node parsers share. It reads the tokens of a parser and holds nothing of its own.
class NodeReader {
public:
  explicit NodeReader(CVRMLParser& parser) : Parser(parser) {}

  VRMLTokenTypes Current() const { return Parser.GetCurrentTokenType(); }
  bool Is(VRMLTokenTypes type) const { return Current() == type; }
  /// The text of the current token, valid until the next one is read.
  std::string_view Text() const { return Parser.GetIOManager()->GetCurrentTokenText(); }
  /// Whether a node is at its end: on its } or at the end of the input.
  bool AtNodeEnd() const { return Is(VRMLTokenCloseBrace) || Is(VRMLTokenEndOfFile); }
  bool AtListEnd() const { return Is(VRMLTokenCloseBracket) || Is(VRMLTokenEndOfFile); }

  /// Passes over tokens of these types.
  void StepOver(std::initializer_list<VRMLTokenTypes> types);
  /// Goes to the next {, or to the end of the input.
  void StepToOpenBrace();

  /// These take the current token's value if it is of the right type; the second one steps on then.
  bool TakeNumberHere(double& value);
  bool TakeNumberAndStep(float& value);
  /// These step onto the next token and take its value if it is of the right type.
  void TakeNumber(double& value);
  void TakeBoolean(bool& value);
  /// Numbers up to the first token that isn't one, behind an optional [, as a run list, or without their runs. False if
  /// there is no index.
  bool TakeRunList(brixIntArray& runs);
  bool TakeIndices(brixIntArray& indices);
  /// What the current token says as the name of a file.
  FileReference ReferenceHere() const;
  /// The reference at the current token, or behind the bracket there. Ends on it, or behind a ].
  FileReference TakeFirstUrl();

  /// Notes a node whose { is the current token, where a field is looked for: its } will end the node at hand.
  void LookForNode() const {
    if (Is(VRMLTokenOpenBrace)) NoteMisplacedNode(Parser);
  }
  /// Calls `handle` for each token up to the node's }; a keyword's handler leaves the last token of its value current.
  template <class Handler>
  void ForEachField(Handler handle) {
    for (bool atStart = true; !Is(VRMLTokenCloseBrace); atStart = false) {
      if (!atStart) LookForNode();
      handle(Current());
      if (!Parser.Tokenize()) break;
    }
  }
  /// The same for handlers that may stop on the node's } themselves: it is never stepped over.
  template <class Handler>
  void ForEachFieldUpToEnd(Handler handle) {
    for (bool atStart = true; !Is(VRMLTokenCloseBrace); atStart = false) {
      if (!atStart) LookForNode();
      handle(Current());
      if (!Is(VRMLTokenCloseBrace) && !Parser.Tokenize()) break;
    }
  }
  /// Calls `handle` until the node's } or the end of the input; it moves on by itself, by at least one token.
  template <class Handler>
  void WhileInNode(Handler handle) {
    for (bool atStart = true; !AtNodeEnd(); atStart = false) {
      if (!atStart) LookForNode();
      handle(Current());
    }
  }

  /// Reads the statements of a list up to its ]; true if one of them gave true.
  bool ParseBlocksUpToBracket();
  /// A node, whose result counts, or a list of nodes in [ ], of which one that gives true is enough. Ends behind the
  /// node, or on the ].
  void ParseNodeOrList(bool& result);

private:
  CVRMLParser& Parser;
};

}  // namespace qelvrml
