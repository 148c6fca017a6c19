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
/// A host constructs a parser, may set the two callbacks, calls Parse, and reads the units and the warning afterwards.
/// What was loaded is the world's; the parser keeps DEF names, prototypes and whatever scope a file left open, so that
/// a second load on the same parser still knows the names of the first. A parser is used by one thread at a time, and
/// its callbacks run on that thread. Bad input raises nothing: what can't be read is passed over.
///
/// When memory runs out, a model object that can't be made is left out of the model; any other failed allocation leaves
/// the operation as std::bad_alloc.
///
/// The parse operations read tokens: they begin with the current token on their node's keyword and end with it on the
/// node's last token. The define operations take values, read no tokens, and work on the current separator. A false
/// result means that there was nothing to work on or nothing was read.
class QELVRML_EXPORT CVRMLParser {
public:
  /// Receives a strictly rising percentage from 1 to 99.
  using LoaderFunction = void (*)(int percentage);
  /// Receives the name of the file that is being read, the name of the file that is wanted, and a text for the path of
  /// that file. A result other than 0 means that the path is good.
  using SupportFileFunction = int (*)(CBasicString currentFile, CBasicString wantedFile, CBasicString& path);

  CVRMLParser();
  CVRMLParser(CKelWorld* world, const CBasicString& file);
  /// Copies the fields. The open separators, the DEF names and the prototypes stay with their owner: a copy has none of
  /// its own, and its current separator is the original's, good only as long as that lives.
  CVRMLParser(const CVRMLParser& other);
  CVRMLParser& operator=(const CVRMLParser& other);
  ~CVRMLParser();

  // --- Loading

  /// Loads a file into `world`, which the host owns and which outlives the load. DEF names, prototypes, the last
  /// percentage and the last warning of earlier loads stay.
  VRMLLoadResultTypes Parse(CKelWorld* world, const CBasicString& file);
  /// Scales a model of less than 25 units by 100, 10 and 1000 in turn, until it has 25 or the unit is the micron.
  void DetermineUnits();
  /// Reports progress if it has risen by a percent.
  void UpdateStatus();
  /// Snapshot of the token source together with the DEF name at hand.
  bool SaveIOState(CGenericIOState& state);
  bool RestoreIOState(const CGenericIOState& state);
  /// The rotation that turns the axis of a revolved surface from +Z to +Y.
  static brixMatrix4x4 CreateBaseTranslationMatrix();
  /// Null without a world, or when it has none.
  CKelTextureManager* GetTextureManager() const { return World ? World->GetTextureManager() : nullptr; }

  CKelWorld* GetWorld() const { return World; }
  void SetWorld(CKelWorld* world) { World = world; }
  int GetLastPercentage() const { return LastPercentage; }
  void SetLastPercentage(int percentage) {
    LastPercentage = percentage;
    IOManager.ClearMilestone();
  }
  /// The unit that the model ended in.
  VRMLImageUnitsTypes GetImageUnits() const { return ImageUnits; }
  void SetImageUnits(VRMLImageUnitsTypes units) { ImageUnits = units; }
  LoaderFunction GetLoaderPtr() const { return LoaderPtr; }
  void SetLoaderPtr(LoaderFunction loader) { LoaderPtr = loader; }
  SupportFileFunction GetGetSupportFilePtr() const { return GetSupportFilePtr; }
  void SetGetSupportFilePtr(SupportFileFunction function) { GetSupportFilePtr = function; }
  /// 0, or a value of VRMLWarningTypes.
  int GetLastWarning() const { return LastWarning; }
  void SetLastWarning(int warning) { LastWarning = warning; }
  /// What the last load came across and the model doesn't show: at most 256 different notes, in the order of their
  /// first ones. They stay until the next load.
  const std::vector<CVRMLNote>& GetNotes() const;
  /// How often the last load came across something that is different from all of its notes.
  std::uint64_t GetUnlistedNotes() const;

  // --- Token view

  CVRMLIOManager* GetIOManager() { return &IOManager; }
  VRMLVersionTypes GetVersion() const { return IOManager.GetVersion(); }
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
  /// Moves on by one token; false when the current token is now the end of the input. Reports progress.
  bool Tokenize();
  /// Passes over words that mean nothing to the parser.
  void MoveUpToInterestingToken();

  // --- Dispatch

