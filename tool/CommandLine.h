#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "picture/PictureOptions.h"

namespace CLI {
class App;
}

// What the command says about itself: its arguments, and the tables of its man page and completions. Nothing here needs
// the library.

enum class Command { Info, Dump, Measure, Convert, View, Picture };

/// What the arguments ask for.
struct Arguments {
  Command Asked = Command::Info;
  std::vector<std::string> Paths;  ///< what is read
  bool Json = false;
  double Tolerance = 0.0;  ///< in units of the model; 0 for the command's own
  std::string Output;      ///< file to be written; empty for the command's own
  std::string Format;      ///< ending of the files to be written, such as "glb"; empty to go by that of Output
  std::string Folder;      ///< where these files go
  bool Force = false;      ///< files that are there are replaced
  PictureOptions Picture;
};

/// The sub-commands and options of the command; parsing fills `arguments`, which has to live as long.
std::unique_ptr<CLI::App> MakeCommandLine(Arguments& arguments);

inline constexpr int StatusNothingLoaded = 1;
inline constexpr int StatusNotOpened = 2;
inline constexpr int StatusWrongArguments = 64;
inline constexpr int StatusInternalError = 70;
inline constexpr int StatusOutOfMemory = 71;
inline constexpr int StatusNotWritten = 73;

/// Behind what --help says first.
inline constexpr const char* Description =
    "Results go to standard output. What went wrong stands in one line on standard error.\n"
    "Files are read leniently: what a file holds and isn't known, or can't be used, is passed over, and info tells so "
    "in\n"
    "notes.";

/// A word of a table, and what it means.
struct Meaning {
  const char* Word;
  const char* Text;
};

inline constexpr std::array ExitStatuses = {
    Meaning{"0", "everything was loaded"},
    Meaning{"1", "nothing in a file could be loaded or shown, it isn't VRML, or a folder has none"},
    Meaning{"2", "a file or folder can't be opened"},
    Meaning{"3", "a file can't be unpacked"},
    Meaning{"64", "wrong arguments, or a command that this build lacks"},
    Meaning{"70", "the output can't be written, or made"},
    Meaning{"71", "memory ran out"},
    Meaning{"73", "a file can't be written, or is there already"},
};

inline constexpr std::array Variables = {
    Meaning{"NO_COLOR", "if set and not empty, there are no colours on a terminal; the same if TERM is dumb"},
    Meaning{"TMPDIR", "folder for the copy of a packed file while it is read; /tmp unless set"},
};

inline constexpr std::array Examples = {
    Meaning{"qelvrml info desk.wrl", "tells what desk.wrl holds, and what of it couldn't be read"},
    Meaning{"qelvrml info models lamp.wrz", "gives a line for each scene in the folder models and one for lamp.wrz"},
    Meaning{"qelvrml info --json models >models.json", "writes the same as JSON"},
    Meaning{"qelvrml dump desk.wrl >desk.json", "writes every group, object and texture of the model"},
    Meaning{"qelvrml measure desk.wrl", "tells size, area, volume and open edges of each group and object"},
    Meaning{"qelvrml convert desk.wrl desk.glb", "writes desk.wrl as glTF"},
    Meaning{"qelvrml convert models --to stl --into prints", "writes each scene in the folder models as STL"},
    Meaning{"qelvrml view desk.wrl -o desk.html", "makes a page that shows desk.wrl in a browser"},
    Meaning{"qelvrml picture desk.wrl desk.png --size 800x600", "makes a picture of desk.wrl"},
};

/// The words that an option takes, for completions; other words may do as well.
inline constexpr std::array OptionWords = {
    Meaning{"--to", "glb gltf obj stl ply"},
    Meaning{"--direction", "front back left right top bottom corner"},
    Meaning{"--background", "white black transparent"},
};

/// Endings of the files that convert writes.
inline constexpr std::array WrittenEndings = {"glb", "gltf", "obj", "stl", "ply"};

/// Ends of the names of files that are looked for in folders, in any case.
inline constexpr std::array SceneEndings = {"wrl", "wrz", "vrml", "vrz", "wrl.gz", "vrml.gz", "wrl.zip", "vrml.zip"};
