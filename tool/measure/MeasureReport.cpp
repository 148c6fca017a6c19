//                           size                      area            surfaces
// scene                     200 x 100 x 100 cm        52,177 cm2      7 closed surfaces, 99,692 cm3
//   leg                     8 x 70 x 8 cm             1,860 cm2       closed, 3,519 cm3
//     brixCylinder          8 x 70 x 8 cm             1,759 cm2       open, 2 open edges
//     2 x brixDisk          8 x 70 x 8 cm             100.5 cm2       open, each by itself, 2 open edges

#include "measure/MeasureReport.h"

#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "scene/Vector3.h"
#include "text/Figures.h"
#include "text/Terminal.h"
#include "text/Text.h"
#include "text/Units.h"

namespace {

constexpr int MeasureDigits = 4;
constexpr std::size_t MostIndented = 40;  // groups inside one another
constexpr std::size_t MostLabelColumns = 36;
constexpr std::size_t SizeColumns = 26;
constexpr std::size_t AreaColumns = 16;

struct MeasureRow {
  std::string Label;
  Measures Sum;
  std::uint64_t Objects = 1;
};

// Keeps two spaces behind what is too wide.
std::string Padded(const std::string& text, std::size_t width) {
  return text + std::string(std::max(width - std::min(Columns(text), width), std::size_t{2}), ' ');
}

std::string LabelOf(const brixBaseObject& object, std::uint64_t count) {
  const std::string name = Printable(object.GetObjectName().GetText());
  const std::string number = count > 1 ? Grouped(count) + " x " : "";
  return number + (name.empty() ? object.GetClassName() : name + " (" + object.GetClassName() + ")");
}

bool HasSurface(const Measures& sum) { return sum.Bodies + sum.OpenSurfaces > 0; }

// Nodes of a file make parts by the thousand that are something only together.
bool GoTogether(const MeasuredObject& a, const MeasuredObject& b) {
  return a.Sum.Bodies + b.Sum.Bodies == 0 && HasSurface(a.Sum) == HasSurface(b.Sum) &&
         std::string_view(a.Object->GetClassName()) == b.Object->GetClassName() &&
         std::u16string_view(a.Object->GetObjectName().GetText()) == b.Object->GetObjectName().GetText();
}

/// Makes the rows of the table.
class RowMaker {
public:
  explicit RowMaker(std::vector<MeasureRow>& rows) : Rows(rows) {}

  void Add(const MeasuredGroup& group, const std::string& label, std::size_t depth) {
    const std::string indent(2 * std::min(depth, MostIndented), ' ');
    Rows.push_back({indent + label, group.Sum});
    for (std::size_t i = 0; i < group.Objects.size();) i = AddObjects(group.Objects, i, indent + "  ");
    for (const MeasuredGroup& inner : group.Groups) {
      const std::string name = Printable(inner.Group->GetGroupName().GetText());
      Add(inner, name.empty() ? "(group)" : name, depth + 1);
    }
  }

private:
  // Gives the index behind the objects that share the row.
  std::size_t AddObjects(const std::vector<MeasuredObject>& objects, std::size_t first, const std::string& indent) {
    MeasureRow row = {"", objects[first].Sum};
    std::size_t end = first + 1;
    for (; end < objects.size() && GoTogether(objects[first], objects[end]); ++end) {
      row.Sum.Add(objects[end].Sum);
    }
    row.Objects = end - first;
    row.Label = indent + LabelOf(*objects[first].Object, row.Objects);
    Rows.push_back(std::move(row));
    return end;
  }

