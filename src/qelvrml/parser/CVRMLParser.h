#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "qelvrml/foundation/CBasicString.h"
#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/parser/CVRMLIOManager.h"
#include "qelvrml/parser/CVRMLNote.h"
#include "qelvrml/parser/VRMLBindingTypes.h"
#include "qelvrml/parser/VRMLTokenTypes.h"
#include "qelvrml/parser/VRMLTypes.h"
#include "qelvrml/platform/brix/brixArrays.h"
#include "qelvrml/platform/brix/brixFloatPoint.h"
#include "qelvrml/platform/brix/brixMatrix4x4.h"
#include "qelvrml/platform/brix/brixVector.h"
#include "qelvrml/platform/brixex/CKelList.h"
#include "qelvrml/platform/brixex/CKelWorld.h"
#include "qelvrml/platform/genparse/CGenericIOState.h"
#include "qelvrml/scene/CVRMLSeparator.h"

namespace qelvrml {
class NameIndexedList;
class NoteBook;
struct LoadState;
struct ParserInternals;
}  // namespace qelvrml

class CVRMLDictionaryEntry;
class CVRMLPrototype;

/// Loads VRML 1.0 and 2.0 scenes into a world.
///
/// A host constructs a parser, may set the two callbacks, calls Parse, and asks for the unit, the notes and the missing
/// files afterwards. It needs nothing else of this class: the rest are the steps of a load, for hosts that build scenes
/// of their own or derive from it. What was loaded is the world's; the parser keeps DEF names, prototypes and whatever
/// scope a file left open, so that a second load on the same parser still knows the names of the first.
///
/// Threads: a parser is used by one thread at a time, and its callbacks run on that thread. Any number of parsers can
/// load at once, each into a world of its own. A thread with a stack of 1 MiB is enough for any file.
///
/// Errors: bad input raises nothing; what can't be read is passed over. When memory runs out, a model object that can't
/// be made is left out of the model; any other failed allocation leaves the operation as std::bad_alloc. What a
/// callback throws leaves the operation that has called it.
///
/// The parse operations read tokens: they begin with the current token on their node's keyword and end with it on the
/// node's last token. The define operations take values, read no tokens, work on the current separator, and record
/// their values in the dictionary if GetDefiningObjects says so. A false result means that there was nothing to work
/// on, as without a current separator, or that nothing was read or made, as behind the limits of a load. Indices,
/// positions and rows count from 0; points are row vectors.
class QELVRML_EXPORT CVRMLParser {
public:
  /// Receives a percentage from 1 to 99; see SetLoaderPtr.
  using LoaderFunction = void (*)(int percentage);
  /// Receives the name of the file that is being read, the name of the file that is wanted, and a text for the path of
  /// that file. A result other than 0 means that the path is good. See SetGetSupportFilePtr.
  using SupportFileFunction = int (*)(CBasicString currentFile, CBasicString wantedFile, CBasicString& path);

  /// A parser without a world and without callbacks.
  CVRMLParser();
  /// The same with a world, which may be null and isn't owned, and a name in its token source. Nothing is read: Parse
  /// gets a world and a name of its own.
  CVRMLParser(CKelWorld* world, const CBasicString& file);
  /// Copies the fields. The open separators, the DEF names, the prototypes, the notes and the missing files stay with
  /// their owner: a copy has none of its own, and its current separator is the original's, good only as long as that
  /// lives.
  /// @{
  CVRMLParser(const CVRMLParser& other);
  CVRMLParser& operator=(const CVRMLParser& other);
  /// @}
  /// Destroys DEF names, prototypes and open separators. The world is left alone, and may be gone already.
  ~CVRMLParser();

  // --- Loading

