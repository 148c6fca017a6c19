#pragma once

#include "qelvrml/foundation/VRMLExport.h"

/// A closed stretch of a row of points, by the indices of its two coinciding ends.
class QELVRML_EXPORT CVRMLLoopIndexPair {
public:
  CVRMLLoopIndexPair() = default;
  CVRMLLoopIndexPair(const CVRMLLoopIndexPair&) = default;
  CVRMLLoopIndexPair& operator=(const CVRMLLoopIndexPair&) = default;
  virtual ~CVRMLLoopIndexPair() = default;

  /// The smaller index.
  int GetStart() const { return Start; }
  void SetStart(int start) { Start = start; }
  /// The larger index.
  int GetEnd() const { return End; }
  void SetEnd(int end) { End = end; }

private:
  int Start = 0;
  int End = 0;
};
