// The texture nodes of VRML 2.0. An image becomes a texture of the world's texture manager; the scope keeps its id.

#include <cstdint>
#include <limits>
#include <memory>
#include <new>

#include "qelvrml/dictionary/CVRMLDictionaryTextures.h"
#include "qelvrml/foundation/CutToInt.h"
#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/platform/brixex/brixMatrixFunctions.h"
#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"

namespace {

TextureWrapTypes WrapOf(bool repeats) { return repeats ? TextureWrapRepeat : TextureWrapClamp; }

// The low 32 bits of a number cut to an integer.
std::uint32_t PixelValue(double number) {
  constexpr double Bound = 9.2e18;  // fits into 64 bits
  if (number >= Bound) return static_cast<std::uint32_t>(std::numeric_limits<std::int64_t>::max());
  if (number <= -Bound) return static_cast<std::uint32_t>(std::numeric_limits<std::int64_t>::min());
  return static_cast<std::uint32_t>(static_cast<std::int64_t>(number));
}

unsigned PixelCount(int width, int height) {
  if (width <= 0 || height <= 0) return 0;
  const std::uint64_t count = static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height);
  return count > std::numeric_limits<unsigned>::max() ? std::numeric_limits<unsigned>::max()
                                                      : static_cast<unsigned>(count);
}

}  // namespace

/// The first three values of an image field.
struct CVRMLParser::PixelImage {
  int Width = 0;
  int Height = 0;
  int Components = 0;
};

bool CVRMLParser::TakeWrap(VRMLTokenTypes keyword, TextureWrapTypes& wrapS, TextureWrapTypes& wrapT) {
  if (keyword != VRMLTokenREPEATS && keyword != VRMLTokenREPEATT) return false;
  Tokenize();
  (keyword == VRMLTokenREPEATS ? wrapS : wrapT) = WrapOf(GetCurrentTokenBooleanValue());
  return true;
}

bool CVRMLParser::ParseImageTexture() {
  if (!CurrentSeparator || !GetTextureManager()) return PassOverNode();

  CBasicString url;
  TextureWrapTypes wrapS = TextureWrapRepeat;
  TextureWrapTypes wrapT = TextureWrapRepeat;
  StepOver({VRMLTokenOpenBrace, VRMLTokenIMAGETEXTURE});
  ForEachFieldUpToEnd([&](VRMLTokenTypes keyword) {
    if (TakeWrap(keyword, wrapS, wrapT) || keyword != VRMLTokenURL) return;
    Tokenize();
    url = TakeFirstUrl();
  });
  const int id = FindOrLoadTexture(url);
  return id != -1 && DefineTexture(id, wrapS, wrapT);
}

// The id of the image of a URL; -1 if there is no such image.
int CVRMLParser::FindOrLoadTexture(const CBasicString& url) {
  CKelTextureManager& manager = *GetTextureManager();
  CBasicString path = GetResolvedFile(url);
  path.MakeLower();
  if (!FileExists(path)) path = FindTextureBesideScene(url);
  if (path.GetLength() == 0) return -1;
  if (const CKelTexture* known = manager.GetTexture(path)) return known->GetTextureID();
  std::unique_ptr<CKelTexture> texture(new (std::nothrow) CKelTexture);
  if (!texture || !texture->GenerateTextureFromFile(path)) return -1;
  const int id = manager.RegisterTexture(texture.get());
  if (id != -1) texture.release();
  return id;
}

// Looks an image up in the folders that the host has named. What wasn't found once in a load isn't looked for again.
CBasicString CVRMLParser::FindTextureBesideScene(const CBasicString& url) {
  if (url.GetLength() == 0 || MissingTextures.count(std::u16string(url.GetView())) > 0) return {};
  const CKelTextureManager& manager = *GetTextureManager();
  CBasicString path = manager.FindTextureFilenameUsingAlternatePaths(url);
  if (path.GetLength() > 0) return path;
  MissingTextures.emplace(url.GetView());
  const std::vector<CBasicString> candidates = manager.GetAlternatePathsOf(url);
  if (candidates.empty()) NoteMissingFile(url);
  for (const CBasicString& candidate : candidates) NoteMissingFile(candidate);
  return {};
}

bool CVRMLParser::ParsePixelTexture() {
  if (!CurrentSeparator || !GetTextureManager()) return PassOverNode();

  constexpr int FewestComponents = 3;
  PixelImage image;
  TextureWrapTypes wrapS = TextureWrapRepeat;
  TextureWrapTypes wrapT = TextureWrapRepeat;
  std::unique_ptr<CKelTexture> texture(new (std::nothrow) CKelTexture);
  StepOver({VRMLTokenOpenBrace, VRMLTokenPIXELTEXTURE});
  ForEachFieldUpToEnd([&](VRMLTokenTypes keyword) {
    if (TakeWrap(keyword, wrapS, wrapT) || keyword != VRMLTokenIMAGE) return;
    ParseImageField(image, texture.get());
  });
  if (!texture || image.Width <= 0 || image.Height <= 0 || image.Components < FewestComponents) return false;
  const int id = GetTextureManager()->RegisterTexture(texture.get());
  if (id == -1) return false;
  texture.release();
  return DefineTexture(id, wrapS, wrapT);
}

