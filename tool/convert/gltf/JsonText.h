#pragma once

#include <cstddef>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

// JSON as text, put together by hand: a tree of values for each number of a large scene takes many times the memory.

/// A text with its quotes.
std::string Quoted(const std::string& text);
/// The shortest text that reads back as the same number.
std::string NumberText(double number);
/// [1,2,3]
std::string NumberList(std::span<const float> numbers);

/// A list that grows: each item is found by its index.
class JsonList {
public:
  /// Adds the text of a value, and gives its index.
  std::size_t Add(std::string_view value);
  bool IsEmpty() const { return Count == 0; }
  std::string Text() const { return "[" + Values + "]"; }

private:
  std::string Values;
  std::size_t Count = 0;
};

/// An object that grows.
class JsonObject {
public:
  /// Adds a member, whose value is JSON.
  JsonObject& Add(std::string_view name, std::string_view value);
  JsonObject& Add(std::string_view name, std::size_t number) { return Add(name, std::to_string(number)); }
  /// Adds a list unless it is empty.
  JsonObject& Add(std::string_view name, const JsonList& list);
  std::string Text() const { return "{" + Members + "}"; }

private:
  std::string Members;
};
