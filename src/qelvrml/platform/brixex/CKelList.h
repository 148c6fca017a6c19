#pragma once

#include "qelvrml/foundation/CBasicList.h"
#include "qelvrml/foundation/VRMLExport.h"

/// A list that can also own points, vectors, 2-D points or colours.
///
/// Copying a list with an element handler copies its values. Copying a list of bare pointers gives an empty list, so
/// that two lists never own the same objects. Values for which there is no memory are left out of a copy.
class QELVRML_EXPORT CKelList : public CBasicList {
public:
  /// An empty list of bare pointers.
  CKelList() = default;
  /// Takes the element handler of `other`, and copies of its values. An assignment destroys the values that this list
  /// owns before.
  /// @{
  CKelList(const CKelList& other);
  CKelList& operator=(const CKelList& other);
  /// @}
  ~CKelList() override = default;

  /// Empties the list and makes it own values of brixFloatPoint, brixVector, brix2DFloatPoint or brixChroma. Values are
  /// found by exact comparison of their components, without a tolerance.
  /// @{
  void SetListTypePoint();
  void SetListTypeVector();
  void SetListType2DPoint();
  void SetListTypeColor();
  /// @}
};
