// Loads any bytes as a scene in several ways that give the same model: from a plain file, from a gzip file, and a
// second time on the parser that has loaded it before.
//
// What a parser keeps from load to load are names, prototypes, open scopes and the last warning; a scene that leaves
// any of these isn't loaded twice on one parser. A packed scene has no subfiles, for it is read in a folder of its own.

#include "Support.h"
#include "qelvrml/foundation/AsciiCase.h"
#include "qelvrml/platform/brixex/CKelList.h"
#include "support/Gzip.h"

namespace {

bool MayNameSubfiles(const std::string& scene) {
  const std::string text = qelvrml::LowerAscii(std::string_view(scene));
  return text.find("inline") != std::string::npos || text.find("externproto") != std::string::npos;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string scene(reinterpret_cast<const char*>(data), size);
  if (!scene.starts_with('#')) return 0;
  const Scratch& scratch = Scratch::Get();
  const std::string path = scratch.Write("scene.wrl", scene);
  CVRMLParser parser;
  const ModelDigest first = LoadAndDigest(parser, path);

  const bool keepsNothing = parser.GetObjectDictionary()->GetCount() == 0 &&
                            parser.GetPrototypeDictionary()->GetCount() == 0 &&
                            parser.GetSeparatorStack()->GetCount() == 0 && parser.GetLastWarning() == 0;
  if (keepsNothing) Require(LoadAndDigest(parser, path) == first, "a second load on one parser differs");

  if (MayNameSubfiles(scene)) return 0;
  CVRMLParser fresh;
  Require(LoadAndDigest(fresh, scratch.Write("scene.wrl", Gzip(scene))) == first, "a packed scene differs");
  Require(fresh.GetLastWarning() == parser.GetLastWarning(), "a packed scene has another warning");
  return 0;
}