  /// Loads a file into `world`.
  ///
  /// - `world` belongs to the host and outlives the load, not the parser. The scene is added to what the world holds.
  ///   With null the file is read, and nothing is placed.
  /// - `file` is opened as it stands, a relative path from the working directory on. If there is no such file, one
  ///   whose path differs only in the case of ASCII letters is taken, if it is the only one. Only regular files are
  ///   opened. A file that is packed with gzip or PK-zip is told by its first bytes, whatever its name; of a PK-zip
  ///   archive the first member named `.wrl` is read, or else its first one.
  /// - One statement at the top of the file that succeeds makes it VRMLLoadOK, or VRMLLoadWarnings if GetLastWarning
  ///   isn't 0 by then. A file with nothing behind its header is VRMLLoadOK as well. What the model lacks is told by
  ///   GetNotes and GetMissingFiles.
  /// - With VRMLLoadOpenFailed, VRMLLoadDecompressFailed and a refused header the world stays as it was. When no
  ///   statement succeeded, which is VRMLLoadFailed too, it may hold parts of the scene.
  /// - At the end DetermineUnits scales the whole world, what it held before included.
  /// - std::bad_alloc, and what a callback throws, leave this operation. The scopes of this load are closed then and
  ///   the temporary file of a packed scene is gone; what had entered the world is whole, in the unit of the file, and
  ///   parser and world are good for the next load.
  /// - A callback that calls it on the parser that is loading gets VRMLLoadFailed; the load around it goes on.
  ///
  /// A second load on one parser begins with new notes, missing files and limits. DEF names and prototypes of earlier
  /// loads are still known, scopes that their files left open are still open, and their properties are inherited. The
  /// last warning and the last percentage stay too: SetLastWarning(0) and SetLastPercentage(0) clear them.
  VRMLLoadResultTypes Parse(CKelWorld* world, const CBasicString& file);
  /// Scales a model of less than 25 units by 100, 10 and 1000 in turn, until it has 25 or the unit is the micron, and
  /// sets the image units. The size is the largest extent of the world's box along an axis; an empty world ends in
  /// microns. Does nothing without a world.
  void DetermineUnits();
  /// Reports progress if it has risen by a percent; not while a block is skipped. Tokenize calls it.
  void UpdateStatus();
  /// Takes a snapshot of the token source together with the DEF name at hand. False when nothing is being read.
  bool SaveIOState(CGenericIOState& state);
  /// Reads on from a snapshot, with its DEF name. False, and no change, for an empty one.
  bool RestoreIOState(const CGenericIOState& state);
  /// The rotation that turns the axis of a revolved surface from +Z to +Y: about +X by -pi / 2 in single precision.
  static brixMatrix4x4 CreateBaseTranslationMatrix();
  /// Null without a world, or when it has none. Belongs to the world.
  CKelTextureManager* GetTextureManager() const { return World ? World->GetTextureManager() : nullptr; }

  /// The world of the last load, not owned; null before the first. Parse sets it.
  /// @{
  CKelWorld* GetWorld() const { return World; }
  void SetWorld(CKelWorld* world) { World = world; }
  /// @}
  /// The highest percentage that was reached, 0 at first. Later loads report above it only: a host that wants their
  /// whole progress sets 0 before each.
  /// @{
  int GetLastPercentage() const { return LastPercentage; }
  void SetLastPercentage(int percentage) {
    LastPercentage = percentage;
    IOManager.ClearMilestone();
  }
  /// @}
  /// The unit that the numbers of the world have since the last load that read its file to the end.
  ///
  /// The numbers of a file count as metres. A world whose largest extent is below 25 of them is scaled to centimetres,
  /// below 25 of these to millimetres, and below 25 of those to microns: a cube of 2 comes out with a size of 200 and
  /// VRMLUnitsCentimeters. Before the first load, and when an exception has ended one, it is VRMLUnitsMeters. A file
  /// that can't be opened, or unpacked, or whose header is refused leaves it as it was.
  VRMLImageUnitsTypes GetImageUnits() const { return ImageUnits; }
  /// Has no effect on a load, which sets it anew.
  void SetImageUnits(VRMLImageUnitsTypes units) { ImageUnits = units; }
  /// The function that is told of progress, null at first and for none.
  ///
  /// It is called on the loading thread, inside Parse, when the place in the text has come a percent further than ever
  /// before: with strictly rising numbers from 1 to 99, of which a small file leaves some out. The end of a load isn't
  /// reported. While an inlined file is read the percentage is that of this file, so it can run ahead and then stand
  /// still. What is passed over reports nothing. The function may look at the world, which is in the making, and at
  /// this parser; it may throw, which ends the load.
  /// @{
  LoaderFunction GetLoaderPtr() const { return LoaderPtr; }
  void SetLoaderPtr(LoaderFunction loader) { LoaderPtr = loader; }
  /// @}
  /// The function that tells where the image of an ImageTexture lies, null at first and for none. Inlined files and
  /// external prototypes are never asked for.
  ///
  /// It is called on the loading thread, inside Parse, for each such node of a world with a texture manager; more than
  /// once for text that is read twice, and also for nodes that are then dropped. It may throw, which ends the load.
  ///
  /// - `currentFile` is the name of the file that holds the node: as it was given to Parse, the path of an inlined
  ///   file, or that of the temporary file for a packed scene.
  /// - `wantedFile` is the first URL of the node as the file spells it, without quotes; empty if it has none.
  /// - `path` comes in empty. With a result of 0 what was put in is dropped.
  ///
  /// The path is turned to lower case (ASCII letters only) and opened as it stands, a relative one from the working
  /// directory on, whatever folder the scene is in; if there is no such file, one whose path differs only in case is
  /// taken, if it is the only one. Without a good path, or a file there, the image is looked for in the folders that
  /// the host has named to the world's texture manager (CKelTextureManager::AddAlternatePath). A path of more than
  /// 4,096 characters isn't opened.
  /// @{
  SupportFileFunction GetGetSupportFilePtr() const { return GetSupportFilePtr; }
  void SetGetSupportFilePtr(SupportFileFunction function) { GetSupportFilePtr = function; }
  /// @}
  /// 0, or a value of VRMLWarningTypes: the last warning of all loads since it was cleared with 0. One that is left
  /// from an earlier load makes the next good one VRMLLoadWarnings.
  /// @{
  int GetLastWarning() const { return LastWarning; }
  void SetLastWarning(int warning) { LastWarning = warning; }
  /// @}
  /// What the last load came across and the model doesn't show: at most 256 different notes, in the order of their
  /// first ones. Each counts how often it happened. They stay until the next load or the end of the parser.
  const std::vector<CVRMLNote>& GetNotes() const;
  /// How often the last load came across something that is different from all of its notes: for want of room, or of
  /// memory. 0 if the notes are complete.
  std::uint64_t GetUnlistedNotes() const;

