#include "qelvrml/prototypes/InstanceMerge.h"

#include <algorithm>

#include "qelvrml/parser/CVRMLIOManager.h"
#include "qelvrml/platform/genparse/Characters.h"

namespace qelvrml {
namespace {

template <class Visit>
void ForEachField(CKelList& list, Visit visit) {
  for (CBasicListElement* element = list.GoToFirst(); element; element = element->Next) {
    visit(*static_cast<CVRMLPrototypeField*>(element->Data));
  }
}

// Writes pieces one behind the other with single blanks between them.
class PieceWriter {
public:
  explicit PieceWriter(char* out) : Place(out) {}
  void Write(std::string_view text) {
    if (!First) *Place++ = ' ';
    First = false;
    Place = std::copy(text.begin(), text.end(), Place);
  }

private:
  char* Place;
  bool First = true;
};

}  // namespace

BodyTemplate::BodyTemplate(const char* text, int length) {
  CVRMLIOManager tokens;
  if (!tokens.StartBufferReading(text, length)) return;
  if (tokens.GetCurrentTokenBeginType()) tokens.Tokenize();
  Pieces.emplace_back();
  while (tokens.GetCurrentTokenType() != VRMLTokenEndOfFile) {
    Piece& piece = Pieces.back();
    if (piece.TokenCount++ > 0) piece.Text += ' ';
    tokens.AppendCapturedText(piece.Text);
    if (tokens.GetNextTokenType() == VRMLTokenIS) {
      tokens.Tokenize();
      tokens.Tokenize();
      piece.HasReference = true;
      piece.Field = CBasicString(tokens.GetCurrentTokenText());
      Pieces.emplace_back();
    }
    tokens.Tokenize();
  }
}

InstanceMerge::InstanceMerge(CVRMLPrototype& prototype, const char* text, int length) : Prototype(prototype) {
  if (text) Prototype.ParseInstanceFields(text, length, Values);
  Prototype.MarkOverriddenFields(Values);
  // What the instance gives comes first, and the first of several fields of a name counts.
  const auto enter = [this](CVRMLPrototypeField& field) { ByName.emplace(field.GetName().GetView(), &field); };
  ForEachField(Values, enter);
  ForEachField(Prototype.GetFields(), enter);
  Measure();
}

CVRMLPrototypeField* InstanceMerge::Find(const CBasicString& name) {
  const auto found = ByName.find(name.GetView());
  return found == ByName.end() ? nullptr : found->second;
}

void InstanceMerge::Measure() {
  for (const BodyTemplate::Piece& piece : Prototype.GetBodyTemplate().GetPieces()) {
    if (piece.TokenCount > 0) {
      Length += piece.Text.size();
      ++PieceCount;
    }
    if (!piece.HasReference) continue;
    CVRMLPrototypeField* field = Find(piece.Field);
    References.push_back(field);
    if (!field) continue;
    field->SetUsed(true);
    Length += field->GetValue().size();
    ++PieceCount;
  }
  MeasureUnused(Prototype.GetFields());
  MeasureUnused(Values);
}

void InstanceMerge::MeasureUnused(CKelList& list) {
  ForEachField(list, [this](const CVRMLPrototypeField& field) {
    if (field.GetUsed()) return;
    Length += field.GetNarrowName().size() + field.GetValue().size();
    PieceCount += 2;
  });
}

void InstanceMerge::Write(char* out) {
  PieceWriter writer(out);
  auto reference = References.begin();
  for (const BodyTemplate::Piece& piece : Prototype.GetBodyTemplate().GetPieces()) {
    if (piece.TokenCount > 0) writer.Write(piece.Text);
    if (!piece.HasReference) continue;
    if (*reference) writer.Write((*reference)->GetValue());
    ++reference;
  }
  const auto writeUnused = [&writer](const CVRMLPrototypeField& field) {
    if (field.GetUsed()) return;
    writer.Write(field.GetNarrowName());
    writer.Write(field.GetValue());
  };
  ForEachField(Prototype.GetFields(), writeUnused);
  ForEachField(Values, writeUnused);
}

}  // namespace qelvrml
