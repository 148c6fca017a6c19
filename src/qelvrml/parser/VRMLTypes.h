#pragma once

#include <cstdint>

/// Version of the language, by a file's header. That of the main file decides for the files that it inlines.
enum VRMLVersionTypes : std::uint32_t {
  VRMLVersion10 = 0,  ///< `#VRML V1.0 ascii`
  VRMLVersion20 = 1,  ///< `#VRML V2.0 utf8`
};

/// Result of a load. Of VRMLLoadOK and VRMLLoadWarnings the world has what could be read.
enum VRMLLoadResultTypes : std::uint32_t {
  VRMLLoadOK = 0,                ///< the file was opened and at least one statement at top level succeeded
  VRMLLoadFailed = 1,            ///< the header was refused, or no statement at top level succeeded
  VRMLLoadOpenFailed = 2,        ///< the file can't be opened or read, or isn't a regular one
  VRMLLoadDecompressFailed = 3,  ///< the file is compressed and can't be unpacked
  VRMLLoadWarnings = 4,          ///< as VRMLLoadOK, with a warning code left behind in GetLastWarning
};

/// The unit that the numbers of a loaded model have. A number of the file is a metre; the factor is what its numbers
/// were multiplied by.
enum VRMLImageUnitsTypes : std::uint32_t {
  VRMLUnitsMicrons = 1,      ///< factor 1,000,000
  VRMLUnitsMillimeters = 2,  ///< factor 1,000
  VRMLUnitsCentimeters = 3,  ///< factor 100
  VRMLUnitsMeters = 4,       ///< factor 1
};

/// Warning codes of a load. The notes of the load tell more (CVRMLParser::GetNotes).
enum VRMLWarningTypes : int {
  VRMLWarningNone = 0,           ///< no warning
  VRMLWarningExtrusionData = 1,  ///< an extrusion lacks a spine or a cross-section
};
