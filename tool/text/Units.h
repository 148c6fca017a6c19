#pragma once

#include <string>

#include "qelvrml/parser/VRMLTypes.h"

/// Name of a unit, such as "centimeters".
std::string UnitsName(VRMLImageUnitsTypes units);
/// Its symbol, such as "cm".
std::string UnitsSymbol(VRMLImageUnitsTypes units);
/// How the numbers of a file became those of the model: "numbers read as metres, scaled to centimetres".
std::string UnitsMeaning(VRMLImageUnitsTypes units);
/// How many metres it is.
double MetresOf(VRMLImageUnitsTypes units);
