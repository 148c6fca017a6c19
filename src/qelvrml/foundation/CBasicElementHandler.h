#pragma once

/// Stands for the type of the values that a list owns.
///
/// `operation` 0 makes a new default value and stores its address in `*slot`, null if there is no memory; 1 destroys
/// the value at `*slot` and sets `*slot` to null; 2 copies the value at `value` to the one at `*slot`; 3 tells whether
/// the two are equal. False for a null `slot`, for another operation, and in 2 and 3 for a null `value`.
using CBasicElementHandler = bool (*)(int operation, void** slot, void* value);
