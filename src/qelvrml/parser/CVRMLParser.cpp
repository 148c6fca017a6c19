#include "qelvrml/parser/CVRMLParser.h"

#include <algorithm>
#include <array>
#include <new>

#include "qelvrml/dictionary/CVRMLDictionaryEntry.h"
#include "qelvrml/foundation/CBasicListIterator.h"
#include "qelvrml/foundation/Numbers.h"
#include "qelvrml/foundation/ScopedValue.h"
#include "qelvrml/parser/load/LoadState.h"
#include "qelvrml/parser/load/NoteBook.h"
#include "qelvrml/parser/load/Notes.h"
#include "qelvrml/platform/brixex/NameIndexedList.h"
#include "qelvrml/platform/brixex/brixMatrixFunctions.h"
#include "qelvrml/prototypes/CVRMLPrototype.h"
#include "qelvrml/prototypes/PrototypeNames.h"

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

int PercentageAt(int offset, int total) {
  const double ratio = static_cast<double>(offset) / static_cast<double>(total);
  return std::min(qelvrml::CutToInt(ratio * 100.0), LargestPercentage);
}

// The first offset with a higher percentage; negative if there is none.
int OffsetBehind(int percentage, int total) {
  if (percentage >= LargestPercentage) return -1;
  const double share = std::max(percentage + 1, 0) / 100.0;
  int offset = qelvrml::CutToInt(share * total);
  while (offset > 0 && PercentageAt(offset - 1, total) > percentage) --offset;
  while (PercentageAt(offset, total) <= percentage) ++offset;
  return offset;
}

// Entries under a name of their own are found by it; a recorded USE bears the name of another.
std::optional<std::uint32_t> KeyOfEntry(void* data) {
  auto* entry = static_cast<CVRMLDictionaryEntry*>(data);
  if (entry->GetType() == DictionaryEntryUse || entry->GetName().GetLength() == 0) return std::nullopt;
  return entry->GetNameHash();
}

std::optional<std::uint32_t> KeyOfPrototype(void* data) { return static_cast<CVRMLPrototype*>(data)->GetNameHash(); }

// Scopes that an earlier load has left open mustn't lead into a world that may be gone by now, whoever has set the
// parser's world since: from the outermost on, each leads into the group of its own or of the one around it.
void LeadOpenSeparatorsInto(CKelWorld* world, CKelList& stack) {
  brixBaseGroup* around = world;
  for (CBasicListElement* element = stack.GetTailElement(); element; element = element->Previous) {
    auto* separator = static_cast<CVRMLSeparator*>(element->Data);
    if (separator->GetCreatedGroup()) {
      around = separator->GetGroup();
    } else {
      separator->SetGroup(around);
    }
  }
}

}  // namespace

CVRMLParser::CVRMLParser()
    : ObjectDictionary(std::make_unique<qelvrml::NameIndexedList>(KeyOfEntry)),
      PrototypeDictionary(std::make_unique<qelvrml::NameIndexedList>(KeyOfPrototype)),
      Notes(std::make_unique<qelvrml::NoteBook>()),
      Load(std::make_unique<qelvrml::LoadState>()) {
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
  if (Load->Running) return VRMLLoadFailed;  // a callback's: the load around it goes on
  const qelvrml::LoadRun run(*this);
  Load->MainFile = file;
  LeadOpenSeparatorsInto(world, SeparatorStack);
  SetWorld(world);
  MissingFiles.clear();
  *Notes = qelvrml::NoteBook();
  ClearTemporaryFilename();  // a copy that a callback has made knows the one that its original is reading
  // No temporary file outlives the load, however it ends.
  const std::unique_ptr<CVRMLParser, void (*)(CVRMLParser*)> cleaner(this, [](CVRMLParser* parser) {
    parser->Load->Unpacked.Remove();  // takes no memory, of which there may be none
    parser->ClearTemporaryFilename();
  });
  if (DetermineIfFileIsZip(file)) return VRMLLoadDecompressFailed;
  IOManager.SetFilename(TemporaryFilename.GetLength() > 0 ? TemporaryFilename : file);
  const VRMLLoadResultTypes opened = IOManager.OpenFile();
  if (opened != VRMLLoadOK) return opened;
  try {
    return ReadScene();
  } catch (...) {
    AbandonScene();
    throw;
  }
}

VRMLLoadResultTypes CVRMLParser::ReadScene() {
  VRMLLoadResultTypes result = VRMLLoadFailed;
  Load->FilesBeingRead = {IOManager.GetFileInterface().GetIdentity()};
  Load->Made.AddInput(static_cast<std::uint64_t>(IOManager.GetTotalFileSize()));
  OpenRoot();
  while (GetCurrentTokenType() != VRMLTokenEndOfFile) {
    if (ParseBlock()) result = VRMLLoadOK;
  }
  if (LastWarning != VRMLWarningNone && result == VRMLLoadOK) result = VRMLLoadWarnings;
  if (!Load->MetGeometry && Load->ObjectsAdded == 0) qelvrml::NoteNoGeometry(*this);
  Load->ScopesOfFile = 0;
  PopSeparator();
  IOManager.CloseFile();
  DetermineUnits();
  return result;
}

// What a load has made before memory ran out, or a callback threw, enters the world in the unit of the file.
void CVRMLParser::AbandonScene() {
  Load->ScopesOfFile = 0;
  while (SeparatorStack.GetCount() > Load->EarlierScopes) {
    try {
      PopSeparator();
    } catch (const std::bad_alloc&) {
      continue;  // the scope is closed all the same, its group is lost
    }
  }
  IOManager.CloseFile();
  ImageUnits = VRMLUnitsMeters;
  if (World) World->RecursiveUpdateBBox();
}

// The root of a load is the world's scope, whatever name or recording an earlier load has left.
void CVRMLParser::OpenRoot() {
  const qelvrml::ScopedValue<CBasicString> noName(EntityName, CBasicString());
  const qelvrml::ScopedValue<bool> noEntry(AllowDictionaryUpdate, false);
  if (!DefineSeparator()) return;
  CurrentSeparator->SetGroup(World);
  Load->ScopesOfFile = SeparatorStack.GetCount();
}

const std::vector<CVRMLNote>& CVRMLParser::GetNotes() const { return Notes->GetNotes(); }
std::uint64_t CVRMLParser::GetUnlistedNotes() const { return Notes->GetUnlisted(); }

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
  if (SkippingBlock || !IOManager.IsBehindMilestone()) return;
  const int total = IOManager.GetTotalFileSize();
  if (total == 0) return;
  const int percentage = PercentageAt(IOManager.GetCurrentFileOffset(), total);
  if (percentage > LastPercentage) {
    if (LoaderPtr) LoaderPtr(percentage);
    LastPercentage = percentage;
  }
  if (IOManager.GetTotalFileSize() == total) IOManager.SetMilestone(OffsetBehind(LastPercentage, total));
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
  constexpr double QuarterTurn = -1.5707964897155762;  // the quarter turn of hosts: pi / 2 rounded to single precision
  static const brixMatrix4x4 matrix = CreateRotationMatrixForNormalAngle({1.0F, 0.0F, 0.0F}, QuarterTurn);
  return matrix;
}

bool CVRMLParser::Tokenize() {
  if (!IOManager.Tokenize()) return false;
  if (PrototypeDictionary->GetCount() > 0) qelvrml::MarkPrototypeNames(*this);
  if (IOManager.IsBehindMilestone()) UpdateStatus();
  return true;
}

void CVRMLParser::MoveUpToInterestingToken() {
  while (GetCurrentTokenType() == VRMLTokenUnknown) Tokenize();
}
