#pragma once

#include <cstdint>

/// Version of the language, by a file's header.
enum VRMLVersionTypes : std::uint32_t {
  VRMLVersion10 = 0,
  VRMLVersion20 = 1,
};

/// Result of a load.
enum VRMLLoadResultTypes : std::uint32_t {
  VRMLLoadOK = 0,                ///< the file was opened and at least one statement at top level succeeded
  VRMLLoadFailed = 1,            ///< the header was refused, or no statement at top level succeeded
  VRMLLoadOpenFailed = 2,        ///< the file can't be opened or read
  VRMLLoadDecompressFailed = 3,  ///< the file is compressed and can't be unpacked
  VRMLLoadWarnings = 4,          ///< as VRMLLoadOK, with a warning code left behind
};

/// The unit that the numbers of a loaded model have.
enum VRMLImageUnitsTypes : std::uint32_t {
  VRMLUnitsMicrons = 1,
  VRMLUnitsMillimeters = 2,
  VRMLUnitsCentimeters = 3,
  VRMLUnitsMeters = 4,
};

/// Warning codes of a load.
enum VRMLWarningTypes : int {
  VRMLWarningNone = 0,
  VRMLWarningExtrusionData = 1,  ///< an extrusion lacks a spine or a cross-section
};
