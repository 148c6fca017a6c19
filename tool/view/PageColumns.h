#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Columns of numbers as a page holds them: without loss, and so that alike neighbours take little room.
///
/// Each column is written as the differences of its numbers from the ones before, with the sign in the lowest bit:
/// first the lowest bytes of all of them, then the second ones, and so on. The columns stand one after the other,
/// packed as zlib does, in base64. Floating-point numbers are taken as their bits.
class PageColumns {
public:
  using Column = std::vector<std::uint32_t>;

  void Add(std::string_view name, Column numbers) { Named.emplace_back(name, std::move(numbers)); }

  /// Names and lengths, in the order of the text.
  std::vector<std::pair<std::string, std::size_t>> Lengths() const;
  std::string Text() const;

private:
  std::vector<std::pair<std::string, Column>> Named;
};

/// Bytes in base64.
std::string Base64(std::string_view bytes);
