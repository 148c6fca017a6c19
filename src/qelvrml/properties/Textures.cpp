// The texture nodes of VRML 2.0. An image becomes a texture of the world's texture manager; the scope keeps its id.

#include <cstdint>
#include <limits>
#include <memory>
#include <new>
#include <optional>
#include <utility>

#include "qelvrml/dictionary/CVRMLDictionaryTextures.h"
#include "qelvrml/dictionary/Recording.h"
#include "qelvrml/files/MissingFiles.h"
#include "qelvrml/foundation/AsciiCase.h"
#include "qelvrml/foundation/Numbers.h"
#include "qelvrml/parser/load/Budget.h"
#include "qelvrml/parser/load/LoadState.h"
#include "qelvrml/parser/load/Notes.h"
#include "qelvrml/parser/load/ParserInternals.h"
#include "qelvrml/parser/reading/NodeReader.h"
#include "qelvrml/parser/reading/PassingOver.h"
#include "qelvrml/platform/brixex/brixMatrixFunctions.h"
#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"
#include "qelvrml/platform/brixex/textures/ImageFile.h"
#include "qelvrml/platform/fileint/FileText.h"

using qelvrml::KnownImages;
using qelvrml::NodeReader;
using qelvrml::ParserInternals;
using qelvrml::Record;