  /// Reads one statement, or a whole VRML 1.0 separator.
  bool ParseBlock();
  /// Passes over the block that opens at the current or the next token, or, behind a DEF or a USE, over the node there,
  /// which is then parsed without effect. Ends on the block's last token, with `advance` behind it.
  void SkipBlock(GenericTokenTypes open, GenericTokenTypes close, bool advance);
  void SkipBlock(bool advance) { SkipBlock(GenericTokenOpenBrace, GenericTokenCloseBrace, advance); }
  void SkipArray(bool advance) { SkipBlock(GenericTokenOpenBracket, GenericTokenCloseBracket, advance); }
  /// Whether the node at hand is to be recorded in the dictionary.
  bool GetDefiningObjects() const;
  /// Whether a finished object may enter the model.
  bool CanAddObjectToSeparator() const { return !SkippingBlock && CurrentSeparator; }
  bool GetSkippingBlock() const { return SkippingBlock; }
  void SetSkippingBlock(bool skipping) { SkippingBlock = skipping; }
  // Nodes that are read and dropped.
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

  // --- Field values. All give true if anything usable was read.

  /// Three numbers; ends on the last one.
  bool ParsePoint(brixFloatPoint& point);
  /// Two numbers; ends on the last one.
  bool Parse2DPoint(brix2DFloatPoint& point);
  /// An optional [ and three numbers; ends on the last one. The alpha becomes 1.
  bool ParseColor(brixChroma& colour);
  /// Any { and [, then up to four numbers: the axis and the angle in radians; what is missing is 0. Ends behind the
  /// last one.
  bool ParseRotationVector(brixVector& axis, double& angle);
  /// One value, or a list in brackets of any kind; ends on the last number, or behind ].
  bool ParsePointArray(brixFloatPointArray& points);
  bool Parse2DPointArray(brix2DFloatPointArray& points);
  /// One value, or a list in [ ], where any other token counts as 0.0; ends on the value, or on ].
  bool ParseFloatArray(brixDoubleArray& values);
  /// One colour, or a list in [ ]; ends on the last number, or on ].
  bool ParseColorArray(brixChromaArray& colours);
  /// One rotation, or a list in brackets of any kind; ends behind the last number, or on the closing bracket.
  bool ParseRotationVectorArray(brixVectorArray& axes, brixDoubleArray& angles);
  /// An optional [ and numbers; -1 ends a run. Adds to two lists of integers: the indices, and the lengths of the runs.
  /// Ends on the first token that isn't a number.
  bool ParseIndexArray(CKelList& values, CKelList& counts);
  /// Lays the two lists out as a run list: for each run its length and its indices; always true.
  static bool MergeIndexLists(brixIntArray& out, CKelList& values, CKelList& counts);

  // --- Separators

  CVRMLSeparator* GetCurrentSeparator() const { return CurrentSeparator; }
  void SetCurrentSeparator(CVRMLSeparator* separator) { CurrentSeparator = separator; }
  /// The open separators, newest first.
  CKelList* GetSeparatorStack() { return &SeparatorStack; }
  /// Opens a scope, with a group of its own behind a DEF name. False when too many are open.
  bool DefineSeparator();
  /// Links a new separator in, which then belongs to the stack; false for null.
  bool PushSeparator(CVRMLSeparator* separator);
  /// Closes the innermost scope; its group enters the model, and its diffuse colours pass to the enclosing scope.
  bool PopSeparator();
  void ClearSeparatorStack();

  // --- Placing objects. All forms take the object over; one that can't be placed is destroyed.

  /// With the material of the first list position.
  bool AddObjectToSeparator(brixBaseObject* object);
  bool AddObjectToSeparator(brixBaseObject* object, int index);
  /// As one part of an indexed set, whose `count` vertices start at position `first` of the run list.
  bool AddObjectToSeparator(brixBaseObject* object, int part, int first, int count);
  /// Gives the object the DEF name at hand.
  void SetupObjectAdd(brixBaseObject* object);

  // --- Grouping nodes

  bool ParseSeparator();
  bool ParseGroup();
  bool ParseShape();
  bool ParseAppearance();
  bool ParseSwitch();
  bool ParseLevelOfDetail();
  bool ParseCollision();

  // --- Dictionary