  // --- Token view

  /// The token source; never null, and a part of this parser.
  CVRMLIOManager* GetIOManager() { return &IOManager; }
  /// The version of the main file, also while an inlined file of another one is read.
  VRMLVersionTypes GetVersion() const { return IOManager.GetVersion(); }
  /// What CVRMLIOManager tells of the current and the next token. A text ends with a NUL and belongs to the parser; it
  /// is valid until the same operation is called again, or another token is read.
  /// @{
  VRMLTokenTypes GetCurrentTokenType() const { return IOManager.GetCurrentTokenType(); }
  VRMLTokenTypes GetNextTokenType() const { return IOManager.GetNextTokenType(); }
  GenericTokenTypes GetCurrentTokenDataType() const { return IOManager.GetCurrentTokenDataType(); }
  GenericTokenTypes GetNextTokenDataType() const { return IOManager.GetNextTokenDataType(); }
  bool GetCurrentTokenBeginType() const { return IOManager.GetCurrentTokenBeginType(); }
  bool GetNextTokenBeginType() const { return IOManager.GetNextTokenBeginType(); }
  bool GetCurrentTokenEndType() const { return IOManager.GetCurrentTokenEndType(); }
  bool GetNextTokenEndType() const { return IOManager.GetNextTokenEndType(); }
  char* GetCurrentTokenString() { return IOManager.GetCurrentTokenString(); }
  char* GetNextTokenString() { return IOManager.GetNextTokenString(); }
  double GetCurrentTokenNumericValue() const { return IOManager.GetCurrentTokenNumericValue(); }
  double GetNextTokenNumericValue() const { return IOManager.GetNextTokenNumericValue(); }
  bool GetCurrentTokenBooleanValue() const { return IOManager.GetCurrentTokenBooleanValue(); }
  bool GetNextTokenBooleanValue() const { return IOManager.GetNextTokenBooleanValue(); }
  /// @}
  /// Moves on by one token; false when the current token is now the end of the input. Reports progress, and marks words
  /// that name a prototype (VRMLTokenProtoUse).
  bool Tokenize();
  /// Passes over words that mean nothing to the parser. Ends on the first other token.
  void MoveUpToInterestingToken();

  // --- Dispatch

  /// Reads one statement, or a whole VRML 1.0 separator, and ends on the first token behind it. The result is that of
  /// the node's parse operation; true for a token that means nothing here, which is stepped over. A false inside a
  /// separator ends the call there: its scope stays open until its } is read.
  bool ParseBlock();
  /// Passes over the block that opens at the current or the next token, or, behind a DEF or a USE, over the node there,
  /// which is then parsed without effect. Ends on the block's last token, with `advance` behind it, and behind a node
  /// that was parsed. A block is scanned, not read: only the two delimiters count there. Without them it is one in { },
  /// and SkipArray passes over one in [ ].
  /// @{
  void SkipBlock(GenericTokenTypes open, GenericTokenTypes close, bool advance);
  void SkipBlock(bool advance) { SkipBlock(GenericTokenOpenBrace, GenericTokenCloseBrace, advance); }
  void SkipArray(bool advance) { SkipBlock(GenericTokenOpenBracket, GenericTokenCloseBracket, advance); }
  /// @}
  /// Whether the node at hand is to be recorded in the dictionary: it stands behind a DEF, or in a scope that is being
  /// recorded.
  bool GetDefiningObjects() const;
  /// Whether a finished object may enter the model: a separator is open, and no block is skipped.
  bool CanAddObjectToSeparator() const { return !SkippingBlock && CurrentSeparator; }
  /// Whether nodes are parsed without effect: objects and dictionary entries are dropped, and names aren't replayed.
  /// Scopes and the properties in them still change. False at first.
  /// @{
  bool GetSkippingBlock() const { return SkippingBlock; }
  void SetSkippingBlock(bool skipping) { SkippingBlock = skipping; }
  /// @}
  /// Nodes that are read and dropped: the model has no place for them. They pass over the node's block, and are always
  /// true.
  /// @{
  bool ParseAsciiText();
  bool ParseCallback();
  bool ParseFontStyle();
  bool ParseShapeHints();
  bool ParseOrthographicCamera();
  bool ParsePerspectiveCamera();
  bool ParseDirectionalLight();
  bool ParsePointLight();
  bool ParseSpotLight();
  bool ParseInfo();
  /// @}

