// Materials and colours.

#include "qelvrml/dictionary/CVRMLDictionaryProperties.h"
#include "qelvrml/dictionary/Recording.h"
#include "qelvrml/foundation/Numbers.h"
#include "qelvrml/parser/reading/NodeReader.h"

using qelvrml::NodeReader;
using qelvrml::Record;

namespace {

// What an ambient intensity makes of the diffuse colours.
brixChromaArray AmbientColours(const brixChromaArray& diffuse, double intensity) {
  const auto dim = [intensity](float component) { return static_cast<float>(component * intensity); };
  brixChromaArray ambient;
  for (const brixChroma& colour : diffuse.View()) {
    ambient.Append({dim(colour.red), dim(colour.green), dim(colour.blue), 1.0F});
  }
  return ambient;
}

}  // namespace

bool CVRMLParser::ParseMaterial() {
  if (!CurrentSeparator) return false;

  brixChromaArray ambient;
  brixChromaArray diffuse;
  brixChromaArray specular;
  brixChromaArray emissive;
  brixDoubleArray shininess;
  brixDoubleArray transparency;
  double ambientIntensity = 0.0;
  NodeReader reader(*this);
  const auto takeColours = [this](brixChromaArray& colours) {
    Tokenize();
    ParseColorArray(colours);
  };
  const auto takeNumbers = [this](brixDoubleArray& values) {
    Tokenize();
    ParseFloatArray(values);
  };
  reader.StepOver({VRMLTokenOpenBrace, VRMLTokenMATERIAL});
  reader.ForEachFieldUpToEnd([&](VRMLTokenTypes keyword) {
    switch (keyword) {
      case VRMLTokenAMBIENTCOLOR: takeColours(ambient); break;
      case VRMLTokenDIFFUSECOLOR: takeColours(diffuse); break;
      case VRMLTokenSPECULARCOLOR: takeColours(specular); break;
      case VRMLTokenEMISSIVECOLOR: takeColours(emissive); break;
      case VRMLTokenSHININESS: takeNumbers(shininess); break;
      case VRMLTokenTRANSPARENCY: takeNumbers(transparency); break;
      case VRMLTokenAMBIENTINTENSITY: reader.TakeNumber(ambientIntensity); break;
      default: break;
    }
  });
  if (!qelvrml::IsNearZero(ambientIntensity)) ambient = AmbientColours(diffuse, ambientIntensity);
  return DefineMaterial(ambient, diffuse, specular, emissive, shininess, transparency);
}

bool CVRMLParser::DefineMaterial(const brixChromaArray& ambient, const brixChromaArray& diffuse,
                                 const brixChromaArray& specular, const brixChromaArray& emissive,
                                 const brixDoubleArray& shininess, const brixDoubleArray& transparency) {
  if (!CurrentSeparator) return false;
  CurrentSeparator->SetAmbientColor(ambient);
  CurrentSeparator->SetDiffuseColor(diffuse);
  CurrentSeparator->SetSpecularColor(specular);
  CurrentSeparator->SetEmissiveColor(emissive);
  CurrentSeparator->SetShininess(shininess);
  CurrentSeparator->SetTransparency(transparency);
  Record<CVRMLDictionaryMaterial>(*this, [&](auto& entry) {
    entry.SetAmbientColor(ambient);
    entry.SetDiffuseColor(diffuse);
    entry.SetSpecularColor(specular);
    entry.SetEmissiveColor(emissive);
    entry.SetShininess(shininess);
    entry.SetTransparency(transparency);
  });
  return true;
}

// The node's syntax plays no part: each token is tried as a value, and the last value stands.
bool CVRMLParser::ParseColor3() {
  if (!CurrentSeparator) return false;

  brixChromaArray colours;
  bool result = false;
  NodeReader reader(*this);
  reader.StepOver({VRMLTokenCOLOR});
  reader.ForEachField([&](VRMLTokenTypes /*type*/) { result = ParseColorArray(colours); });
  if (!colours.IsEmpty()) CurrentSeparator->SetDiffuseColor(colours);
  return result;
}
