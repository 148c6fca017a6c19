#include "text/Units.h"

namespace {

struct Unit {
  const char* Name;
  const char* Symbol;
  const char* Meaning;
  double Metres;
};

Unit UnitOf(VRMLImageUnitsTypes units) {
  switch (units) {
    case VRMLUnitsMicrons: return {"microns", "um", "numbers read as metres, scaled to microns", 1e-6};
    case VRMLUnitsMillimeters: return {"millimeters", "mm", "numbers read as metres, scaled to millimetres", 1e-3};
    case VRMLUnitsCentimeters: return {"centimeters", "cm", "numbers read as metres, scaled to centimetres", 1e-2};
    case VRMLUnitsMeters: return {"meters", "m", "numbers read as metres", 1.0};
  }
  return {"", "", "", 1.0};
}

}  // namespace

std::string UnitsName(VRMLImageUnitsTypes units) { return UnitOf(units).Name; }
std::string UnitsSymbol(VRMLImageUnitsTypes units) { return UnitOf(units).Symbol; }
std::string UnitsMeaning(VRMLImageUnitsTypes units) { return UnitOf(units).Meaning; }
double MetresOf(VRMLImageUnitsTypes units) { return UnitOf(units).Metres; }
