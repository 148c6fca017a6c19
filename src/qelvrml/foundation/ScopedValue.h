#pragma once

#include <utility>

namespace qelvrml {

/// Gives a variable another value for the life of this object; the earlier value comes back at its end.
template <class T>
class ScopedValue {
public:
  ScopedValue(T& variable, T value) : Variable(variable), Earlier(std::exchange(variable, std::move(value))) {}
  ScopedValue(const ScopedValue&) = delete;
  ScopedValue& operator=(const ScopedValue&) = delete;
  ~ScopedValue() { Variable = std::move(Earlier); }

private:
  T& Variable;
  T Earlier;
};

}  // namespace qelvrml
