// The Shape node. Its text is read twice, so that the appearance is in the scope before the geometry is read, whatever
// the order of the two in the file.

#include "qelvrml/parser/reading/NodeReader.h"
#include "qelvrml/parser/reading/PassingOver.h"
#include "qelvrml/scene/Scopes.h"

using qelvrml::NodeReader;

namespace {

bool OpenGeometryScope(CVRMLParser& parser) {
  const qelvrml::ReadingMark start(parser);
  parser.Tokenize();
  bool opened = false;
  if (parser.GetIOManager()->GetCurrentToken().GetTokenLength() > 0) {
    parser.SetEntityName(CBasicString(NodeReader(parser).Text()));
    opened = qelvrml::OpenNodeScope(parser);
  }
  start.GoBackTo(parser);
  return opened;
}

// A geometry with a DEF has a scope of its own, whose group bears the name; the name is then read once more for the
// objects.
bool ParseShapeGeometry(CVRMLParser& parser) {
  qelvrml::LeaveObjectsUnnamed(parser);
  const bool opened = NodeReader(parser).Is(VRMLTokenDEF) && OpenGeometryScope(parser);
  const bool result = parser.ParseBlock();
  if (opened) parser.PopSeparator();
  return result;
}

}  // namespace

bool CVRMLParser::ParseShape() {
  NodeReader reader(*this);
  reader.StepToOpenBrace();
  bool result = qelvrml::OpenNodeScope(*this);
  const qelvrml::ReadingMark start(*this);
  reader.WhileInNode([&](VRMLTokenTypes keyword) {
    Tokenize();
    if (keyword == VRMLTokenAPPEARANCE || keyword == VRMLTokenTEXTURETRANSFORM) result = ParseBlock();
    if (keyword == VRMLTokenGEOMETRY) SkipBlock(true);
  });
  qelvrml::GoBack(*this, start);
  while (!reader.AtNodeEnd()) {  // what stands here was looked at before
    const VRMLTokenTypes keyword = reader.Current();
    Tokenize();
    if (keyword == VRMLTokenAPPEARANCE || keyword == VRMLTokenTEXTURETRANSFORM) SkipBlock(true);
    if (keyword == VRMLTokenGEOMETRY) result = ParseShapeGeometry(*this);
  }
  PopSeparator();
  return result;
}
