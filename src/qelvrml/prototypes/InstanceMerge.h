#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "qelvrml/foundation/CBasicString.h"
#include "qelvrml/platform/brixex/CKelList.h"
#include "qelvrml/prototypes/CVRMLPrototype.h"
#include "qelvrml/prototypes/InstanceFields.h"

namespace qelvrml {

/// A prototype's body, cut where a field's value takes the place of `IS field`.
class BodyTemplate {
public:
  /// Literal tokens with single blanks between them, and the name of the field whose value follows them.
  struct Piece {
    std::string Text;
    int TokenCount = 0;
    bool HasReference = false;
    CBasicString Field;
  };

  BodyTemplate(const char* text, int length);
  std::span<const Piece> GetPieces() const { return Pieces; }

private:
  std::vector<Piece> Pieces;
};

/// The merge of one instance: the body with the values that the instance gives, or the defaults, in the places of `IS`,
/// and behind it, as `name value`, the defaults and the values that found no place. Pieces are separated by single
/// blanks.
class InstanceMerge {
public:
  /// `text` is the captured text of the instance, or null.
  InstanceMerge(
      CVRMLPrototype& prototype, const char* text, int length,
      const VainFieldHandler& inVain = [](VRMLNoteTypes, std::string_view) {});
  InstanceMerge(const InstanceMerge&) = delete;
  InstanceMerge& operator=(const InstanceMerge&) = delete;
  ~InstanceMerge() = default;

  /// Length of the merged text in bytes.
  std::uint64_t GetLength() const { return PieceCount > 0 ? Length + PieceCount - 1 : 0; }
  /// Writes the merged text into a buffer of that length.
  void Write(char* out);

private:
  /// A list of fields that go with it.
  class OwnedFields : public CKelList {
  public:
    OwnedFields() { CBasicList::SetElementHandler(FieldElementHandler); }
    OwnedFields(const OwnedFields&) = delete;
    OwnedFields& operator=(const OwnedFields&) = delete;
    ~OwnedFields() override { CBasicList::RemoveAllValues(); }
  };

  void Measure();
  void MeasureUnused(CKelList& list);

  CVRMLPrototype& Prototype;
  OwnedFields Values;                                  ///< what the instance gives
  std::vector<const CVRMLPrototypeField*> References;  ///< the field in each reference's place, null for none
  std::uint64_t Length = 0;                            ///< of all pieces without the blanks between them
  std::uint64_t PieceCount = 0;
};

}  // namespace qelvrml