  // --- Field values. All give true if anything usable was read; else a list stays as it was.

  /// Three numbers; ends on the last one. False, on the first token that isn't a number, with the components ahead of
  /// it set.
  bool ParsePoint(brixFloatPoint& point);
  /// Two numbers; ends on the last one. False as for a point.
  bool Parse2DPoint(brix2DFloatPoint& point);
  /// An optional [ and three numbers; ends on the last one. The alpha becomes 1. With false the colour stays.
  bool ParseColor(brixChroma& colour);
  /// Any { and [, then up to four numbers: the axis and the angle in radians; what is missing is 0. Ends behind the
  /// last one.
  bool ParseRotationVector(brixVector& axis, double& angle);
  /// One value, or a list in brackets of any kind; ends on the last number, or behind ]. One value that can't be read
  /// leaves an array of one point.
  /// @{
  bool ParsePointArray(brixFloatPointArray& points);
  bool Parse2DPointArray(brix2DFloatPointArray& points);
  /// @}
  /// One value, or a list in [ ], where any other token counts as 0.0; ends on the value, or on ]. False for an empty
  /// list.
  bool ParseFloatArray(brixDoubleArray& values);
  /// One colour, or a list in [ ]; ends on the last number, or on ].
  bool ParseColorArray(brixChromaArray& colours);
  /// One rotation, or a list in brackets of any kind; ends behind the last number, or on the closing bracket. The two
  /// arrays have the same length, and angles are in radians.
  bool ParseRotationVectorArray(brixVectorArray& axes, brixDoubleArray& angles);
  /// An optional [ and numbers, cut to integers; -1 ends a run. Appends to two lists of integers
  /// (CBasicList::SetIntegerElements): the indices, and the lengths of the runs that have any. Ends on the first token
  /// that isn't a number.
  bool ParseIndexArray(CKelList& values, CKelList& counts);
  /// Lays the two lists out as a run list: for each run its length and its indices; always true. Without counts all
  /// indices are one run; indices that a run lacks are 0.
  static bool MergeIndexLists(brixIntArray& out, CKelList& values, CKelList& counts);

  // --- Separators

  /// The innermost open scope, owned by the stack; null for none. What is set is its newest separator, or null.
  /// @{
  CVRMLSeparator* GetCurrentSeparator() const { return CurrentSeparator; }
  void SetCurrentSeparator(CVRMLSeparator* separator) { CurrentSeparator = separator; }
  /// @}
  /// The open separators, newest first; they belong to this parser. Never null.
  CKelList* GetSeparatorStack() { return &SeparatorStack; }
  /// Opens a scope by PushSeparator, and records it if that is called for. False when too many are open. Throws
  /// std::bad_alloc if there is no memory for the separator.
  bool DefineSeparator();
  /// Links a new separator in, which takes over the state of the current one and becomes it, with a group of its own
  /// behind a DEF name. It belongs to the stack then. False for null, and without memory, and it stays with the caller.
  bool PushSeparator(CVRMLSeparator* separator);
  /// Closes the innermost scope. Its group enters the group around it, or the world, if anything is in it, and its
  /// diffuse colours pass to the enclosing scope. False if none is open.
  bool PopSeparator();
  /// Destroys all open separators, with the groups that haven't entered the model. The current separator isn't reset:
  /// SetCurrentSeparator(nullptr) has to follow.
  void ClearSeparatorStack();

  // --- Placing objects

  /// Places an object in the group of the current scope, under the DEF name at hand, and takes it over: one that isn't
  /// placed is destroyed. True also for one that is destroyed because a block is skipped or no scope is open. False for
  /// null, and if the scope has no group. The material is that of the first list position, or of `index`; or the one
  /// of a part of an indexed set by the material binding: part number `part`, whose `count` vertices start at position
  /// `first` of the run list.
  /// @{
  bool AddObjectToSeparator(brixBaseObject* object);
  bool AddObjectToSeparator(brixBaseObject* object, int index);
  bool AddObjectToSeparator(brixBaseObject* object, int part, int first, int count);
  /// @}
  /// Gives the object the DEF name at hand; does nothing for null or without a scope.
  void SetupObjectAdd(brixBaseObject* object);

  // --- Grouping nodes

  /// Nodes that hold other nodes.
  ///
  /// - ParseSeparator opens the scope and ends on the last token ahead of the first statement. ParseBlock reads these
  ///   and closes the scope at the }. False without a {, and when too many scopes are open.
  /// - ParseGroup, ParseShape, ParseLevelOfDetail and ParseCollision open a scope, read their children and close it. A
  ///   DEF name goes to the scope's group. All levels of detail enter the model, the proxy of a collision doesn't.
  /// - ParseShape reads its appearance ahead of its geometry, in whatever order they stand.
  /// - ParseAppearance and a ParseSwitch with a `choice` behind its index work in the scope around them. The latter
  ///   reads the chosen child alone; any other switch is read as a separator, with all its children.
  ///
  /// The result is that of the last field that holds nodes, of which one true in a list is enough. Without such a field
  /// it is false for groups, collisions and appearances, and true for the others. A switch that chooses, and levels of
  /// detail in a list, are always true.
  /// @{
  bool ParseSeparator();
  bool ParseGroup();
  bool ParseShape();
  bool ParseAppearance();
  bool ParseSwitch();
  bool ParseLevelOfDetail();
  bool ParseCollision();
  /// @}

