#pragma once

#include <cstdint>

#include "qelvrml/foundation/CBasicString.h"

/// What a note is about. A load goes on behind each of these; the model lacks what the note says.
enum VRMLNoteTypes : std::uint32_t {
  VRMLNoteUnknownNode = 0,            ///< a node of a kind that this library doesn't know was passed over
  VRMLNoteDroppedNode = 1,            ///< a node was read and dropped: its kind has no place in the model
  VRMLNoteDroppedName = 2,            ///< the DEF name of a node of one of these two kinds means nothing
  VRMLNoteMisplacedNode = 3,          ///< a node stood where the node around it reads none; its } ended that one
  VRMLNoteRootClosed = 4,             ///< a } closed the scope its file began in: what follows has none or a wrong one
  VRMLNoteUnknownUse = 5,             ///< a USE of a name that means nothing
  VRMLNoteUnknownField = 6,           ///< an instance gave a field that its prototype doesn't have
  VRMLNoteFieldWithoutValue = 7,      ///< an instance gave a field without a value that is read for its type
  VRMLNoteDroppedPrototype = 8,       ///< a PROTO couldn't be read to its end, and isn't declared
  VRMLNoteNamelessPrototype = 9,      ///< the word behind a PROTO was taken already: no instance can name it
  VRMLNoteMissingFile = 10,           ///< a file couldn't be opened
  VRMLNoteRefusedFile = 11,           ///< a file was opened and can't be used: not VRML, being read already, no image
  VRMLNoteLimit = 12,                 ///< a limit was reached; what was beyond it was left out
  VRMLNoteExtrusionWithoutData = 13,  ///< an Extrusion lacks a spine or a cross-section
  VRMLNoteEmptyGeometry = 14,         ///< a geometry node added nothing to the model
  VRMLNoteNothingChosen = 15,         ///< a Switch chose none of its children
  VRMLNoteLostEnd = 16,               ///< a node or a list took its own } or ] along, so that a later } closes too much
  VRMLNoteNoGeometry = 17,            ///< the file led to no node that makes an object
  VRMLNoteLostParts = 18,             ///< faces or lines of a set name points that there aren't, and were left out
};
/// Number of kinds, whose values are 0 and up.
constexpr int VRMLNoteTypeCount = VRMLNoteLostParts + 1;

/// Something in a file that left no trace in the model, or not the one that its author meant. Equal ones are counted.
struct CVRMLNote {
  VRMLNoteTypes Kind = VRMLNoteUnknownNode;  ///< what it is about
  /// Of the node, name, field, prototype, file or limit, in the spelling of the file, cut to 256 bytes. A field stands
  /// behind its prototype and a dot. Without geometry, a prototype that was declared and not used. Empty for none.
  CBasicString Name;
  std::uint64_t Count = 1;  ///< how often it happened
  CBasicString File;        ///< path of the file of the first one; of a packed file its own
  /// Of the first one in that file, from 1 on. What happens in the body of a prototype has the line of the instance,
  /// and what a USE repeats has that of the USE. 0 where no place of a text plays a part.
  int Line = 0;
};
