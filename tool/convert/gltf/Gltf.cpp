#include "convert/gltf/Gltf.h"

#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string_view>

#include "convert/gltf/BinaryData.h"
#include "convert/gltf/GltfMaterials.h"
#include "text/Units.h"

namespace {

namespace fs = std::filesystem;

constexpr std::size_t PointsMode = 0;
constexpr std::size_t LinesMode = 1;

std::vector<bool> FindTransparent(const std::vector<Image>& images) {
  std::vector<bool> transparent;
  transparent.reserve(images.size());
  for (const Image& image : images) transparent.push_back(!IsOpaque(image));
  return transparent;
}

/// Puts a scene together; where images and numbers are is told by its caller.
class GltfMaker {
public:
  explicit GltfMaker(const Scene& scene)
      : Source(scene), Data(MetresOf(scene.Units)), Materials(FindTransparent(scene.Images)) {}

  void AddImageInBuffer(std::string file) {
    JsonObject image;
    image.Add("bufferView", Data.AddFile(std::move(file))).Add("mimeType", Quoted("image/png"));
    Images.Add(image.Text());
  }
  void AddImageBeside(const std::string& uri) { Images.Add(JsonObject().Add("uri", Quoted(uri)).Text()); }

  void AddMeshes() {
    JsonList top;
    AddChildren(Source.Root, top);
    Scenes.Add(JsonObject().Add("nodes", top.Text()).Text());
  }

  std::size_t GetBufferSize() const { return Data.GetBufferSize(); }
  void MoveBufferTo(std::string& file) { Data.MoveBufferTo(file); }

  // `bufferUri` is where the buffer is; empty for the file that this text stands in.
  std::string Text(const std::string& bufferUri) const {
    JsonObject buffer;
    buffer.Add("byteLength", Data.GetBufferSize());
    if (!bufferUri.empty()) buffer.Add("uri", Quoted(bufferUri));
    JsonList buffers;
    buffers.Add(buffer.Text());
    JsonObject file;
    file.Add("asset", R"({"version":"2.0","generator":"qelvrml )" QELVRML_VERSION "\"}");
    if (Materials.HasUnlit()) file.Add("extensionsUsed", R"(["KHR_materials_unlit"])");
    file.Add("scene", std::size_t{0}).Add("scenes", Scenes).Add("nodes", Nodes).Add("meshes", Meshes);
    file.Add("materials", Materials.GetMaterials()).Add("textures", Materials.GetTextures());
    file.Add("samplers", Materials.GetSamplers()).Add("images", Images);
    file.Add("accessors", Data.GetAccessors()).Add("bufferViews", Data.GetViews()).Add("buffers", buffers);
    return file.Text();
  }

private:
  void AddChildren(const SceneGroup& group, JsonList& children) {
    for (const std::size_t index : group.Parts) children.Add(std::to_string(AddNode(Source.Parts[index])));
    for (const SceneGroup& inner : group.Groups) children.Add(std::to_string(AddNode(inner)));
  }

  std::size_t AddNode(const SceneGroup& group) {
    JsonList children;
    AddChildren(group, children);
    return Nodes.Add(Named(group.Name).Add("children", children).Text());
  }

  std::size_t AddNode(const Part& part) {
    JsonList primitives;
    primitives.Add(Primitive(part));
    const std::size_t mesh = Meshes.Add(Named(PartName(part)).Add("primitives", primitives).Text());
    return Nodes.Add(Named(part.Name).Add("mesh", mesh).Text());
  }

  std::string Primitive(const Part& part) {
    const Shape& form = part.Form;
    JsonObject attributes;
    attributes.Add("POSITION", Data.AddPoints(form.Points));
    JsonObject primitive;
    if (!form.Triangles.empty()) {
      attributes.Add("NORMAL", Data.AddNormals(form.Normals));
      if (part.Surface.Texture != Look::NoTexture) {
        attributes.Add("TEXCOORD_0", Data.AddTextureCoordinates(form.TextureCoordinates));
      }
      primitive.Add("indices", Data.AddIndices(form.Triangles, form.Points.size()));
      primitive.Add("material", Materials.OfSurface(part.Surface));
    } else {
      const bool lines = !form.Segments.empty();
      if (lines) primitive.Add("indices", Data.AddIndices(form.Segments, form.Points.size()));
      primitive.Add("mode", lines ? LinesMode : PointsMode).Add("material", Materials.OfLines(part.Surface));
    }
    return primitive.Add("attributes", attributes.Text()).Text();
  }

  static JsonObject Named(const std::string& name) {
    JsonObject object;
    if (!name.empty()) object.Add("name", Quoted(name));
    return object;
  }

  const Scene& Source;
  BinaryData Data;
  GltfMaterials Materials;
  JsonList Images;
  JsonList Scenes;
  JsonList Nodes;
  JsonList Meshes;
};

// A name as part of a URI, RFC 3986.
std::string PercentEncoded(const std::string& name) {
  constexpr std::string_view Digits = "0123456789ABCDEF";
  constexpr std::string_view Plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_.~";
  std::string encoded;
  for (const char c : name) {
    const auto byte = static_cast<unsigned char>(c);
    if (Plain.find(c) != std::string_view::npos) {
      encoded += c;
    } else {
      encoded += {'%', Digits[byte >> 4U], Digits[byte & 15U]};
    }
  }
  return encoded;
}

void AppendNumber(std::string& bytes, std::size_t number) {
  if (number > std::numeric_limits<std::uint32_t>::max()) throw std::length_error("too large for a .glb file");
  const auto value = static_cast<std::uint32_t>(number);
  bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

}  // namespace

std::vector<MadeFile> MakeGlb(const Scene& scene, const fs::path& path) {
  constexpr std::size_t Version = 2;
  constexpr std::size_t HeaderSize = 12;
  constexpr std::size_t ChunkHeaderSize = 8;
  GltfMaker maker(scene);
  for (const Image& image : scene.Images) maker.AddImageInBuffer(EncodePng(image));
  maker.AddMeshes();
  std::string text = maker.Text("");
  text.resize((text.size() + 3) / 4 * 4, ' ');
  const std::size_t bufferSize = maker.GetBufferSize();
  std::string file = "glTF";
  AppendNumber(file, Version);
  AppendNumber(file, HeaderSize + 2 * ChunkHeaderSize + text.size() + bufferSize);
  AppendNumber(file, text.size());
  file += "JSON" + text;
  AppendNumber(file, bufferSize);
  file += std::string_view("BIN\0", 4);
  maker.MoveBufferTo(file);
  return {{path.string(), std::move(file)}};
}

std::vector<MadeFile> MakeGltf(const Scene& scene, const fs::path& path) {
  const std::string name = path.filename().string();
  std::vector<MadeFile> files;
  const auto addBeside = [&](const std::string& file, std::string bytes) {
    files.push_back({(path.parent_path() / file).string(), std::move(bytes)});
    return PercentEncoded(file);
  };
  GltfMaker maker(scene);
  for (const Image& image : scene.Images) {
    maker.AddImageBeside(addBeside(name + "-" + std::to_string(files.size() + 1) + ".png", EncodePng(image)));
  }
  maker.AddMeshes();
  const std::string binaryName = path.stem().string() + ".bin";
  std::string text = maker.Text(PercentEncoded(binaryName));
  std::string buffer;
  maker.MoveBufferTo(buffer);
  addBeside(binaryName, std::move(buffer));
  files.push_back({path.string(), std::move(text)});
  return files;
}
