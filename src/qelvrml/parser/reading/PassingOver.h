#pragma once

#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/parser/reading/ReadingMark.h"

namespace qelvrml {

// Where the operations that pass over text leave the current token:
//
//   operation              passes over                          the current token is then
//   SkipBlock(false)       a block in { }                       its }
//   SkipBlock(true)        the same                             behind the }
//   SkipArray              a list in [ ]                        its ], or behind it, likewise
//   each of these, where   a node behind a DEF, or a USE: it    behind the node, whatever `advance` says
//   no block opens         is parsed with its effects off
//   PassOverNode           a node that is read and dropped      its }, or its keyword where no block opens: parsing
//                                                               it would come back here without end
//   PassOverUnopened       a node that needs one scope more     its }, or where it was if no block opens
//                          than may be open
//   PassOverStatement      a statement that is nested too deep  behind the statement

/// Parses the node at the current token with all effects off, if no block opens there or with the next token. False,
/// and only unknown words are passed over, if one does.
bool TryPassOverByParsing(CVRMLParser& parser);

/// For ParseBlock while a stretch is passed over by parsing: goes to the end of a stretch from the current token on
/// that the same outermost pass has been over, and gives its result. False, and nothing moves, unless the load has
/// passed over so much text that ends are remembered.
bool StepOverPassedStretch(CVRMLParser& parser, bool& result);

/// Goes to another place of the reading; what was read already from there on is paid for once more.
void GoBack(CVRMLParser& parser, const ReadingMark& place);

/// Passes over a statement that the load can't pay for: goes behind all that was read already, or over the node. False.
bool PassOverUnpaid(CVRMLParser& parser);

bool PassOverNode(CVRMLParser& parser);
bool PassOverUnopened(CVRMLParser& parser);
void PassOverStatement(CVRMLParser& parser);

}  // namespace qelvrml
