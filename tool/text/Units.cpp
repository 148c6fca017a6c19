#include "text/Units.h"

namespace {

struct Unit {
  const char* Name;
  const char* Symbol;
  const char* Meaning;
};

Unit UnitOf(VRMLImageUnitsTypes units) {
  switch (units) {
    case VRMLUnitsMicrons: return {"microns", "um", "numbers read as metres, scaled to microns"};
    case VRMLUnitsMillimeters: return {"millimeters", "mm", "numbers read as metres, scaled to millimetres"};
    case VRMLUnitsCentimeters: return {"centimeters", "cm", "numbers read as metres, scaled to centimetres"};
    case VRMLUnitsMeters: return {"meters", "m", "numbers read as metres"};
  }
  return {"", "", ""};
}

}  // namespace

std::string UnitsName(VRMLImageUnitsTypes units) { return UnitOf(units).Name; }
std::string UnitsSymbol(VRMLImageUnitsTypes units) { return UnitOf(units).Symbol; }
std::string UnitsMeaning(VRMLImageUnitsTypes units) { return UnitOf(units).Meaning; }
