// Opening and closing scopes.

#include <memory>
#include <new>

#include "qelvrml/dictionary/CVRMLDictionarySeparator.h"
#include "qelvrml/parser/load/LoadState.h"
#include "qelvrml/parser/load/Notes.h"
#include "qelvrml/parser/load/ParserInternals.h"
#include "qelvrml/parser/reading/NodeReader.h"
#include "qelvrml/scene/Scopes.h"

namespace qelvrml {

bool AtOpenSeparatorLimit(CVRMLParser& parser) {
  const int earlier = ParserInternals::Load(parser).EarlierScopes;
  const bool reached = parser.GetSeparatorStack()->GetCount() - earlier >= MaximumOpenSeparators;
  if (reached) Note(parser, VRMLNoteLimit, limits::OpenScopes);
  return reached;
}

bool OpenNodeScope(CVRMLParser& parser) {
  const bool opened = parser.DefineSeparator();
  ForgetDefinedName(parser);
  return opened;
}

void ForgetDefinedName(CVRMLParser& parser) {
  parser.GetEntityName().Empty();
  parser.SetDefinedEntity(false);
}

void LeaveObjectsUnnamed(CVRMLParser& parser) { parser.GetEntityName().Empty(); }

}  // namespace qelvrml

namespace {

// A group that a scope has created goes to the group around it, or is destroyed if nothing is in it. The parent's group
// and the world aren't the scope's to hand on.
void HandGroupOn(const CVRMLSeparator& closing, const CVRMLSeparator* parent, CKelWorld* world) {
  brixBaseGroup* around = parent ? parent->GetGroup() : world;
  if (!closing.GetCreatedGroup() || closing.GetGroup() == around || closing.GetGroup() == world) return;
  std::unique_ptr<brixBaseGroup> group(closing.GetGroup());
  const bool filled = group && (group->GetNumObjects() > 0 || group->GetNumGroups() > 0);
  if (filled && around && around->AddGroup(group.get(), brixTrue)) group.release();
}

}  // namespace

bool CVRMLParser::DefineSeparator() {
  if (qelvrml::AtOpenSeparatorLimit(*this)) return false;
  auto separator = std::make_unique<CVRMLSeparator>();
  separator->SetParser(this);
  if (GetDefiningObjects()) {
    std::unique_ptr<CVRMLDictionarySeparator> entry(new (std::nothrow) CVRMLDictionarySeparator);
    if (entry) entry->SetName(EntityName);
    CVRMLDictionarySeparator* recording = entry.get();
    if (AddDictionaryObject(entry.release())) separator->SetDictionaryEntry(recording);
  }
  if (!PushSeparator(separator.get())) return false;
  separator.release();
  return true;
}

bool CVRMLParser::PushSeparator(CVRMLSeparator* separator) {
  if (!separator) return false;
  if (CurrentSeparator) *separator = *CurrentSeparator;
  const bool named = EntityName.GetLength() > 0;
  std::unique_ptr<CKelGroup> group(named ? new (std::nothrow) CKelGroup : nullptr);
  if (group) group->SetGroupName(brixWRope(EntityName.GetWideText()));
  if (!SeparatorStack.AddHead(separator)) return false;
  if (named) {
    if (separator->GetCreatedGroup()) delete separator->GetGroup();
    separator->SetCreatedGroup(group != nullptr);
    separator->SetGroup(group.release());
  }
  if (!separator->GetGroup()) separator->SetGroup(World);
  CurrentSeparator = separator;
  return true;
}

bool CVRMLParser::PopSeparator() {
  if (!CurrentSeparator) return false;
  const std::unique_ptr<CVRMLSeparator> closing(CurrentSeparator);
  if (SeparatorStack.GetCount() == Load->ScopesOfFile) {
    if (!qelvrml::IsAtEndOfScene(*this)) qelvrml::Note(*this, VRMLNoteRootClosed, std::string_view());
    --Load->ScopesOfFile;
  }
  SeparatorStack.RemoveHead();
  auto* parent = static_cast<CVRMLSeparator*>(SeparatorStack.GetHead());
  CurrentSeparator = parent;
  std::erase(Load->SuspendedScopes, closing.get());
  HandGroupOn(*closing, parent, World);
  if (parent && !closing->GetDiffuseColor().IsEmpty()) parent->SetDiffuseColor(closing->GetDiffuseColor());
  return true;
}

void CVRMLParser::ClearSeparatorStack() {
  for (CBasicListElement* element = SeparatorStack.GoToFirst(); element; element = SeparatorStack.GoToNext()) {
    const std::unique_ptr<CVRMLSeparator> separator(static_cast<CVRMLSeparator*>(element->Data));
    if (separator->GetCreatedGroup()) delete separator->GetGroup();
  }
  SeparatorStack.RemoveAll();
  Load->SuspendedScopes.clear();
}

bool CVRMLParser::ParseSeparator() {
  qelvrml::NodeReader(*this).StepToOpenBrace();
  if (GetCurrentTokenType() != VRMLTokenOpenBrace) return false;

  // Two fields may stand in front of the statements; their values have no effect.
  const auto isHint = [](VRMLTokenTypes type) {
    return type == VRMLTokenRENDERCACHING || type == VRMLTokenRENDERCULLING;
  };
  if (isHint(GetNextTokenType())) Tokenize();
  while (isHint(GetCurrentTokenType())) {
    if (!Tokenize()) break;
    const bool cachingFollows =
        GetCurrentTokenType() == VRMLTokenBoolean && GetNextTokenType() == VRMLTokenRENDERCACHING;
    if ((cachingFollows || GetNextTokenType() == VRMLTokenRENDERCULLING) && !Tokenize()) break;
  }
  return DefineSeparator();
}
