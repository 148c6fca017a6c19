// Writes a dictionary for libFuzzer to standard output: the keywords of the parser and the types of prototypes' fields.

#include <iostream>

#include "qelvrml/parser/KeywordTable.h"

int main() {
  for (const ParserKeywordEntry& row : GetKeywordTable()) std::cout << '"' << row.Name << "\"\n";
  for (const char* text : {"#VRML V1.0 ascii\\x0A", "#VRML V2.0 utf8\\x0A", "SFFloat", "MFNode", "SFImage", "MFString",
                           "SFRotation", " -1 ", "1e39", "TRUE", "FALSE", R"(\"part.wrl\")", R"(\"tile.png\")"}) {
    std::cout << '"' << text << "\"\n";
  }
  return 0;
}