  // --- Dictionary

  /// All entries, oldest first; they belong to this parser. Never null.
  CKelList* GetObjectDictionary();
  /// Takes an entry over; an older one of the same name goes. In a scope that is being recorded it becomes a child of
  /// the scope's entry. False, and the entry is destroyed, while a block is skipped and without memory; false for null.
  bool AddDictionaryObject(CVRMLDictionaryEntry* entry);
  /// The entry of a name, by its hash; null if there is none. Recorded USE statements aren't found.
  CVRMLDictionaryEntry* FindObjectInDictionary(const CBasicString& name);
  /// Removes and destroys an entry of this parser. One that a closed separator's entry holds as a child, or whose
  /// instance is being read, only loses its name. False for null.
  bool RemoveDictionaryObject(CVRMLDictionaryEntry* entry);
  /// Takes an entry out of what the open separators record; true if it was there. The entry stays in the dictionary.
  bool RemoveDictionaryObjectFromSeparators(CVRMLDictionaryEntry* entry);
  /// Destroys all entries; open separators stop recording.
  void ClearObjectDictionary();
  /// Whether the statement at hand stands behind a DEF, and its name, which is empty without one. ParseBlock sets both
  /// anew for each statement.
  /// @{
  bool GetDefinedEntity() const { return DefinedEntity; }
  void SetDefinedEntity(bool defined) { DefinedEntity = defined; }
  CBasicString& GetEntityName() { return EntityName; }
  void SetEntityName(const CBasicString& name) { EntityName = name; }
  /// @}
  /// Whether nodes may be recorded; true at first, false during a replay and for nodes that are passed over.
  /// @{
  bool GetAllowDictionaryUpdate() const { return AllowDictionaryUpdate; }
  void SetAllowDictionaryUpdate(bool allow) { AllowDictionaryUpdate = allow; }
  /// @}
  /// Reads a USE statement and ends on its name, which may be the current token already. False without a current
  /// separator.
  bool ParseUse();
  /// Replays the entry of a name in the current scope, and records a CVRMLDictionaryUse if that is called for. True
  /// without an effect for an empty or unknown name, without a current separator, and while a block is skipped; else
  /// the result of the replay.
  bool DefineUse(const CBasicString& name);
  /// Runs the define operation of an entry with the entry's values; nothing is recorded meanwhile. A separator entry
  /// opens a scope, replays its children and closes the scope. True without an effect for an entry whose replay is
  /// under way already: a name in its own definition. False for null, for a type that no node has, and while a block is
  /// skipped.
  bool ServiceDictionaryObject(CVRMLDictionaryEntry* entry);

  // --- Property nodes: they change what is in force in the current scope, and fail without one.

  /// Reads a MaterialBinding or NormalBinding; without a value it is VRMLBindingOverall.
  bool ParseBinding();
  /// Sets the binding of materials, or else of normals, which nothing reads.
  bool DefineBinding(bool isMaterial, VRMLBindingTypes binding);
  /// Reads the points of a Coordinate or Coordinate3; false if there are none.
  bool ParseCoordinate3();
  /// Replaces the coordinates.
  bool DefineCoordinate3(const brixFloatPointArray& points);
  /// Passes over the node: normals of a file have no effect. Always true.
  bool ParseNormal();
  /// Replaces the normals; sets of triangle strips alone use them.
  bool DefineNormal(const brixVectorArray& vectors);
  /// Reads a Color: its colours become the diffuse colours. They aren't recorded. False if there are none.
  bool ParseColor3();
  /// Reads a Material. A field that it lacks is an empty list; an ambient intensity other than 0 makes the ambient
  /// colours of the diffuse ones.
  bool ParseMaterial();
  /// Replaces the colours, the shininess (0 to 1) and the transparency (0 opaque, to 1), also by empty lists.
  bool DefineMaterial(const brixChromaArray& ambient, const brixChromaArray& diffuse, const brixChromaArray& specular,
                      const brixChromaArray& emissive, const brixDoubleArray& shininess,
                      const brixDoubleArray& transparency);
  /// Reads a Transform; under VRML 2.0 with its children, in a scope of its own.
  bool ParseTransform();
  /// Puts a transformation in front of the one in force. A point goes through: move by -`center`, `rotation`,
  /// `scaleOrientation`, `scaleFactor`, the inverse of `scaleOrientation`, move by `center`, `translation`.
  bool DefineTransform(const brixFloatPoint& translation, const brixFloatPoint& scaleFactor,
                       const brixMatrix4x4& rotation, const brixMatrix4x4& scaleOrientation,
                       const brixFloatPoint& center);
  /// The transformations of VRML 1.0 with one field each: a parse operation reads the node, a define operation puts the
  /// transformation in front of the one in force, so that it acts first. Numbers that a node lacks are those of the
  /// identity; a Rotation without any number fails. A rotation in a file is an axis and an angle in radians.
  /// ParseMatrixTransform and ParseRotation end on the token behind their last number.
  /// @{
  bool ParseMatrixTransform();
  bool DefineMatrixTransform(const brixMatrix4x4& matrix);
  bool ParseRotation();
  bool DefineRotation(const brixMatrix4x4& matrix);
  bool ParseScale();
  bool DefineScale(const brixFloatPoint& scaleFactor);
  bool ParseTranslation();
  bool DefineTranslation(const brixFloatPoint& translation);
  /// @}

