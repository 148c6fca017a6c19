#pragma once

#include <cstdint>

/// Types of a prototype's fields, those that have a form of their own. Any other name is VRMLFieldUnknown.
enum VRMLFieldTypes : std::uint32_t {
  VRMLFieldUnknown = 0,
  VRMLFieldSFBITMASK = 1,
  VRMLFieldSFBOOL = 2,
  VRMLFieldSFCOLOR = 3,
  VRMLFieldMFCOLOR = 4,
  VRMLFieldSFENUM = 5,
  VRMLFieldSFFLOAT = 6,
  VRMLFieldMFFLOAT = 7,
  VRMLFieldSFIMAGE = 8,
  VRMLFieldSFLONG = 9,
  VRMLFieldMFLONG = 10,
  VRMLFieldSFMATRIX = 11,
  VRMLFieldSFROTATION = 12,
  VRMLFieldSFSTRING = 13,
  VRMLFieldMFSTRING = 14,
  VRMLFieldSFVEC2F = 15,
  VRMLFieldMFVEC2F = 16,
  VRMLFieldSFVEC3F = 17,
  VRMLFieldMFVEC3F = 18,
  VRMLFieldMFNODE = 19,
};
