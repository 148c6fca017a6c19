#include "qelvrml/platform/brixex/CKelList.h"

#include "qelvrml/foundation/ValueElementHandler.h"
#include "qelvrml/platform/brix/brixFloatPoint.h"
#include "qelvrml/platform/brix/brixMaterial.h"
#include "qelvrml/platform/brix/brixVector.h"

namespace {

// The value types have no exact comparison of their own, or one with a tolerance; a list looks for the very value.
struct PointValue : brixFloatPoint {
  bool operator==(const PointValue& other) const { return x == other.x && y == other.y && z == other.z; }
};
struct VectorValue : brixVector {
  bool operator==(const VectorValue& other) const { return x == other.x && y == other.y && z == other.z; }
};
struct PlanarValue : brix2DFloatPoint {
  bool operator==(const PlanarValue& other) const { return x == other.x && y == other.y; }
};
struct ColourValue : brixChroma {
  bool operator==(const ColourValue& other) const {
    return red == other.red && green == other.green && blue == other.blue && alpha == other.alpha;
  }
};
static_assert(sizeof(PointValue) == sizeof(brixFloatPoint) && sizeof(VectorValue) == sizeof(brixVector));
static_assert(sizeof(PlanarValue) == sizeof(brix2DFloatPoint) && sizeof(ColourValue) == sizeof(brixChroma));

}  // namespace

CKelList::CKelList(const CKelList& other) : CBasicList() { *this = other; }

CKelList& CKelList::operator=(const CKelList& other) {
  if (this == &other) return *this;
  auto& source = const_cast<CKelList&>(other);  // a walk leaves the list as it was
  SetElementHandler(source.GetElementHandler());
  if (!GetElementHandler()) return *this;
  CBasicListElement* place = source.GetCurrentElement();
  for (CBasicListElement* element = source.GoToFirst(); element; element = source.GoToNext())
    AddTailValue(element->Data);
  source.SetCurrentElement(place);
  return *this;
}

void CKelList::SetListTypePoint() { SetElementHandler(qelvrml::ValueElementHandler<PointValue>); }
void CKelList::SetListTypeVector() { SetElementHandler(qelvrml::ValueElementHandler<VectorValue>); }
void CKelList::SetListType2DPoint() { SetElementHandler(qelvrml::ValueElementHandler<PlanarValue>); }
void CKelList::SetListTypeColor() { SetElementHandler(qelvrml::ValueElementHandler<ColourValue>); }
