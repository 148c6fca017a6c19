#include "info/Report.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>

#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"
#include "text/Figures.h"
#include "text/Notes.h"
#include "text/Terminal.h"
#include "text/Text.h"
#include "text/Units.h"

namespace {

constexpr std::size_t LabelWidth = 20;  // leaves room for the longest explanation of a unit in 80 columns

/// Writes the lines of a report to standard output.
class ReportLines {
public:
  void Add(const std::string& label, const std::string& value) {
    const std::size_t padding = std::max(LabelWidth - std::min(Columns(label), LabelWidth), std::size_t{2});
    std::cout << Paint.Label(label) << std::string(padding, ' ') << value << '\n';
  }
  void Add(const std::string& label, std::uint64_t count) { Add(label, Grouped(count)); }
  void AddNote(const std::string& sentence) { std::cout << "  " << Paint.Note(sentence) << '\n'; }
  void AddFailure(const std::string& sentence) { std::cout << Paint.Failure(sentence) << '\n'; }

private:
  Colours Paint{STDOUT_FILENO};
};

std::string WarningText(int warning) {
  if (warning == VRMLWarningNone) return "none";
  if (warning == VRMLWarningExtrusionData) return "1, an extrusion lacks a spine or a cross-section";
  return std::to_string(warning);
}

void AddTextures(const CKelTextureManager& textures, ReportLines& lines) {
  for (int i = 0; i < textures.GetNumberTextures(); ++i) {
    const CKelTexture& texture = *textures.GetTextureAt(i);
    const std::string name = Printable(texture.GetFilename());
    lines.Add("  " + (name.empty() ? std::string("pixels of the file") : name),
              Measure(texture.GetWidth(), 10) + " x " + Measure(texture.GetHeight(), 10) + " pixels");
  }
}

void AddModel(const LoadedFile& file, const Census& census, ReportLines& lines) {
  // A load that gave something has left the boxes up to date.
  const std::string extent = Extent(file.World->GetBBox(), 6);
  lines.Add("size", extent.empty() ? "empty" : extent + " " + UnitsName(file.Units));
  lines.Add("groups", census.Groups);
  lines.Add("objects", census.Objects);
  for (const auto& [name, count] : census.Classes) lines.Add("  " + std::string(name), count);
  lines.Add("points", census.Points);
  lines.Add("faces", census.Faces);
  lines.Add("triangles", census.Triangles);
  const CKelTextureManager* textures = file.World->GetTextureManager();
  lines.Add("textures", textures ? static_cast<std::uint64_t>(textures->GetNumberTextures()) : 0);
  if (textures) AddTextures(*textures, lines);
  if (census.Textured > 0) lines.Add("textured objects", census.Textured);
}

void AddNoteLines(const LoadedFile& file, ReportLines& lines) {
  lines.Add("notes", file.Notes.empty() ? "none" : Grouped(file.Notes.size()));
  for (const CVRMLNote& note : file.Notes) lines.AddNote(Sentence(note, file.Path));
  if (file.UnlistedNotes > 0) lines.AddNote("and " + Grouped(file.UnlistedNotes) + " more that differ");
}

}  // namespace

void PrintReport(const LoadedFile& file, const Census& census) {
  ReportLines lines;
  lines.Add("file", Printable(file.Path));
  lines.Add("result", ResultName(file.Result));
  lines.Add("units", UnitsName(file.Units) + " (" + UnitsMeaning(file.Units) + ")");
  lines.Add("warning", WarningText(file.Warning));
  AddModel(file, census, lines);
  AddNoteLines(file, lines);
  lines.Add("time", Duration(file.Seconds));
  if (census.Objects == 0 && !file.Notes.empty()) {
    lines.AddFailure("nothing to show; the notes above say why, docs/troubleshooting.md tells more");
  }
}

std::string Extent(const brixBBox& box, int digits) {
  if (box.IsEmpty()) return "";
  const brixFloatPoint& from = box.GetMinimum();
  const brixFloatPoint& to = box.GetMaximum();
  return Measure(to.x - from.x, digits) + " x " + Measure(to.y - from.y, digits) + " x " +
         Measure(to.z - from.z, digits);
}