  /// All entries, oldest first.
  CKelList* GetObjectDictionary();
  /// Takes an entry over; an older one of the same name goes. False, and the entry is destroyed, while a block is
  /// skipped.
  bool AddDictionaryObject(CVRMLDictionaryEntry* entry);
  /// The entry of a name, by its hash; null if there is none.
  CVRMLDictionaryEntry* FindObjectInDictionary(const CBasicString& name);
  /// Removes and destroys an entry. One that a closed separator's entry holds as a child only loses its name.
  bool RemoveDictionaryObject(CVRMLDictionaryEntry* entry);
  bool RemoveDictionaryObjectFromSeparators(CVRMLDictionaryEntry* entry);
  /// Destroys all entries; open separators stop recording.
  void ClearObjectDictionary();
  bool GetDefinedEntity() const { return DefinedEntity; }
  void SetDefinedEntity(bool defined) { DefinedEntity = defined; }
  CBasicString& GetEntityName() { return EntityName; }
  void SetEntityName(const CBasicString& name) { EntityName = name; }
  bool GetAllowDictionaryUpdate() const { return AllowDictionaryUpdate; }
  void SetAllowDictionaryUpdate(bool allow) { AllowDictionaryUpdate = allow; }
  bool ParseUse();
  /// True also for an unknown name.
  bool DefineUse(const CBasicString& name);
  /// Runs the define operation of an entry with the entry's values.
  bool ServiceDictionaryObject(CVRMLDictionaryEntry* entry);

  // --- Property nodes

  bool ParseBinding();
  bool DefineBinding(bool isMaterial, VRMLBindingTypes binding);
  bool ParseCoordinate3();
  bool DefineCoordinate3(const brixFloatPointArray& points);
  /// Passes over the node: normals of a file have no effect.
  bool ParseNormal();
  bool DefineNormal(const brixVectorArray& vectors);
  bool ParseColor3();
  bool ParseMaterial();
  bool DefineMaterial(const brixChromaArray& ambient, const brixChromaArray& diffuse, const brixChromaArray& specular,
                      const brixChromaArray& emissive, const brixDoubleArray& shininess,
                      const brixDoubleArray& transparency);
  bool ParseTransform();
  bool DefineTransform(const brixFloatPoint& translation, const brixFloatPoint& scaleFactor,
                       const brixMatrix4x4& rotation, const brixMatrix4x4& scaleOrientation,
                       const brixFloatPoint& center);
  bool ParseMatrixTransform();
  bool DefineMatrixTransform(const brixMatrix4x4& matrix);
  bool ParseRotation();
  bool DefineRotation(const brixMatrix4x4& matrix);
  bool ParseScale();
  bool DefineScale(const brixFloatPoint& scaleFactor);
  bool ParseTranslation();
  bool DefineTranslation(const brixFloatPoint& translation);

  /// Loads an image, or finds it among those that are loaded, and puts it in force.
  bool ParseImageTexture();
  bool ParsePixelTexture();
  bool DefineTexture(int textureId, TextureWrapTypes wrapS, TextureWrapTypes wrapT);
  bool ParseTextureTransform();
  /// The rotation is in degrees.
  bool DefineTextureTransform(const brix2DFloatPoint& center, const brix2DFloatPoint& scale,
                              const brix2DFloatPoint& translation, double rotation);
  bool ParseTextureCoordinate();
  /// Coordinates for the next object.
  bool DefineTextureCoordinate(const brix2DFloatPointArray& points);

  // --- Geometry nodes

  bool ParseCone();
  bool DefineCone(double bottomRadius, double height, bool side, bool bottom);
  bool ParseCube();
  bool ParseBox();
  bool DefineCube(double width, double height, double depth);
  bool ParseCylinder();
  bool DefineCylinder(double radius, double height);
  bool ParseSphere();
  bool DefineSphere(double radius);
  /// Adds a disk, given in world coordinates, with the material of a list position.
  bool AddDiskToModel(const brixFloatPoint& centre, double radius, const brixVector& normal, int materialIndex);
  bool ParseIndexedSet();
  /// Faces or lines over the current coordinates; the arguments are run lists.
  bool DefineIndexedSet(bool isFaceSet, const brixIntArray& coordIndex, const brixIntArray& materialIndex,
                        const brixIntArray& normalIndex);

