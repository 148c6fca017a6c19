#include "qelvrml/parser/CVRMLParser.h"

#include <algorithm>
#include <array>

#include "qelvrml/dictionary/CVRMLDictionaryEntry.h"
#include "qelvrml/foundation/CBasicListIterator.h"
#include "qelvrml/foundation/CutToInt.h"
#include "qelvrml/platform/brixex/brixMatrixFunctions.h"
#include "qelvrml/prototypes/CVRMLPrototype.h"

namespace {

constexpr int LargestPercentage = 99;
constexpr float SmallestModel = 25.0F;  // in units; a model below it is scaled up

// A step to a smaller unit, and what its numbers are multiplied by.
struct UnitStep {
  VRMLImageUnitsTypes Units;
  float Factor;
};
constexpr std::array<UnitStep, 3> UnitSteps = {
    {{VRMLUnitsCentimeters, 100.0F}, {VRMLUnitsMillimeters, 10.0F}, {VRMLUnitsMicrons, 1000.0F}}};

// Entries under a name of their own are found by it; a recorded USE bears the name of another.
std::optional<std::uint32_t> KeyOfEntry(void* data) {
  auto* entry = static_cast<CVRMLDictionaryEntry*>(data);
  if (entry->GetType() == DictionaryEntryUse || entry->GetName().GetLength() == 0) return std::nullopt;
  return entry->GetNameHash();
}

std::optional<std::uint32_t> KeyOfPrototype(void* data) { return static_cast<CVRMLPrototype*>(data)->GetNameHash(); }

}  // namespace

CVRMLParser::CVRMLParser() : ObjectDictionary(KeyOfEntry), PrototypeDictionary(KeyOfPrototype) {
  InitializeVariables();
}

CVRMLParser::CVRMLParser(CKelWorld* world, const CBasicString& file) : CVRMLParser() {
  SetWorld(world);
  IOManager.SetFilename(file);
}

CVRMLParser::CVRMLParser(const CVRMLParser& other) : CVRMLParser() { *this = other; }

CVRMLParser& CVRMLParser::operator=(const CVRMLParser& other) {
  if (this == &other) return *this;
  ClearPrototypeDictionary();
  ClearObjectDictionary();
  ClearSeparatorStack();
  World = other.World;
  CurrentSeparator = other.CurrentSeparator;
  IOManager = other.IOManager;
  DefinedEntity = other.DefinedEntity;
  EntityName = other.EntityName;
  AllowDictionaryUpdate = other.AllowDictionaryUpdate;
  SkippingBlock = other.SkippingBlock;
  LastPercentage = other.LastPercentage;
  ImageUnits = other.ImageUnits;
  LoaderPtr = other.LoaderPtr;
  GetSupportFilePtr = other.GetSupportFilePtr;
  TemporaryFilename = other.TemporaryFilename;
  LastWarning = other.LastWarning;
  return *this;
}

CVRMLParser::~CVRMLParser() {
  ClearPrototypeDictionary();
  ClearObjectDictionary();
  ClearSeparatorStack();
}

void CVRMLParser::InitializeVariables() {
  World = nullptr;
  CurrentSeparator = nullptr;
  DefinedEntity = false;
  AllowDictionaryUpdate = true;
  SkippingBlock = false;
  LastPercentage = 0;
  LoaderPtr = nullptr;
  GetSupportFilePtr = nullptr;
  ImageUnits = VRMLUnitsMeters;
  LastWarning = VRMLWarningNone;
}

VRMLLoadResultTypes CVRMLParser::Parse(CKelWorld* world, const CBasicString& file) {
  ReplaceWorldOfOpenSeparators(World, world);
  SetWorld(world);
  ReplayCost = 0;
  Subfiles = 0;
  MissingFiles.clear();
  MissingFileNames.clear();
  MissingTextures.clear();
  // No temporary file outlives the load, however it ends.
  const std::unique_ptr<CVRMLParser, void (*)(CVRMLParser*)> cleaner(
      this, [](CVRMLParser* parser) { parser->DestroyTemporaryFile(); });
  if (DetermineIfFileIsZip(file)) return VRMLLoadDecompressFailed;
  IOManager.SetFilename(TemporaryFilename.GetLength() > 0 ? TemporaryFilename : file);
  const VRMLLoadResultTypes opened = IOManager.OpenFile();
  return opened == VRMLLoadOK ? ReadScene() : opened;
}

