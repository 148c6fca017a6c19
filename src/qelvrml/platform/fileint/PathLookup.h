#pragma once

#include <string>

namespace qelvrml {

/// `path` with each component that doesn't exist replaced by the one of its folder that differs from it only in the
/// case of ASCII letters; empty when there is none, or more than one.
std::string FindIgnoringCase(const std::string& path);

}  // namespace qelvrml