void CVRMLParser::ParseImageField(PixelImage& image, CKelTexture* texture) {
  constexpr int ColourComponents = 3;
  for (int* value : {&image.Width, &image.Height, &image.Components}) {
    double number = *value;
    TakeNumber(number);
    *value = qelvrml::CutToInt(number);
  }
  const unsigned count = PixelCount(image.Width, image.Height);
  if (!texture || !texture->AllocatePixelArray(count)) return;
  texture->SetWidth(image.Width);
  texture->SetHeight(image.Height);
  if (image.Components < ColourComponents) return;
  SKelTexturePixel* pixels = texture->GetPixelArray();
  double number = 0.0;
  for (unsigned i = 0; Tokenize() && TakeNumberHere(number); ++i) {
    const std::uint32_t value = PixelValue(number) >> (image.Components > ColourComponents ? 8U : 0U);  // without alpha
    if (i < count) {
      pixels[i].Red = static_cast<unsigned char>(value >> 16U);
      pixels[i].Green = static_cast<unsigned char>(value >> 8U);
      pixels[i].Blue = static_cast<unsigned char>(value);
    }
    if (GetNextTokenType() != VRMLTokenNumber) break;
  }
}

bool CVRMLParser::DefineTexture(int textureId, TextureWrapTypes wrapS, TextureWrapTypes wrapT) {
  if (!CurrentSeparator) return false;
  CVRMLTextureState& state = CurrentSeparator->GetTextureState();
  state.SetTextureID(textureId);
  state.SetWrapS(wrapS);
  state.SetWrapT(wrapT);
  Record<CVRMLDictionaryTexture>([&](auto& entry) {
    entry.SetTextureID(textureId);
    entry.SetWrapS(wrapS);
    entry.SetWrapT(wrapT);
  });
  return true;
}

bool CVRMLParser::ParseTextureTransform() {
  if (!CurrentSeparator || !GetTextureManager()) return PassOverNode();

  brix2DFloatPoint center;
  brix2DFloatPoint scale(1.0F, 1.0F);
  brix2DFloatPoint translation;
  double rotation = 0.0;
  const auto takePoint = [this](brix2DFloatPoint& point) {
    Tokenize();
    Parse2DPoint(point);
  };
  StepOver({VRMLTokenOpenBrace, VRMLTokenTEXTURETRANSFORM});
  ForEachFieldUpToEnd([&](VRMLTokenTypes keyword) {
    switch (keyword) {
      case VRMLTokenCENTER: takePoint(center); break;
      case VRMLTokenSCALE: takePoint(scale); break;
      case VRMLTokenTRANSLATION: takePoint(translation); break;
      case VRMLTokenROTATION: {
        double radians = 0.0;
        Tokenize();
        if (TakeNumberHere(radians)) rotation = RadiansToDegrees(radians);
        break;
      }
      default: break;
    }
  });
  return DefineTextureTransform(center, scale, translation, rotation);
}

bool CVRMLParser::DefineTextureTransform(const brix2DFloatPoint& center, const brix2DFloatPoint& scale,
                                         const brix2DFloatPoint& translation, double rotation) {
  if (!CurrentSeparator) return false;
  CVRMLTextureState& state = CurrentSeparator->GetTextureState();
  state.SetCenter(center);
  state.SetScale(scale);
  state.SetTranslation(translation);
  state.SetRotation(rotation);
  Record<CVRMLDictionaryTextureTransform>([&](auto& entry) {
    entry.SetCenter(center);
    entry.SetScale(scale);
    entry.SetTranslation(translation);
    entry.SetRotation(rotation);
  });
  return true;
}

bool CVRMLParser::ParseTextureCoordinate() {
  brix2DFloatPointArray points;
  StepOver({VRMLTokenPOINT, VRMLTokenTEXTURECOORDINATE, VRMLTokenOpenBrace});
  return !Parse2DPointArray(points) || DefineTextureCoordinate(points);
}

bool CVRMLParser::DefineTextureCoordinate(const brix2DFloatPointArray& points) {
  if (!CurrentSeparator) return false;
  CurrentSeparator->GetTextureState().SetTextureCoordinates(points);
  Record<CVRMLDictionaryTextureCoordinates>(
      [&](auto& entry) { entry.SetPoints(CurrentSeparator->GetTextureState().GetTextureCoordinates()); });
  return true;
}