VRMLLoadResultTypes CVRMLParser::ReadScene() {
  VRMLLoadResultTypes result = VRMLLoadFailed;
  FilesBeingRead = {IOManager.GetFileInterface().GetIdentity()};
  DefineSeparator();
  while (GetCurrentTokenType() != VRMLTokenEndOfFile) {
    if (ParseBlock()) result = VRMLLoadOK;
  }
  if (LastWarning != VRMLWarningNone && result == VRMLLoadOK) result = VRMLLoadWarnings;
  PopSeparator();
  IOManager.CloseFile();
  DetermineUnits();
  return result;
}

// Scopes that an earlier load has left open mustn't lead into a world that may be gone by now.
void CVRMLParser::ReplaceWorldOfOpenSeparators(const CKelWorld* old, CKelWorld* world) {
  for (CBasicListElement* element = SeparatorStack.GoToFirst(); element; element = SeparatorStack.GoToNext()) {
    auto* separator = static_cast<CVRMLSeparator*>(element->Data);
    if (separator->GetGroup() == old) separator->SetGroup(world);
  }
}

void CVRMLParser::DetermineUnits() {
  if (!World) return;
  World->RecursiveUpdateBBox();
  ImageUnits = VRMLUnitsMeters;
  for (const UnitStep& step : UnitSteps) {
    if (!(World->GetBBox().GetLargestDimension() < SmallestModel)) break;
    ImageUnits = step.Units;
    World->ApplyMatrixToGeometry(GetScaleMatrix({step.Factor, step.Factor, step.Factor}), brixTrue);
    World->RecursiveUpdateBBox();
  }
}

void CVRMLParser::UpdateStatus() {
  if (SkippingBlock) return;
  const double total = IOManager.GetTotalFileSize();
  const double ratio = static_cast<double>(IOManager.GetCurrentFileOffset()) / total;
  const int percentage = std::min(qelvrml::CutToInt(ratio * 100.0), LargestPercentage);
  if (percentage <= LastPercentage || total == 0.0) return;
  if (LoaderPtr) LoaderPtr(percentage);
  LastPercentage = percentage;
}

bool CVRMLParser::SaveIOState(CGenericIOState& state) {
  if (!IOManager.SaveIOState(state)) return false;
  state.SetDefinedEntity(DefinedEntity);
  state.SetEntityName(EntityName);
  return true;
}

bool CVRMLParser::RestoreIOState(const CGenericIOState& state) {
  if (!IOManager.RestoreIOState(state)) return false;
  DefinedEntity = state.GetDefinedEntity();
  EntityName = state.GetEntityName();
  return true;
}

brixMatrix4x4 CVRMLParser::CreateBaseTranslationMatrix() {
  constexpr double QuarterTurn = -1.5707964897155762;  // in single precision, as it has always been
  return CreateRotationMatrixForNormalAngle({1.0F, 0.0F, 0.0F}, QuarterTurn);
}

bool CVRMLParser::Tokenize() {
  if (!IOManager.Tokenize()) return false;
  MarkPrototypeNames();
  UpdateStatus();
  return true;
}

void CVRMLParser::MoveUpToInterestingToken() {
  while (GetCurrentTokenType() == VRMLTokenUnknown) Tokenize();
}

void CVRMLParser::StepOver(std::initializer_list<VRMLTokenTypes> types) {
  while (std::find(types.begin(), types.end(), GetCurrentTokenType()) != types.end()) {
    if (!Tokenize()) break;
  }
}

bool CVRMLParser::AtNodeEnd() const {
  const VRMLTokenTypes type = GetCurrentTokenType();
  return type == VRMLTokenCloseBrace || type == VRMLTokenEndOfFile;
}
