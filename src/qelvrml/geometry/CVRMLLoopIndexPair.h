#pragma once

#include "qelvrml/foundation/VRMLExport.h"

/// A closed stretch of a row of points, by the indices of its two coinciding ends. A plain value, whose indices count
/// from 0.
class QELVRML_EXPORT CVRMLLoopIndexPair {
public:
  /// Both indices are 0 at first; a copy has those of the original.
  /// @{
  CVRMLLoopIndexPair() = default;
  CVRMLLoopIndexPair(const CVRMLLoopIndexPair&) = default;
  CVRMLLoopIndexPair& operator=(const CVRMLLoopIndexPair&) = default;
  /// @}
  virtual ~CVRMLLoopIndexPair() = default;

  /// The smaller index; nothing checks that.
  /// @{
  int GetStart() const { return Start; }
  void SetStart(int start) { Start = start; }
  /// @}
  /// The larger index.
  /// @{
  int GetEnd() const { return End; }
  void SetEnd(int end) { End = end; }
  /// @}

private:
  int Start = 0;
  int End = 0;
};