namespace {

TextureWrapTypes WrapOf(bool repeats) { return repeats ? TextureWrapRepeat : TextureWrapClamp; }

// The low 32 bits of a number cut to an integer.
std::uint32_t PixelValue(double number) {
  constexpr double Bound = 0x1p63;
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

// The repeat fields that the texture nodes have in common; false for any other keyword.
bool TakeWrap(CVRMLParser& parser, VRMLTokenTypes keyword, TextureWrapTypes& wrapS, TextureWrapTypes& wrapT) {
  if (keyword != VRMLTokenREPEATS && keyword != VRMLTokenREPEATT) return false;
  parser.Tokenize();
  (keyword == VRMLTokenREPEATS ? wrapS : wrapT) = WrapOf(parser.GetCurrentTokenBooleanValue());
  return true;
}

KnownImages& ImagesOf(CVRMLParser& parser) {
  KnownImages& images = ParserInternals::Load(parser).Images;
  const CKelTextureManager* manager = parser.GetTextureManager();
  if (images.Manager != manager) images = {.Manager = manager, .ByUrl = {}, .ByFile = {}};
  return images;
}

// Gives a texture to the manager under a path; -1 if it doesn't take it.
int RegisterAs(CVRMLParser& parser, std::unique_ptr<CKelTexture> texture, const CBasicString& path) {
  texture->SetFilename(path);
  const int id = parser.GetTextureManager()->RegisterTexture(texture.get());
  if (id != -1) texture.release();
  return id;
}

// Reads the image in an opened file; -1 if it can't be decoded, or is more than the load may make.
int LoadTexture(CVRMLParser& parser, CKelFileInterface& file, const CBasicString& path) {
  ParserInternals::Load(parser).Made.AddInput(static_cast<std::uint64_t>(file.GetFileSize()));
  std::unique_ptr<CKelTexture> texture(new (std::nothrow) CKelTexture);
  if (!texture) return -1;
  if (!file.ReadNextBlockFromFile()) {
    qelvrml::NoteName(parser, VRMLNoteRefusedFile, path);
    return -1;
  }
  const std::shared_ptr<const qelvrml::FileText> block = file.GetBlock();
  qelvrml::Image image =
      qelvrml::DecodeImage({block->begin(), block->GetSize()}, CKelTexture::MostPixels, [&](std::uint64_t pixels) {
        return qelvrml::CanMake(parser, {.Pixels = pixels, .Steps = pixels * qelvrml::StepsOfADecodedPixel});
      });
  if (!image.Pixels) {
    qelvrml::NoteName(parser, VRMLNoteRefusedFile, path);
    return -1;
  }
  texture->SetImage(std::move(image.Pixels), image.Width, image.Height);
  return RegisterAs(parser, std::move(texture), path);
}

// A texture of another name with the image of one that the load has read already; -1 if that had none.
int ShareTexture(CVRMLParser& parser, int known, const CBasicString& path) {
  const CKelTexture* image = parser.GetTextureManager()->GetTextureAt(known - 1);
  if (!image || !qelvrml::CanMake(parser, {.Objects = 1})) return -1;
  std::unique_ptr<CKelTexture> texture(new (std::nothrow) CKelTexture);
  if (!texture) return -1;
  texture->ShareImage(*image);
  return RegisterAs(parser, std::move(texture), path);
}

// The id of the image in a file, and nothing without such a file. Textures are known by their paths, and within a load
// an image is read once, whatever paths lead to its file.
std::optional<int> TextureAt(CVRMLParser& parser, const CBasicString& path) {
  CKelFileInterface file;
  file.SetFolders(&ParserInternals::Load(parser).Folders);
  if (!file.Open(path)) return std::nullopt;
  auto& byFile = ImagesOf(parser).ByFile;
  const auto place = byFile.find(file.GetIdentity());
  const CKelTexture* known = parser.GetTextureManager()->GetTexture(path);
  if (!known && place != byFile.end()) return ShareTexture(parser, place->second, path);
  const int id = known ? known->GetTextureID() : LoadTexture(parser, file, path);
  byFile.insert_or_assign(file.GetIdentity(), id);
  return id;
}

// Looks an image up in the folders that the host has named, once for each name in a load.
int TextureInHostFolders(CVRMLParser& parser, const qelvrml::FileReference& url) {
  if (url.Name.GetLength() == 0 || url.Name.GetLength() > qelvrml::MaximumNameLength) return -1;
  const std::u16string name(url.Name.GetView());
  auto& byUrl = ImagesOf(parser).ByUrl;
  const auto place = byUrl.find(name);
  if (place != byUrl.end()) return place->second;
  if (!qelvrml::AskForFile(parser)) return -1;
  if (!qelvrml::CanMake(parser, {.Steps = qelvrml::StepsOfASubfile})) return -1;
  const std::vector<CBasicString> candidates = parser.GetTextureManager()->GetAlternatePathsOf(url.Name);
  std::optional<int> id;
  for (auto path = candidates.begin(); path != candidates.end() && !id; ++path) id = TextureAt(parser, *path);
  byUrl.emplace(name, id.value_or(-1));
  if (id || !url.IsName) return id.value_or(-1);
  if (candidates.empty()) qelvrml::NoteMissingFile(parser, url.Name);
  for (const CBasicString& candidate : candidates) qelvrml::NoteMissingFile(parser, candidate);
  return -1;
}

// The id of the image of a URL, at the path that the host gives for it or in its folders; -1 for none.
int FindTexture(CVRMLParser& parser, const CBasicString& hostPath, const qelvrml::FileReference& url) {
  // Names of a file system that knows no case; opening finds the file in any case of these letters.
  const CBasicString path(qelvrml::LowerAscii(hostPath.GetView()));
  if (path.GetLength() > 0 && path.GetLength() <= qelvrml::MaximumNameLength) {
    const bool known = parser.GetTextureManager()->GetTexture(path) != nullptr;
    if (!known && !qelvrml::AskForFile(parser)) return -1;
    if (const std::optional<int> id = TextureAt(parser, path)) return *id;
  }
  return TextureInHostFolders(parser, url);
}

/// What an image field says.
struct PixelImage {
  int Width = 0;
  int Height = 0;
  int Components = 0;
  bool CanBeMade = true;  ///< within what the load may make
};

void TakePixels(CVRMLParser& parser, const PixelImage& image, unsigned count, SKelTexturePixel* pixels) {
  constexpr int ColourComponents = 3;
  NodeReader reader(parser);
  double number = 0.0;
  for (unsigned i = 0; parser.Tokenize() && reader.TakeNumberHere(number); ++i) {
    const std::uint32_t value = PixelValue(number) >> (image.Components > ColourComponents ? 8U : 0U);  // without alpha
    if (i < count) {
      pixels[i].Red = static_cast<unsigned char>(value >> 16U);
      pixels[i].Green = static_cast<unsigned char>(value >> 8U);
      pixels[i].Blue = static_cast<unsigned char>(value);
    }
    if (parser.GetNextTokenType() != VRMLTokenNumber) break;
  }
}

constexpr int FewestComponents = 3;  // images of one or two aren't supported

void ParseImageField(CVRMLParser& parser, PixelImage& image, CKelTexture* texture) {
  NodeReader reader(parser);
  for (int* value : {&image.Width, &image.Height, &image.Components}) {
    double number = *value;
    reader.TakeNumber(number);
    *value = qelvrml::CutToInt(number);
  }
  const unsigned count = PixelCount(image.Width, image.Height);
  if (count > CKelTexture::MostPixels && !parser.GetSkippingBlock()) {
    qelvrml::Note(parser, VRMLNoteLimit, qelvrml::limits::Pixels);
  }
  if (!texture || count > CKelTexture::MostPixels) return;
  image.CanBeMade = qelvrml::CanMake(parser, {.Pixels = count});
  if (!image.CanBeMade || !texture->AllocatePixelArray(count)) return;
  texture->SetWidth(image.Width);
  texture->SetHeight(image.Height);
  if (image.Components >= FewestComponents) TakePixels(parser, image, count, texture->GetPixelArray());
}

}  // namespace

bool CVRMLParser::ParseImageTexture() {
  if (!CurrentSeparator || !GetTextureManager()) return qelvrml::PassOverNode(*this);

  const qelvrml::LoadRun run(*this);
  qelvrml::FileReference url;
  TextureWrapTypes wrapS = TextureWrapRepeat;
  TextureWrapTypes wrapT = TextureWrapRepeat;
  NodeReader reader(*this);
  reader.StepOver({VRMLTokenOpenBrace, VRMLTokenIMAGETEXTURE});
  reader.ForEachFieldUpToEnd([&](VRMLTokenTypes keyword) {
    if (TakeWrap(*this, keyword, wrapS, wrapT) || keyword != VRMLTokenURL) return;
    Tokenize();
    url = reader.TakeFirstUrl();
  });

  const int id = FindTexture(*this, GetResolvedFile(url.Name), url);
  return id != -1 && DefineTexture(id, wrapS, wrapT);
}

bool CVRMLParser::ParsePixelTexture() {
  if (!CurrentSeparator || !GetTextureManager()) return qelvrml::PassOverNode(*this);

  PixelImage image;
  TextureWrapTypes wrapS = TextureWrapRepeat;
  TextureWrapTypes wrapT = TextureWrapRepeat;
  std::unique_ptr<CKelTexture> texture(new (std::nothrow) CKelTexture);
  const char* place = IOManager.GetCurrentPlace();
  NodeReader reader(*this);
  reader.StepOver({VRMLTokenOpenBrace, VRMLTokenPIXELTEXTURE});
  reader.ForEachFieldUpToEnd([&](VRMLTokenTypes keyword) {
    if (TakeWrap(*this, keyword, wrapS, wrapT) || keyword != VRMLTokenIMAGE) return;
    ParseImageField(*this, image, texture.get());
  });
  if (!texture || !image.CanBeMade) return false;
  if (image.Width <= 0 || image.Height <= 0 || image.Components < FewestComponents) {
    if (SkippingBlock) return false;
    qelvrml::Note(*this, VRMLNoteDroppedNode, "PixelTexture", place);
    if (DefinedEntity) qelvrml::NoteName(*this, VRMLNoteDroppedName, EntityName, place);
    return false;
  }
  const int id = GetTextureManager()->RegisterTexture(texture.get());
  if (id == -1) return false;
  texture.release();
  return DefineTexture(id, wrapS, wrapT);
}

bool CVRMLParser::DefineTexture(int textureId, TextureWrapTypes wrapS, TextureWrapTypes wrapT) {
  if (!CurrentSeparator) return false;
  CVRMLTextureState& state = CurrentSeparator->GetTextureState();
  state.SetTextureID(textureId);
  state.SetWrapS(wrapS);
  state.SetWrapT(wrapT);
  Record<CVRMLDictionaryTexture>(*this, [&](auto& entry) {
    entry.SetTextureID(textureId);
    entry.SetWrapS(wrapS);
    entry.SetWrapT(wrapT);
  });
  return true;
}

bool CVRMLParser::ParseTextureTransform() {
  if (!CurrentSeparator || !GetTextureManager()) return qelvrml::PassOverNode(*this);

  brix2DFloatPoint center;
  brix2DFloatPoint scale(1.0F, 1.0F);
  brix2DFloatPoint translation;
  double rotation = 0.0;
  const auto takePoint = [this](brix2DFloatPoint& point) {
    Tokenize();
    Parse2DPoint(point);
  };
  NodeReader reader(*this);
  reader.StepOver({VRMLTokenOpenBrace, VRMLTokenTEXTURETRANSFORM});
  reader.ForEachFieldUpToEnd([&](VRMLTokenTypes keyword) {
    switch (keyword) {
      case VRMLTokenCENTER: takePoint(center); break;
      case VRMLTokenSCALE: takePoint(scale); break;
      case VRMLTokenTRANSLATION: takePoint(translation); break;
      case VRMLTokenROTATION: {
        double radians = 0.0;
        Tokenize();
        if (reader.TakeNumberHere(radians)) rotation = RadiansToDegrees(radians);
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
  Record<CVRMLDictionaryTextureTransform>(*this, [&](auto& entry) {
    entry.SetCenter(center);
    entry.SetScale(scale);
    entry.SetTranslation(translation);
    entry.SetRotation(rotation);
  });
  return true;
}

bool CVRMLParser::ParseTextureCoordinate() {
  brix2DFloatPointArray points;
  NodeReader(*this).StepOver({VRMLTokenPOINT, VRMLTokenTEXTURECOORDINATE, VRMLTokenOpenBrace});
  return !Parse2DPointArray(points) || DefineTextureCoordinate(points);
}

bool CVRMLParser::DefineTextureCoordinate(const brix2DFloatPointArray& points) {
  if (!CurrentSeparator) return false;
  CurrentSeparator->GetTextureState().SetTextureCoordinates(points);
  Record<CVRMLDictionaryTextureCoordinates>(
      *this, [&](auto& entry) { entry.SetPoints(CurrentSeparator->GetTextureState().GetTextureCoordinates()); });
  return true;
}
