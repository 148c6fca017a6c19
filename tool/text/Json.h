#pragma once

#include <nlohmann/json.hpp>

#include "Load.h"

using Json = nlohmann::ordered_json;

/// The double whose shortest form is the shortest form of the float.
double Shortest(float value);
/// Adds "notes", and "unlistedNotes" if there are any.
void AddNotes(const LoadedFile& file, Json& object);