  /// Loads an image, or finds it among those that are loaded, and puts it in force. The texture manager keeps it under
  /// the path that it was opened by. False if there is no such file, or it can't be decoded. Without a texture manager
  /// or a scope the node is passed over: true.
  bool ParseImageTexture();
  /// Gives an image of three or four components to the texture manager, without its alpha, and puts it in force. False
  /// for others, and without a size. Without a texture manager or a scope the node is passed over: true.
  bool ParsePixelTexture();
  /// Puts a texture in force by its id in the texture manager; -1 for none.
  bool DefineTexture(int textureId, TextureWrapTypes wrapS, TextureWrapTypes wrapT);
  /// Reads a TextureTransform, whose rotation is in radians in a file. Without a texture manager or a scope the node is
  /// passed over: true.
  bool ParseTextureTransform();
  /// The rotation is in degrees. Scale and rotation reach the model, the others are kept for hosts.
  bool DefineTextureTransform(const brix2DFloatPoint& center, const brix2DFloatPoint& scale,
                              const brix2DFloatPoint& translation, double rotation);
  /// Reads the points of a TextureCoordinate; true also if there are none, and then nothing changes.
  bool ParseTextureCoordinate();
  /// Coordinates for the next object that is placed in this very scope.
  bool DefineTextureCoordinate(const brix2DFloatPointArray& points);

  // --- Geometry nodes: they make objects with what is in force in the current scope, brought to world coordinates.
  // They fail without a scope, when an object can't be placed, and when the load may not make so much any more.

  /// A cone about +Y with its middle in the origin and its tip up: radius 1, height 2, side and bottom without fields.
  bool ParseCone();
  /// Side and bottom are an object each; under VRML 1.0 the bottom is made always. False if neither is.
  bool DefineCone(double bottomRadius, double height, bool side, bool bottom);
  /// A box about the origin along the axes; 2 by 2 by 2 without fields.
  /// @{
  bool ParseCube();
  bool ParseBox();
  /// @}
  /// Sizes are whole extents along x, y and z.
  bool DefineCube(double width, double height, double depth);
  /// A cylinder about +Y with its middle in the origin: radius 1 and height 2 without fields. Its parts play no part.
  bool ParseCylinder();
  /// Makes the side and two disks, with materials of their own if the binding is per part. False for a radius or height
  /// within 1e-6 of 0.
  bool DefineCylinder(double radius, double height);
  /// A sphere about the origin: radius 1 without a field.
  /// @{
  bool ParseSphere();
  bool DefineSphere(double radius);
  /// @}
  /// Adds a disk, given in world coordinates, with the material of a list position. True also where no object may enter
  /// the model.
  bool AddDiskToModel(const brixFloatPoint& centre, double radius, const brixVector& normal, int materialIndex);
  /// Reads an IndexedFaceSet or IndexedLineSet with the nodes in its fields. Its colours are in force for it alone.
  bool ParseIndexedSet();
  /// Faces or lines over the current coordinates; the arguments are run lists, each run a count and that many indices.
  /// Runs that name points which aren't there are left out. With a binding for the whole set, faces are one object;
  /// else, and for lines, each run is. Only a set of which something was placed is recorded. Normal indices have no
  /// effect.
  bool DefineIndexedSet(bool isFaceSet, const brixIntArray& coordIndex, const brixIntArray& materialIndex,
                        const brixIntArray& normalIndex);

