#pragma once

#include <cstdint>
#include <string>

// Figures for people, the same in every locale.

/// A count, with a comma before each three digits: 1,234,567.
std::string Grouped(std::uint64_t count);
/// "1 file", "2 files", "1,234 files".
std::string Counted(std::uint64_t count, const std::string& noun);
/// A measure with so many significant digits, and those in front of the point in groups of three.
std::string Measure(double value, int digits);
/// A time such as "1.2 ms", "345 ms" or "6.7 s".
std::string Duration(double seconds);
/// A size of a file such as "812 bytes", "45.3 kB" or "1.2 MB".
std::string Bytes(std::uint64_t count);
