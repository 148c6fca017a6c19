#pragma once

#include <cstdint>

/// What a token is to the node parsers.
///
/// An enumerator without a comment of its own is the keyword of its name, in any case of letters. A keyword may name a
/// node, a field or both: where it stands decides. Several words may share an enumerator. A keyword in the place of a
/// DEF name is a name.
enum VRMLTokenTypes : std::uint32_t {
  VRMLTokenUnknown = 0,       ///< no keyword and no name of a known prototype
  VRMLTokenEndOfFile = 1,     ///< the file, or the buffer that is being read, is at its end
  VRMLTokenDEF = 2,           ///< the next token is a name
  VRMLTokenUSE = 3,           ///< the next token is a name
  VRMLTokenOpenBrace = 4,     ///< {
  VRMLTokenCloseBrace = 5,    ///< }
  VRMLTokenOpenBracket = 6,   ///< [
  VRMLTokenCloseBracket = 7,  ///< ]
  VRMLTokenPOINT = 8,         ///< a field of coordinates
  VRMLTokenSTRING = 9,        ///< the keyword, and every quoted text
  VRMLTokenBoolean = 10,      ///< TRUE or FALSE
  VRMLTokenNumber = 11,       ///< a number
  VRMLTokenOpenParen = 12,    ///< (
  VRMLTokenCloseParen = 13,   ///< )
  /// Nodes and fields of VRML 1.0, many of them of VRML 2.0 too.
  /// @{
  VRMLTokenASCIITEXT = 14,
  VRMLTokenSPACING = 15,
  VRMLTokenJUSTIFICATION = 16,
  VRMLTokenCALLBACK = 18,
  VRMLTokenCENTER = 19,
  VRMLTokenCONE = 20,
  VRMLTokenBOTTOMRADIUS = 21,
  VRMLTokenCOORDINATE = 22,  ///< Coordinate or Coordinate3
  VRMLTokenCUBE = 23,
  VRMLTokenCYLINDER = 24,
  VRMLTokenDIRECTIONALLIGHT = 25,
  VRMLTokenFONTSTYLE = 26,
  VRMLTokenGROUP = 27,
  VRMLTokenINDEXEDFACESET = 28,
  VRMLTokenCOORDINDEX = 29,
  VRMLTokenMATERIALINDEX = 30,
  VRMLTokenNORMALINDEX = 31,
  VRMLTokenTEXTURECOORDINDEX = 32,  ///< textureCoordIndex or texCoord
  VRMLTokenINDEXEDLINESET = 33,
  VRMLTokenINFO = 34,
  VRMLTokenLOD = 35,  ///< LOD or LevelOfDetail
  VRMLTokenLEVEL = 36,
  VRMLTokenMATERIAL = 37,
  VRMLTokenAMBIENTCOLOR = 38,
  VRMLTokenDIFFUSECOLOR = 39,
  VRMLTokenSPECULARCOLOR = 40,
  VRMLTokenEMISSIVECOLOR = 41,
  VRMLTokenSHININESS = 42,
  VRMLTokenTRANSPARENCY = 43,
  VRMLTokenMATERIALBINDING = 44,
  VRMLTokenMATRIXTRANSFORM = 45,
  VRMLTokenMATRIX = 46,
  VRMLTokenNORMAL = 47,
  VRMLTokenVECTOR = 48,
  VRMLTokenNORMALBINDING = 49,
  VRMLTokenORTHOGRAPHICCAMERA = 50,
  VRMLTokenPERSPECTIVECAMERA = 51,
  VRMLTokenPOINTLIGHT = 52,
  VRMLTokenPOINTSET = 53,
  VRMLTokenSTARTINDEX = 54,
  VRMLTokenNUMPOINTS = 55,
  VRMLTokenRANGE = 56,
  VRMLTokenROTATION = 57,
  VRMLTokenSCALE = 58,
  VRMLTokenSCALEFACTOR = 59,
  VRMLTokenSEPARATOR = 60,  ///< Separator or TransformSeparator
  VRMLTokenRENDERCACHING = 61,
  VRMLTokenRENDERCULLING = 62,
  VRMLTokenSHAPEHINTS = 63,
  VRMLTokenSPHERE = 64,
  VRMLTokenSPOTLIGHT = 65,
  VRMLTokenSWITCH = 66,
  VRMLTokenWHICHCHOICE = 67,
  VRMLTokenWHICHCHILD = 68,
  VRMLTokenCHOICE = 69,
  VRMLTokenTRANSFORM = 70,
  VRMLTokenSCALEORIENTATION = 71,
  VRMLTokenTRANSLATION = 72,
  VRMLTokenWWWANCHOR = 73,
  VRMLTokenINLINE = 74,  ///< Inline or WWWInline
  VRMLTokenURL = 75,
  VRMLTokenBBOXSIZE = 76,
  VRMLTokenBBOXCENTER = 77,
  /// @}
  /// The field of a binding and its values, from VRMLTokenOVERALL on in the order of VRMLBindingTypes.
  /// @{
  VRMLTokenVALUE = 78,
  VRMLTokenDEFAULT = 79,
  VRMLTokenOVERALL = 80,
  VRMLTokenPER_PART = 81,
  VRMLTokenPER_PART_INDEXED = 82,
  VRMLTokenPER_FACE = 83,
  VRMLTokenPER_FACE_INDEXED = 84,
  VRMLTokenPER_VERTEX = 85,
  VRMLTokenPER_VERTEX_INDEXED = 86,
  /// @}
  /// Fields of the solids with their values, and the name of an inlined file.
  /// @{
  VRMLTokenWIDTH = 87,
  VRMLTokenHEIGHT = 88,
  VRMLTokenDEPTH = 89,
  VRMLTokenRADIUS = 90,
  VRMLTokenSIDES = 91,
  VRMLTokenTOP = 92,
  VRMLTokenBOTTOM = 93,
  VRMLTokenALL = 94,
  VRMLTokenPARTS = 95,
  VRMLTokenNAME = 96,
  /// @}
  VRMLTokenNULL = 97,  ///< no node
  /// Nodes and fields of VRML 2.0.
  /// @{
  VRMLTokenBOX = 98,
  VRMLTokenSIZE = 99,
  VRMLTokenCOLLISION = 100,
  VRMLTokenCOLLIDE = 101,
  VRMLTokenADDCHILDREN = 102,
  VRMLTokenREMOVECHILDREN = 103,
  VRMLTokenPROXY = 104,
  VRMLTokenCHILDREN = 105,
  VRMLTokenAPPEARANCE = 106,
  VRMLTokenSHAPE = 107,
  VRMLTokenGEOMETRY = 108,
  VRMLTokenCOORD = 109,
  VRMLTokenAMBIENTINTENSITY = 110,
  VRMLTokenCOLOR = 111,
  /// @}
  VRMLTokenProtoUse = 112,  ///< a word that names a prototype known at that moment
  /// The words of prototypes.
  /// @{
  VRMLTokenIS = 113,
  VRMLTokenPROTO = 114,
  VRMLTokenEXTERNPROTO = 115,
  VRMLTokenEVENTIN = 116,
  VRMLTokenEVENTOUT = 117,
  VRMLTokenEXPOSEDFIELD = 118,
  VRMLTokenFIELD = 119,
  /// @}
  /// Geometry of VRML 2.0 with its fields.
  /// @{
  VRMLTokenELEVATIONGRID = 120,
  VRMLTokenSOLID = 121,
  VRMLTokenXDIMENSION = 122,
  VRMLTokenXSPACING = 123,
  VRMLTokenZDIMENSION = 124,
  VRMLTokenZSPACING = 125,
  VRMLTokenEXTRUSION = 126,
  VRMLTokenSPINE = 127,
  VRMLTokenCROSSSECTION = 128,
  VRMLTokenBEGINCAP = 129,
  VRMLTokenENDCAP = 130,
  VRMLTokenORIENTATION = 131,
  VRMLTokenSIDE = 132,
  VRMLTokenTRIANGLESTRIPSET = 133,
  VRMLTokenNUMVERTICES = 134,
  /// @}
  /// Textures of VRML 2.0 with their fields.
  /// @{
  VRMLTokenTEXTURECOORDINATE = 135,
  VRMLTokenTEXTURE = 136,
  VRMLTokenTEXTURETRANSFORM = 137,
  VRMLTokenIMAGETEXTURE = 138,
  VRMLTokenPIXELTEXTURE = 139,
  VRMLTokenREPEATS = 140,
  VRMLTokenREPEATT = 141,
  VRMLTokenIMAGE = 142,
  /// @}
};

/// Number of token values. They run from 0 and leave out 17, for hosts share the numbers in tables of their own.
inline constexpr std::uint32_t VRMLTokenCount = 143;
