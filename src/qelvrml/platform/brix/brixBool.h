#pragma once

/// A truth value of the model's operations. Only brixTrue counts as true.
enum brixBool {
  brixFalse = 0,  ///< no
  brixTrue = 1,   ///< yes
};

/// Result of an evaluation.
enum brixEReturn {
  brixEOK = 0,      ///< the output is filled
  brixEFailed = 1,  ///< there is nothing to evaluate
};
