// Opening and closing scopes.

#include <memory>
#include <new>

#include "qelvrml/dictionary/CVRMLDictionarySeparator.h"
#include "qelvrml/parser/CVRMLParser.h"

bool CVRMLParser::DefineSeparator() {
  if (AtOpenSeparatorLimit()) return false;
  auto separator = std::make_unique<CVRMLSeparator>();
  separator->SetParser(this);
  if (GetDefiningObjects()) {
    auto* entry = new (std::nothrow) CVRMLDictionarySeparator;
    if (entry) entry->SetName(EntityName);
    if (AddDictionaryObject(entry)) separator->SetDictionaryEntry(entry);
  }
  if (!PushSeparator(separator.get())) return false;
  separator.release();
  return true;
}

// Opens the scope of a node that reads its children itself: its DEF name isn't that of its first child.
bool CVRMLParser::DefineNodeSeparator() {
  const bool opened = DefineSeparator();
  ClearDefinedName();
  return opened;
}

void CVRMLParser::ClearDefinedName() {
  EntityName.Empty();
  DefinedEntity = false;
}

bool CVRMLParser::PushSeparator(CVRMLSeparator* separator) {
  if (!separator) return false;
  if (CurrentSeparator) *separator = *CurrentSeparator;
  std::unique_ptr<CKelGroup> group;
  if (EntityName.GetLength() > 0) {
    group.reset(new (std::nothrow) CKelGroup);
    if (group) group->SetGroupName(brixWRope(EntityName.GetWideText()));
    separator->SetGroup(group.get());
  }
  if (!separator->GetGroup()) separator->SetGroup(World);
  if (!SeparatorStack.AddHead(separator)) return false;
  separator->SetCreatedGroup(group.release() != nullptr);
  separator->Serial = ++LastSerial;
  CurrentSeparator = separator;
  return true;
}

bool CVRMLParser::PopSeparator() {
  if (!CurrentSeparator) return false;
  const std::unique_ptr<CVRMLSeparator> closing(CurrentSeparator);
  SeparatorStack.RemoveHead();
  auto* parent = static_cast<CVRMLSeparator*>(SeparatorStack.GetHead());
  CurrentSeparator = parent;
  HandGroupOn(*closing, parent);
  if (parent && !closing->GetDiffuseColor().IsEmpty()) parent->SetDiffuseColor(closing->GetDiffuseColor());
  return true;
}

// A group that a scope has created goes to the group around it, or is destroyed if nothing is in it.
void CVRMLParser::HandGroupOn(CVRMLSeparator& closing, const CVRMLSeparator* parent) {
  if (!closing.GetCreatedGroup()) return;
  std::unique_ptr<brixBaseGroup> group(closing.GetGroup());
  closing.SetGroup(nullptr);
  closing.SetCreatedGroup(false);
  const bool filled = group->GetNumObjects() > 0 || group->GetNumGroups() > 0;
  brixBaseGroup* around = parent ? parent->GetGroup() : World;
  if (filled && around && around->AddGroup(group.get(), brixTrue)) group.release();
}

void CVRMLParser::ClearSeparatorStack() {
  for (CBasicListElement* element = SeparatorStack.GoToFirst(); element; element = SeparatorStack.GoToNext()) {
    const std::unique_ptr<CVRMLSeparator> separator(static_cast<CVRMLSeparator*>(element->Data));
    if (separator->GetCreatedGroup()) delete separator->GetGroup();
  }
  SeparatorStack.RemoveAll();
}

bool CVRMLParser::ParseSeparator() {
  StepToOpenBrace();
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