  std::vector<MeasureRow>& Rows;
};

std::string Quantity(double value, const std::string& unit) { return Measure(value, MeasureDigits) + " " + unit; }

std::string VolumeText(const Measures& sum, const std::string& unit) {
  std::string volume = sum.BodiesWithVolume > 0 ? Quantity(sum.BodiesVolume, unit + "3") : "";
  const std::uint64_t others = sum.Bodies - sum.BodiesWithVolume;
  if (others == 0) return volume;
  const std::string lack = "no inside can be told";
  return volume.empty() ? lack : volume + ", and of " + Grouped(others) + " " + lack;
}

// "2 closed surfaces, 12.4 cm3", or "closed, 12.4 cm3" where there is nothing else.
std::string ClosedText(const Measures& sum, const std::string& unit) {
  const bool alone = sum.Bodies == 1 && sum.OpenSurfaces == 0;
  return (alone ? "closed" : Counted(sum.Bodies, "closed surface")) + ", " + VolumeText(sum, unit);
}

std::string OpenText(const Measures& sum) {
  const bool alone = sum.OpenSurfaces == 1 && sum.Bodies == 0;
  return (alone ? "open" : Counted(sum.OpenSurfaces, "open surface")) +
         (sum.OpenEdges > 0 ? ", " + Counted(sum.OpenEdges, "open edge") : "");
}

// "2 closed surfaces, 12.4 cm3; 1 open surface, 4 open edges; 1 edge with more than two faces"
std::string SurfacesText(const MeasureRow& row, const std::string& unit) {
  const Measures& sum = row.Sum;
  if (sum.Box.IsEmpty()) return "nothing to show";
  if (!HasSurface(sum)) return "no surface";
  if (row.Objects > 1) return "open, each by itself, " + Counted(sum.OpenEdges, "open edge");
  std::string text = sum.Bodies > 0 ? ClosedText(sum, unit) : "";
  if (sum.OpenSurfaces > 0) text += (text.empty() ? "" : "; ") + OpenText(sum);
  if (sum.NonManifoldEdges == 0) return text;
  return text + "; " + Counted(sum.NonManifoldEdges, "edge") + " with more than two faces";
}

/// Writes lengths, and 0 for what is only rounding in a scene of that size.
class LengthWriter {
public:
  explicit LengthWriter(const brixBBox& scene) {
    const Vector3 size = SizeOf(scene);
    Least = 1e-6 * std::max({size.X, size.Y, size.Z});
  }

  std::string Place(const brixFloatPoint& point) const { return Joined(ToVector(point), ", "); }
  std::string Size(const brixBBox& box, const std::string& unit) const {
    return box.IsEmpty() ? "" : Joined(SizeOf(box), " x ") + " " + unit;
  }

private:
  static Vector3 SizeOf(const brixBBox& box) { return ToVector(box.GetMaximum()) - ToVector(box.GetMinimum()); }
  std::string Joined(const Vector3& lengths, const std::string& between) const {
    const auto written = [this](double length) {
      return Measure(std::fabs(length) < Least ? 0.0 : length, MeasureDigits);
    };
    return written(lengths.X) + between + written(lengths.Y) + between + written(lengths.Z);
  }

  double Least;
};

void PrintRows(const std::vector<MeasureRow>& rows, const std::string& unit, const Colours& paint) {
  std::size_t width = 0;
  for (const MeasureRow& row : rows) width = std::max(width, std::min(Columns(row.Label), MostLabelColumns));
  width += 2;
  const std::string heading = Padded("size", SizeColumns) + Padded("area", AreaColumns) + "surfaces";
  std::cout << paint.Label(std::string(width, ' ') + heading) << '\n';
  const LengthWriter lengths(rows.front().Sum.Box);
  for (const MeasureRow& row : rows) {
    std::cout << Padded(row.Label, width) << Padded(lengths.Size(row.Sum.Box, unit), SizeColumns)
              << Padded(HasSurface(row.Sum) ? Quantity(row.Sum.Area, unit + "2") : "", AreaColumns)
              << SurfacesText(row, unit) << '\n';
  }
}

}  // namespace

void PrintMeasures(const LoadedFile& file, const MeasuredGroup& scene) {
  const Colours paint(STDOUT_FILENO);
  const Measures& sum = scene.Sum;
  const LengthWriter lengths(sum.Box);
  const auto print = [&paint](const std::string& label, const std::string& value) {
    std::cout << paint.Label(Padded(label, 8)) << value << '\n';
  };
  print("file", Printable(file.Path));
  print("units", UnitsName(file.Units) + " (" + UnitsMeaning(file.Units) + ")");
  print("from", lengths.Place(sum.Box.GetMinimum()));
  print("to", lengths.Place(sum.Box.GetMaximum()));
  print("points", Grouped(sum.Points));
  print("faces", Grouped(sum.Faces));
  if (!file.Notes.empty()) print("notes", Grouped(file.Notes.size()) + ", which info tells: something may be missing");
  std::vector<MeasureRow> rows;
  RowMaker(rows).Add(scene, "scene", 0);
  PrintRows(rows, UnitsSymbol(file.Units), paint);
}
