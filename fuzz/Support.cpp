#include "Support.h"

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <span>
#include <vector>

#include "qelvrml/platform/brixex/CKelWorld.h"
#include "support/CheckModel.h"

namespace {

constexpr std::string_view Part = "#VRML V2.0 utf8\nDEF part Shape { geometry Box {} }\n";

/// A running hash, FNV-1a.
class Digest {
public:
  template <class Value>
  void Add(const Value& value) {
    AddBytes(&value, sizeof value);
  }
  template <class Value>
  void AddAll(const std::vector<Value>& values) {
    Add(values.size());
    AddBytes(values.data(), values.size() * sizeof(Value));
  }
  void AddText(std::u16string_view text) { AddBytes(text.data(), text.size() * sizeof(char16_t)); }
  std::uint64_t Value() const { return Sum; }

private:
  void AddBytes(const void* bytes, std::size_t size) {
    for (const unsigned char byte : std::span(static_cast<const unsigned char*>(bytes), size))
      Sum = (Sum ^ byte) * 0x100000001B3U;
  }

  std::uint64_t Sum = 0xCBF29CE484222325U;
};

void AddMaterial(Digest& digest, const brixMaterial& material) {
  brixChroma colour;
  for (const auto get :
       {&brixMaterial::GetAmbient, &brixMaterial::GetDiffuse, &brixMaterial::GetSpecular, &brixMaterial::GetEmission}) {
    (material.*get)(colour);
    digest.Add(colour);
  }
  digest.Add(material.GetShininess());
}

std::uint64_t DigestOf(const brixBaseObject& object) {
  Digest digest;
  for (const char* name = object.GetClassName(); *name; ++name) digest.Add(*name);
  AddMaterial(digest, object.GetMatProps().GetFrontMaterial());
  AddMaterial(digest, object.GetMatProps().GetBackMaterial());
  digest.AddAll(StoredPoints(object));
  brixEvaluation evaluation;
  object.Evaluate(0.0, evaluation);
  digest.AddAll(evaluation.Points);
  digest.AddAll(evaluation.Normals);
  digest.AddAll(evaluation.Triangles);
  digest.AddAll(evaluation.Segments);
  return digest.Value();
}

void AddGroup(Digest& tree, std::uint64_t& objects, const brixBaseGroup& group) {
  tree.AddText(group.GetGroupName().GetText());
  tree.Add(group.GetNumObjects());
  for (int i = 0; i < group.GetNumObjects(); ++i) {
    const std::uint64_t digest = DigestOf(*group.GetObjectAt(i));
    tree.AddText(group.GetObjectAt(i)->GetObjectName().GetText());
    tree.Add(digest);
    objects += digest;
  }
  tree.Add(group.GetNumGroups());
  for (int i = 0; i < group.GetNumGroups(); ++i) AddGroup(tree, objects, *group.GetGroupAt(i));
}

}  // namespace

void Require(bool holds, std::string_view what) {
  if (holds) return;
  std::cerr << "fault: " << what << '\n';
  std::abort();
}

Scratch::Scratch() {
  const std::filesystem::path memory = "/dev/shm";
  const auto parent = std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
  std::string pattern = (parent / "qelvrml-fuzz-XXXXXX").string();
  Require(mkdtemp(pattern.data()) != nullptr, "no scratch folder");
  Place = pattern;
  std::filesystem::copy_file(QELVRML_TEST_SCENES "/tile.png", Place / "tile.png");
  Write("part.wrl", Part);
  setenv("TMPDIR", Place.c_str(), 1);
}

Scratch::~Scratch() {
  std::error_code error;
  std::filesystem::remove_all(Place, error);
}

const Scratch& Scratch::Get() {
  static const Scratch scratch;
  return scratch;
}

std::string Scratch::Write(const std::string& name, std::string_view bytes) const {
  const std::filesystem::path path = Place / name;
  std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return path.string();
}

ModelDigest LoadAndDigest(CVRMLParser& parser, const std::string& path) {
  CKelWorld world;
  const VRMLLoadResultTypes result = parser.Parse(&world, path.c_str());
  const std::string fault = FindFault(world);
  Require(fault.empty(), fault);
  Require(parser.GetAllowDictionaryUpdate() && !parser.GetSkippingBlock(), "a load that leaves the parser changed");
  ModelDigest digest{.Result = static_cast<int>(result),
                     .Units = static_cast<int>(parser.GetImageUnits()),
                     .MissingFiles = parser.GetMissingFiles().size()};
  Digest tree;
  AddGroup(tree, digest.Objects, world);
  digest.Groups = tree.Value();
  return digest;
}
