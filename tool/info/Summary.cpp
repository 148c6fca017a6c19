#include "info/Summary.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <string>

#include "info/Report.h"
#include "text/Figures.h"
#include "text/Text.h"
#include "text/Units.h"

// ok       13         86  60 x 400 x 60 m           0   1.2 ms  every-class.wrl
// failed: not a VRML file                           0   0.1 ms  text.wrl
//
// The path stands last, so that the figures stay below one another however long it is.

namespace {

constexpr std::size_t ObjectsWidth = 7;
constexpr std::size_t TrianglesWidth = 10;
constexpr std::size_t SizeWidth = 24;
constexpr std::size_t ModelWidth = 2 + ObjectsWidth + TrianglesWidth + 2 + SizeWidth;
constexpr std::size_t NotesWidth = 6;
constexpr std::size_t TimeWidth = 8;
constexpr std::size_t FiguresWidth = ModelWidth + NotesWidth + TimeWidth + 2;
constexpr std::size_t LeastPathWidth = 16;

std::string Left(const std::string& text, std::size_t width) {
  return text + std::string(width - std::min(Columns(text), width), ' ');
}
// Keeps a space in front of what is too wide.
std::string Right(const std::string& text, std::size_t width) {
  return std::string(std::max(width - std::min(Columns(text), width), std::size_t{1}), ' ') + text;
}

std::string ModelColumns(const LoadedFile& file, const Census& census) {
  const std::string extent = Extent(file.World->GetBBox(), 3);
  return Left("ok" + Right(Grouped(census.Objects), ObjectsWidth) + Right(Grouped(census.Triangles), TrianglesWidth) +
                  "  " + (extent.empty() ? "empty" : extent + " " + UnitsSymbol(file.Units)),
              ModelWidth);
}

std::string NotesColumn(const LoadedFile& file) {
  return Right(Grouped(file.Notes.size()) + (file.UnlistedNotes > 0 ? "+" : ""), NotesWidth);
}

}  // namespace

Summary::Summary() : Paint(STDOUT_FILENO), PathWidth(TerminalWidth()) {
  if (PathWidth > 0) PathWidth = std::max(PathWidth - std::min(PathWidth, FiguresWidth), LeastPathWidth);
  const std::string heading =
      Left("  " + Right("objects", ObjectsWidth) + Right("triangles", TrianglesWidth) + "  size", ModelWidth) +
      Right("notes", NotesWidth) + Right("time", TimeWidth) + "  file";
  std::cout << Paint.Label(heading) << '\n';
}

void Summary::Add(const LoadedFile& file, const Census& census) {
  const std::string notes = NotesColumn(file);
  const std::string path = Printable(file.Path);
  std::cout << (file.Problem.empty() ? ModelColumns(file, census)
                                     : Paint.Failure(Left("failed: " + file.Problem, ModelWidth)))
            << (file.Notes.empty() ? notes : Paint.Note(notes)) << Right(Duration(file.Seconds), TimeWidth) << "  "
            << (PathWidth > 0 ? EndOfPath(path, PathWidth) : path) << '\n';
}

void Summary::End(const Total& total) {
  const std::uint64_t failed = total.Files - total.Loaded;
  const std::string failures = Grouped(failed) + " failed";
  std::cout << Paint.Label("total: ") << Counted(total.Files, "file") << ", " << Grouped(total.Loaded) << " loaded, "
            << (failed > 0 ? Paint.Failure(failures) : failures) << "; " << Counted(total.Objects, "object") << ", "
            << Counted(total.Triangles, "triangle") << "; " << Duration(total.Seconds) << '\n';
}
