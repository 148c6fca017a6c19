#pragma once

#include <cstdint>
#include <vector>

#include "qelvrml/foundation/CBasicString.h"
#include "qelvrml/foundation/VRMLExport.h"

class CBasicListElement;
class CVRMLDictionarySeparator;

/// The kinds of entries. Each has a class of its own.
enum VRMLDictionaryEntryTypes : int {
  DictionaryEntryNone = 0,                 ///< of no kind: has no replay
  DictionaryEntrySeparator = 1,            ///< a scope with what was recorded in it
  DictionaryEntryCube = 2,                 ///< Cube or Box
  DictionaryEntryCone = 3,                 ///< Cone
  DictionaryEntryCylinder = 4,             ///< Cylinder
  DictionaryEntrySphere = 5,               ///< Sphere
  DictionaryEntryIndexedSet = 6,           ///< IndexedFaceSet or IndexedLineSet
  DictionaryEntryPointSet = 7,             ///< PointSet
  DictionaryEntryMaterial = 8,             ///< Material
  DictionaryEntryMaterialBinding = 9,      ///< MaterialBinding
  DictionaryEntryCoordinate = 10,          ///< Coordinate or Coordinate3
  DictionaryEntryNormal = 11,              ///< Normal; none is made for a node of a file
  DictionaryEntryNormalBinding = 12,       ///< NormalBinding
  DictionaryEntryTransform = 13,           ///< Transform
  DictionaryEntryMatrix = 14,              ///< MatrixTransform
  DictionaryEntryRotation = 15,            ///< Rotation
  DictionaryEntryScale = 16,               ///< Scale
  DictionaryEntryTranslation = 17,         ///< Translation
  DictionaryEntryUse = 18,                 ///< a USE statement
  DictionaryEntryElevationGrid = 19,       ///< ElevationGrid
  DictionaryEntryExtrusion = 20,           ///< Extrusion
  DictionaryEntryProtoUse = 21,            ///< an instance of a prototype
  DictionaryEntryTriangleStripSet = 22,    ///< TriangleStripSet
  DictionaryEntryTexture = 23,             ///< ImageTexture or PixelTexture
  DictionaryEntryTextureCoordinates = 24,  ///< TextureCoordinate
  DictionaryEntryTextureTransform = 25,    ///< TextureTransform
};

/// The record of what a DEF'ed node, or a node inside a DEF'ed separator, was given. A USE runs the node's define
/// operation again with these values.
///
/// An entry belongs to the object dictionary of its parser. Its name and type don't change while it is there, and the
/// type is that of its class. It is used by one thread at a time.
///
/// The entries of nodes have a getter and a setter for each argument of the define operation. The setters copy, arrays
/// sharing their values until one of the copies is written. A new entry has what Initialize sets.
class QELVRML_EXPORT CVRMLDictionaryEntry {
public:
  /// Nameless, of the type DictionaryEntryNone.
  CVRMLDictionaryEntry() { CVRMLDictionaryEntry::Initialize(); }
  CVRMLDictionaryEntry(const CVRMLDictionaryEntry&) = delete;
  CVRMLDictionaryEntry& operator=(const CVRMLDictionaryEntry&) = delete;
  /// To be called by the dictionary only: an entry that is a child has to leave its separator entries first.
  virtual ~CVRMLDictionaryEntry() = default;

  /// The DEF name; empty for a node that is recorded only because it stands inside a DEF'ed separator. It is changed by
  /// SetName alone, which computes its hash.
  /// @{
  virtual CBasicString& GetName() { return Name; }
  virtual void SetName(const CBasicString& name);
  /// @}
  /// A value of VRMLDictionaryEntryTypes. A replay takes the entry for one of the class that belongs to it.
  /// @{
  virtual int GetType() { return Type; }
  virtual void SetType(int type) { Type = type; }
  /// @}
  /// Puts the entry's own fields to their initial values and sets the type; the name stays. That of this base also sets
  /// the hash to 0.
  virtual void Initialize();

  /// GetHash of the name; 0 for an empty one.
  std::uint32_t GetNameHash() const { return NameHash; }

  /// Whether a separator entry has this entry as a child.
  bool IsChild() const { return !Holders.empty(); }
  /// Whether a replay of this entry is under way: another one does nothing.
  /// @{
  bool IsReplaying() const { return Replaying; }
  void SetReplaying(bool replaying) { Replaying = replaying; }
  /// @}

private:
  friend class CVRMLDictionarySeparator;

  /// A place in the children of a separator entry.
  struct Holder {
    CVRMLDictionarySeparator* Separator;
    CBasicListElement* Place;
  };

  CBasicString Name;
  std::uint32_t NameHash;
  int Type;
  std::vector<Holder> Holders;
  bool Replaying = false;
};