  /// Reads a PointSet: all coordinates without fields, or from a start on with a negative number.
  bool ParsePointSet();
  /// Dots at a range of the current coordinates; the range is cut to them. False for no points.
  bool DefinePointSet(int startIndex, int numPoints);
  /// Reads a TriangleStripSet over the current coordinates.
  bool ParseTriangleStripSet();
  /// Strips of so many vertices each, which follow one another through the current coordinates, as one object. True
  /// also without coordinates. False without counts.
  bool DefineTriangleStripSet(const brixIntArray& counts);
  /// Reads an ElevationGrid; solid without a field.
  bool ParseElevationGrid();
  /// A mesh, or with `solid` false lines along the grid. Dimensions are cut to integers. A missing height is 0. False
  /// without heights, for a grid of more than 1,048,576 points that lacks some, and for a dimension below 1 or a
  /// spacing within 1e-6 of 0.
  bool DefineElevationGrid(bool solid, const brixDoubleArray& heights, double xDimension, double xSpacing,
                           double zDimension, double zSpacing);
  /// Point of column `i` and row `j` in the scope's coordinates: (`xSpacing` i, height i + j `xDimension`, `zSpacing`
  /// j). A height that isn't there is 0; `zDimension` plays no part.
  static brixFloatPoint GetElevationGridPoint(double i, double j, const brixDoubleArray& heights, double xDimension,
                                              double xSpacing, double zDimension, double zSpacing);
  /// Reads an Extrusion: solid, with caps, unscaled and unturned without fields. An odd number of values in its
  /// cross-section counts as none.
  bool ParseExtrusion();
  /// A mesh along `spine`, and a cap at each end that is asked for. Angles are in radians; scale and cross-section hold
  /// pairs of x and z. One pair of scale, or one rotation, serves all sections; a longer list that ends early leaves
  /// the rest unscaled or unturned. An empty array sets the warning VRMLWarningExtrusionData and fails. The result is
  /// that of the last of these pieces. `solid` has no effect.
  bool DefineExtrusion(bool solid, bool beginCap, bool endCap, const brixVectorArray& axes,
                       const brixDoubleArray& angles, const brixDoubleArray& scale, const brixDoubleArray& crossSection,
                       const brixFloatPointArray& spine);
  /// A row of cross-section points for each spine point, in the scope's coordinates; false for more than 33,554,432
  /// points, and for a cross-section of no pair.
  static bool GetExtrusionMesh(brixFloatPointArray& mesh, const brixVectorArray& axes, const brixDoubleArray& angles,
                               const brixDoubleArray& scale, const brixDoubleArray& crossSection,
                               const brixFloatPointArray& spine);
  /// One row of that mesh; false for a cross-section of no pair.
  static bool GetExtrusionCrossSectionPoints(int index, brixFloatPointArray& points, const brixVectorArray& axes,
                                             const brixDoubleArray& angles, const brixDoubleArray& scale,
                                             const brixDoubleArray& crossSection, const brixFloatPointArray& spine);
  /// What places the cross-section at a spine point: its scale, its rotation, the shortest rotation of +Y onto the
  /// tangent, and the move there. The identity for a bad index.
  static brixMatrix4x4 CreateExtrusionCrossSectionTransform(int index, const brixVectorArray& axes,
                                                            const brixDoubleArray& angles, const brixDoubleArray& scale,
                                                            const brixFloatPointArray& spine);
  /// Unit vector along the spine at one of its points, from the point before to the one behind it; +Y for a spine of
  /// one point and for a bad index. A closed spine's last tangent is its first.
  static brixVector GetExtrusionTangentVector(int index, const brixFloatPointArray& spine);
  /// Closes one row of a mesh in world coordinates; true if a piece entered the model. A row that touches itself has
  /// several loops: those inside others are holes. False for a row outside the mesh.
  bool DefineExtrusionCap(int row, int pointsInRow, const brixFloatPointArray& mesh);

  // --- Prototypes

  /// All prototypes, in the order of their declaration; they belong to this parser. Never null.
  CKelList* GetPrototypeDictionary();
  /// The first prototype whose name has the hash of `name`; null if there is none, and for a null name.
  /// @{
  CVRMLPrototype* FindPrototype(const CBasicString& name);
  CVRMLPrototype* FindPrototype(const char* name);
  /// @}
  /// Takes a prototype over; false for null, and without memory, and it stays with the caller.
  bool AddPrototypeToDictionary(CVRMLPrototype* prototype);
  /// Gives a prototype back to the caller; false for null.
  bool RemovePrototypeFromDictionary(CVRMLPrototype* prototype);
  /// Destroys all prototypes.
  void ClearPrototypeDictionary();
  /// Reads a PROTO statement into the dictionary of prototypes. False without a body, without a current separator, and
  /// while a block is skipped. A name that is a keyword, or that of a prototype already, isn't taken: no instance can
  /// name such a prototype.
  bool ParseProto();
  /// Reads the file of an EXTERNPROTO in the place of the statement, as an inlined file; its prototypes count under
  /// their own names. True without a current separator.
  bool ParseExternProto();
  /// Reads an instance, with the current token on the prototype's name. False for an unknown one.
  bool ParseProtoUse();
  /// Expands an instance from its captured text, which may be null, and reads its nodes; `length` is in bytes. True
  /// also for a prototype without a body. False for an unknown one, without a current separator, while a block is
  /// skipped, and for more than 64 expansions inside one another.
  bool DefineProtoUse(const CBasicString& name, const char* text, int length);

  // --- Files

