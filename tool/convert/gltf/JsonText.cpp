#include "convert/gltf/JsonText.h"

#include <array>
#include <charconv>
#include <nlohmann/json.hpp>

namespace {

void AppendValue(std::string& list, std::string_view value) {
  if (!list.empty()) list += ',';
  list += value;
}

}  // namespace

std::string Quoted(const std::string& text) { return nlohmann::json(text).dump(); }

std::string NumberText(double number) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
  return {text.data(), end};
}

std::string NumberList(std::span<const float> numbers) {
  JsonList list;
  for (const float number : numbers) list.Add(NumberText(number));
  return list.Text();
}

std::size_t JsonList::Add(std::string_view value) {
  AppendValue(Values, value);
  return Count++;
}

JsonObject& JsonObject::Add(std::string_view name, std::string_view value) {
  AppendValue(Members, '"' + std::string(name) + "\":");
  Members += value;
  return *this;
}

JsonObject& JsonObject::Add(std::string_view name, const JsonList& list) {
  return list.IsEmpty() ? *this : Add(name, list.Text());
}