  bool ParsePointSet();
  /// Dots at a range of the current coordinates; the range is cut to them.
  bool DefinePointSet(int startIndex, int numPoints);
  bool ParseTriangleStripSet();
  /// Strips of so many vertices each through the current coordinates.
  bool DefineTriangleStripSet(const brixIntArray& counts);
  bool ParseElevationGrid();
  /// A mesh, or with `solid` false lines along the grid. Dimensions are cut to integers. A missing height is 0; false
  /// for a large grid that lacks heights.
  bool DefineElevationGrid(bool solid, const brixDoubleArray& heights, double xDimension, double xSpacing,
                           double zDimension, double zSpacing);
  static brixFloatPoint GetElevationGridPoint(double i, double j, const brixDoubleArray& heights, double xDimension,
                                              double xSpacing, double zDimension, double zSpacing);
  bool ParseExtrusion();
  /// Angles are in radians; scale and cross-section hold pairs of x and z. An empty array sets the warning
  /// VRMLWarningExtrusionData.
  bool DefineExtrusion(bool solid, bool beginCap, bool endCap, const brixVectorArray& axes,
                       const brixDoubleArray& angles, const brixDoubleArray& scale, const brixDoubleArray& crossSection,
                       const brixFloatPointArray& spine);
  /// A row of cross-section points for each spine point; false for more points than a mesh may have.
  static bool GetExtrusionMesh(brixFloatPointArray& mesh, const brixVectorArray& axes, const brixDoubleArray& angles,
                               const brixDoubleArray& scale, const brixDoubleArray& crossSection,
                               const brixFloatPointArray& spine);
  static bool GetExtrusionCrossSectionPoints(int index, brixFloatPointArray& points, const brixVectorArray& axes,
                                             const brixDoubleArray& angles, const brixDoubleArray& scale,
                                             const brixDoubleArray& crossSection, const brixFloatPointArray& spine);
  static brixMatrix4x4 CreateExtrusionCrossSectionTransform(int index, const brixVectorArray& axes,
                                                            const brixDoubleArray& angles, const brixDoubleArray& scale,
                                                            const brixFloatPointArray& spine);
  /// Unit vector along the spine at one of its points; +Y for a spine of one point.
  static brixVector GetExtrusionTangentVector(int index, const brixFloatPointArray& spine);
  /// Closes one row of a mesh in world coordinates; true if a piece entered the model.
  bool DefineExtrusionCap(int row, int pointsInRow, const brixFloatPointArray& mesh);

  // --- Prototypes

  /// All prototypes, in the order of their declaration.
  CKelList* GetPrototypeDictionary();
  /// The first prototype whose name has the hash of `name`; null if there is none.
  CVRMLPrototype* FindPrototype(const CBasicString& name);
  CVRMLPrototype* FindPrototype(const char* name);
  /// Takes a prototype over; false for null.
  bool AddPrototypeToDictionary(CVRMLPrototype* prototype);
  /// Gives a prototype back to the caller; false for null.
  bool RemovePrototypeFromDictionary(CVRMLPrototype* prototype);
  void ClearPrototypeDictionary();
  bool ParseProto();
  bool ParseExternProto();
  bool ParseProtoUse();
  /// Expands an instance from its captured text, which may be null, and reads its nodes.
  bool DefineProtoUse(const CBasicString& name, const char* text, int length);

  // --- Files

  bool ParseWWWInline();
  /// Reads a whole file at this point of the scene; true if one of its statements gave true. False for a file that
  /// can't be opened, isn't VRML, or is being read already.
  bool ParseSubfile(const CBasicString& path);
  /// Turns a name into a path in the folder of the current file; only the name's last component counts. False for an
  /// empty one.
  bool CreateSubfilePath(CBasicString& path) const;
  /// Removes every double quote; true if there was one.
  static bool RemoveQuotes(CBasicString& text);
  /// Paths of the files that the last load looked for and couldn't open, each once, in the order of asking. Names of
  /// more than 4,096 characters aren't looked for, and the list ends at 4,194,304 characters.
  const std::vector<CBasicString>& GetMissingFiles() const { return MissingFiles; }

protected:
  void InitializeVariables();
  /// Unpacks a compressed file into a temporary one. True if that failed; false for a plain file and for one that was
  /// unpacked, and then the temporary file has a name.
  bool DetermineIfFileIsZip(const CBasicString& path);
  bool DecompressGZipFile(const CBasicString& path);
  bool DecompressPKZipFile(const CBasicString& path);
  /// Creates a temporary file, which this parser holds open for writing, and gives its name; empty if that isn't
  /// possible.
  CBasicString CreateTemporaryFilename();
  /// Removes the temporary file; true if there was one.
  bool DestroyTemporaryFile();
  CBasicString& GetTemporaryFilename() { return TemporaryFilename; }
  void SetTemporaryFilename(const CBasicString& name) { TemporaryFilename = name; }
  void ClearTemporaryFilename() { TemporaryFilename.Empty(); }
  /// What the support-file callback gives for a URL; empty without one.
  CBasicString GetResolvedFile(const CBasicString& url);
  /// Adds the closed loops of a row of points to the list, as arrays that the caller owns. An open row is closed for
  /// that.
  static bool DetermineLoopsFromPoints(brixFloatPointArray& points, CKelList& loops);
  static bool CreateIndexPair(CKelList& pairs, int first, int second);
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
  void NoteNoGeometry();
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