  /// Reads the file that an Inline or WWWInline names first, beside the current file, in the place of the node. True
  /// without a name or a current separator; else as ParseSubfile.
  bool ParseWWWInline();
  /// Reads a whole file at this point of the scene, by the rules of the main file's version; true if one of its
  /// statements gave true. False for a file that can't be opened, isn't VRML (a packed one is not), or is being read
  /// already, and beyond the limits of a load.
  bool ParseSubfile(const CBasicString& path);
  /// Turns a name into a path in the folder of the current file; only the name's last component counts. Double quotes
  /// are removed. False for an empty name, and for an empty result.
  bool CreateSubfilePath(CBasicString& path) const;
  /// Removes every double quote; true if there was one.
  static bool RemoveQuotes(CBasicString& text);
  /// Paths of the files that the last load looked for and couldn't open, each once, in the order of asking. They stay
  /// until the next load. The main file isn't among them: VRMLLoadOpenFailed tells that.
  ///
  /// An inlined file stands here by the path at which it was looked for, beside the file that names it. An image stands
  /// here by each path in the folders of the texture manager, or by its URL if there are no such folders; the path that
  /// the support-file callback gave isn't listed. Names of more than 4,096 characters aren't looked for, and the list
  /// ends at 4,194,304 characters.
  const std::vector<CBasicString>& GetMissingFiles() const { return MissingFiles; }

protected:
  /// Sets the plain fields to those of a new parser: no world, no callbacks, no current separator, metres, no warning.
  /// Lists, the DEF name and the token source stay.
  void InitializeVariables();
  /// Unpacks a compressed file into a temporary one. True if that failed; false for a plain file, one that can't be
  /// opened, and one that was unpacked, and then the temporary file has a name.
  bool DetermineIfFileIsZip(const CBasicString& path);
  /// Unpacks a file of that kind into a new temporary one, whose name is then set; false, and there is none, if that
  /// failed. Of a gzip file that breaks off, what was unpacked in chunks of 1,024,000 bytes is enough.
  /// @{
  bool DecompressGZipFile(const CBasicString& path);
  bool DecompressPKZipFile(const CBasicString& path);
  /// @}
  /// Creates a temporary file, which this parser holds open for writing, and gives its name; empty if that isn't
  /// possible.
  CBasicString CreateTemporaryFilename();
  /// Removes the temporary file; true if there was one.
  bool DestroyTemporaryFile();
  /// Path of the unpacked copy of a compressed file; empty without one. Setting and clearing it touch no file.
  /// @{
  CBasicString& GetTemporaryFilename() { return TemporaryFilename; }
  void SetTemporaryFilename(const CBasicString& name) { TemporaryFilename = name; }
  void ClearTemporaryFilename() { TemporaryFilename.Empty(); }
  /// @}
  /// What the support-file callback gives for a URL; empty without one.
  CBasicString GetResolvedFile(const CBasicString& url);
  /// Adds the closed loops of a row of points to the list, as arrays that the caller owns. An open row is closed for
  /// that, by its first point once more. False if there is no loop of three points.
  static bool DetermineLoopsFromPoints(brixFloatPointArray& points, CKelList& loops);
  /// Appends a new CVRMLLoopIndexPair, which the caller owns; false for equal indices, and without memory.
  static bool CreateIndexPair(CKelList& pairs, int first, int second);
  /// Sorts the pairs at the positions `first` to `last`, both inclusive, by their starts, the largest one first.
  static void SortIndexPairList(CKelList& pairs, int first, int last);
  /// Moves a loop's centre to the origin and turns its normal to +Z.
  static brixMatrix4x4 GenerateCapTransform(const brixFloatPointArray& loop);
  /// Whether a path names a file that can be opened for reading.
  static bool FileExists(const CBasicString& path);

private:
  friend struct qelvrml::ParserInternals;

  VRMLLoadResultTypes ReadScene();
  void AbandonScene();
  void OpenRoot();
  template <class Unpack>
  bool DecompressFile(const CBasicString& path, Unpack unpack);

  CKelWorld* World = nullptr;
  CVRMLSeparator* CurrentSeparator = nullptr;
  CVRMLIOManager IOManager;
  CKelList SeparatorStack;
  std::unique_ptr<qelvrml::NameIndexedList> ObjectDictionary;     ///< never null
  std::unique_ptr<qelvrml::NameIndexedList> PrototypeDictionary;  ///< never null
  bool DefinedEntity = false;
  CBasicString EntityName;
  bool AllowDictionaryUpdate = true;
  bool SkippingBlock = false;
  int LastPercentage = 0;
  VRMLImageUnitsTypes ImageUnits = VRMLUnitsMeters;
  LoaderFunction LoaderPtr = nullptr;
  SupportFileFunction GetSupportFilePtr = nullptr;
  CBasicString TemporaryFilename;
  int LastWarning = 0;

  std::vector<CBasicString> MissingFiles;    ///< of the last load
  std::unique_ptr<qelvrml::NoteBook> Notes;  ///< of the last load; never null
  std::unique_ptr<qelvrml::LoadState> Load;  ///< what one load knows; never null
};
