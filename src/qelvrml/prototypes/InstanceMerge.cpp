#include "qelvrml/prototypes/InstanceMerge.h"

#include <algorithm>

#include "qelvrml/parser/CVRMLIOManager.h"
#include "qelvrml/platform/genparse/Characters.h"
#include "qelvrml/prototypes/FieldIndex.h"

namespace qelvrml {
namespace {

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

InstanceMerge::InstanceMerge(CVRMLPrototype& prototype, const char* text, int length, const VainFieldHandler& inVain)
    : Prototype(prototype) {
  if (text) ReadInstanceFields(Prototype, text, length, Values, inVain);
  Prototype.MarkOverriddenFields(Values);
  Measure();
}

void InstanceMerge::Measure() {
  FieldIndex given(Values);
  FieldIndex defaults(Prototype.GetFields());
  for (const BodyTemplate::Piece& piece : Prototype.GetBodyTemplate().GetPieces()) {
    if (piece.TokenCount > 0) {
      Length += piece.Text.size();
      ++PieceCount;
    }
    if (!piece.HasReference) continue;
    // What the instance gives comes first.
    CVRMLPrototypeField* field = given.Find(piece.Field.GetView());
    if (!field) field = defaults.Find(piece.Field.GetView());
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
