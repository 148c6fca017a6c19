#pragma once

enum brixBool { brixFalse = 0, brixTrue = 1 };

/// Result of an evaluation.
enum brixEReturn {
  brixEOK = 0,      ///< the output is filled
  brixEFailed = 1,  ///< there is nothing to evaluate
};
