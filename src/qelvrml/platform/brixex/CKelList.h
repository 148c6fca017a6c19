#pragma once

#include "qelvrml/foundation/CBasicList.h"
#include "qelvrml/foundation/VRMLExport.h"

/// A list that can also own points, vectors, 2-D points or colours.
///
/// Copying a list with an element handler copies its values. Copying a list of bare pointers gives an empty list, so
/// that two lists never own the same objects.
class QELVRML_EXPORT CKelList : public CBasicList {
public:
  CKelList() = default;
  CKelList(const CKelList& other);
  CKelList& operator=(const CKelList& other);
  ~CKelList() override = default;

  void SetListTypePoint();
  void SetListTypeVector();
  void SetListType2DPoint();
  void SetListTypeColor();
};
