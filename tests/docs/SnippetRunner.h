#pragma once

#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/platform/brixex/CKelWorld.h"
#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"

/// A snippet of a page, and what the page says that it prints.
struct Snippet {
  int Line;
  void (*Run)(CKelWorld& world, CVRMLParser& parser);
  std::string Expected;
};

/// Runs each snippet, after a load of scene.wrl; 0 if all of them print what they are to print.
inline int RunSnippets(const std::vector<Snippet>& snippets) {
  int faults = 0;
  for (const Snippet& snippet : snippets) {
    CKelWorld world;
    CVRMLParser parser;
    world.GetTextureManager()->AddAlternatePath(".");
    parser.Parse(&world, "scene.wrl");
    const std::ostringstream printed;
    std::streambuf* screen = std::cout.rdbuf(printed.rdbuf());
    snippet.Run(world, parser);
    std::cout.rdbuf(screen);
    if (printed.str() == snippet.Expected) continue;
    std::cout << "The snippet at line " << snippet.Line << " prints\n" << printed.str();
    ++faults;
  }
  if (snippets.empty()) std::cout << "There are no snippets.\n";
  return faults > 0 || snippets.empty() ? 1 : 0;
}
