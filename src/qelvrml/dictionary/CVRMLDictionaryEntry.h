#pragma once

#include <cstdint>
#include <vector>

#include "qelvrml/foundation/CBasicString.h"
#include "qelvrml/foundation/VRMLExport.h"

class CBasicListElement;
class CVRMLDictionarySeparator;

/// The kinds of entries.
enum VRMLDictionaryEntryTypes : int {
  DictionaryEntryNone = 0,
  DictionaryEntrySeparator = 1,
  DictionaryEntryCube = 2,
  DictionaryEntryCone = 3,
  DictionaryEntryCylinder = 4,
  DictionaryEntrySphere = 5,
  DictionaryEntryIndexedSet = 6,
  DictionaryEntryPointSet = 7,
  DictionaryEntryMaterial = 8,
  DictionaryEntryMaterialBinding = 9,
  DictionaryEntryCoordinate = 10,
  DictionaryEntryNormal = 11,
  DictionaryEntryNormalBinding = 12,
  DictionaryEntryTransform = 13,
  DictionaryEntryMatrix = 14,
  DictionaryEntryRotation = 15,
  DictionaryEntryScale = 16,
  DictionaryEntryTranslation = 17,
  DictionaryEntryUse = 18,
  DictionaryEntryElevationGrid = 19,
  DictionaryEntryExtrusion = 20,
  DictionaryEntryProtoUse = 21,
  DictionaryEntryTriangleStripSet = 22,
  DictionaryEntryTexture = 23,
  DictionaryEntryTextureCoordinates = 24,
  DictionaryEntryTextureTransform = 25,
};

/// The record of what a DEF'ed node, or a node inside a DEF'ed separator, was given. A USE runs the node's define
/// operation again with these values.
///
/// An entry belongs to the object dictionary of its parser. Its name doesn't change while it is there.
class QELVRML_EXPORT CVRMLDictionaryEntry {
public:
  CVRMLDictionaryEntry() { CVRMLDictionaryEntry::Initialize(); }
  CVRMLDictionaryEntry(const CVRMLDictionaryEntry&) = delete;
  CVRMLDictionaryEntry& operator=(const CVRMLDictionaryEntry&) = delete;
  virtual ~CVRMLDictionaryEntry() = default;

  /// The DEF name; empty for a node that is recorded only because it stands inside a DEF'ed separator.
  virtual CBasicString& GetName() { return Name; }
  virtual void SetName(const CBasicString& name);
  virtual int GetType() { return Type; }
  virtual void SetType(int type) { Type = type; }
  /// Puts the entry's own fields to their initial values and sets the type; the name stays.
  virtual void Initialize();

  /// GetHash of the name; 0 for an empty one.
  std::uint32_t GetNameHash() const { return NameHash; }

  /// Whether a separator entry has this entry as a child.
  bool IsChild() const { return !Holders.empty(); }
  /// Whether a replay of this entry is under way.
  bool IsReplaying() const { return Replaying; }
  void SetReplaying(bool replaying) { Replaying = replaying; }

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
