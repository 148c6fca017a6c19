#pragma once

#include <cstdint>

/// Types of a prototype's fields, those that have a form of their own. Any other name is VRMLFieldUnknown.
///
/// The form tells which tokens of an instance are the value; what they say plays no part.
enum VRMLFieldTypes : std::uint32_t {
  VRMLFieldUnknown = 0,      ///< the value is no value: it isn't read
  VRMLFieldSFBITMASK = 1,    ///< a list in brackets of any kind
  VRMLFieldSFBOOL = 2,       ///< one token
  VRMLFieldSFCOLOR = 3,      ///< three numbers
  VRMLFieldMFCOLOR = 4,      ///< a list
  VRMLFieldSFENUM = 5,       ///< one token
  VRMLFieldSFFLOAT = 6,      ///< one token
  VRMLFieldMFFLOAT = 7,      ///< a list
  VRMLFieldSFIMAGE = 8,      ///< width, height, number of components, and a number for each pixel
  VRMLFieldSFLONG = 9,       ///< one token
  VRMLFieldMFLONG = 10,      ///< a list
  VRMLFieldSFMATRIX = 11,    ///< 16 numbers
  VRMLFieldSFROTATION = 12,  ///< four numbers: the axis and the angle
  VRMLFieldSFSTRING = 13,    ///< one token
  VRMLFieldMFSTRING = 14,    ///< a list
  VRMLFieldSFVEC2F = 15,     ///< two numbers
  VRMLFieldMFVEC2F = 16,     ///< a list
  VRMLFieldSFVEC3F = 17,     ///< three numbers
  VRMLFieldMFVEC3F = 18,     ///< a list
  VRMLFieldMFNODE = 19,      ///< USE and a name, or words and a block in brackets
};
