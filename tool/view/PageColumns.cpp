#include "view/PageColumns.h"

#include <zlib.h>

#include <stdexcept>

namespace {

std::uint32_t SignLast(std::uint32_t difference) {
  const bool negative = (difference >> 31U) != 0;
  return negative ? ~(difference << 1U) : difference << 1U;
}

void AppendPlanes(const PageColumns::Column& numbers, std::string& bytes) {
  const std::size_t first = bytes.size();
  const std::size_t count = numbers.size();
  bytes.resize(first + 4 * count);
  std::uint32_t before = 0;
  for (std::size_t i = 0; i < count; ++i) {
    std::uint32_t rest = SignLast(numbers[i] - before);
    before = numbers[i];
    for (std::size_t plane = 0; plane < 4; ++plane, rest >>= 8U) {
      bytes[first + plane * count + i] = static_cast<char>(rest & 0xFFU);
    }
  }
}

std::string Pack(const std::string& bytes) {
  std::string packed(compressBound(bytes.size()), '\0');
  uLongf size = packed.size();
  const int result = compress2(reinterpret_cast<Bytef*>(packed.data()), &size,
                               reinterpret_cast<const Bytef*>(bytes.data()), bytes.size(), Z_DEFAULT_COMPRESSION);
  if (result != Z_OK) throw std::runtime_error("can't pack the data of a page");
  packed.resize(size);
  return packed;
}

}  // namespace

std::vector<std::pair<std::string, std::size_t>> PageColumns::Lengths() const {
  std::vector<std::pair<std::string, std::size_t>> lengths;
  for (const auto& [name, numbers] : Named) lengths.emplace_back(name, numbers.size());
  return lengths;
}

std::string PageColumns::Text() const {
  std::size_t size = 0;
  for (const auto& [name, numbers] : Named) size += 4 * numbers.size();
  std::string bytes;
  bytes.reserve(size);
  for (const auto& [name, numbers] : Named) AppendPlanes(numbers, bytes);
  return Base64(Pack(bytes));
}

std::string Base64(std::string_view bytes) {
  constexpr std::string_view Digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::string_view three = bytes.substr(i, 3);
    std::uint32_t bits = 0;
    for (std::size_t j = 0; j < 3; ++j) {
      bits = bits << 8U | (j < three.size() ? static_cast<unsigned char>(three[j]) : 0U);
    }
    for (std::size_t j = 0; j < 4; ++j, bits <<= 6U) text += j <= three.size() ? Digits[bits >> 18U & 0x3FU] : '=';
  }
  return text;
}
