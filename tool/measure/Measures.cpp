#include "measure/Measures.h"

#include <utility>

#include "measure/ObjectMeasures.h"
#include "measure/surfaces/OpenSheets.h"
#include "measure/surfaces/Pool.h"

namespace {

/// Measures all objects first, so that the corners of what is open are welded once for the whole model.
class ModelMeasurer {
public:
  explicit ModelMeasurer(const Resolution& resolution) : Fineness(resolution) {}

  MeasuredGroup Measure(const brixBaseGroup& world) {
    MeasuredGroup measured = MeasureObjects(world);
    Sheets.Weld();
    Next = Ranges.begin();
    Close(measured);
    return measured;
  }

private:
  MeasuredGroup MeasureObjects(const brixBaseGroup& group) {
    MeasuredGroup measured = {.Group = &group, .Sum = {}, .Objects = {}, .Groups = {}};
    for (int i = 0; i < group.GetNumObjects(); ++i) {
      const brixBaseObject& object = *group.GetObjectAt(i);
      Ranges.emplace_back();
      measured.Objects.push_back({&object, MeasureObject(object, Fineness, Sheets, Ranges.back())});
    }
    for (int i = 0; i < group.GetNumGroups(); ++i) measured.Groups.push_back(MeasureObjects(*group.GetGroupAt(i)));
    return measured;
  }

  // Takes bodies out of a pool; gives all that was measured with what stays in it.
  static Measures CloseBodies(Pool& pool, Measures& closed) {
    for (const Body& body : pool.TakeBodies()) closed.AddBody(body.Volume, body.NonManifoldEdges);
    Measures all = closed;
    all.OpenSurfaces += pool.CountPieces();
    all.OpenEdges += pool.CountOpenEdges();
    all.NonManifoldEdges += pool.CountNonManifoldEdges();
    return all;
  }

  struct Part {
    Measures Closed;
    Pool Open;
  };

  Part Close(MeasuredObject& object) {
    Part part = {object.Sum, Pool(Sheets)};
    const OpenSheets::Range range = *Next++;
    for (unsigned sheet = range.First; sheet < range.End; ++sheet) part.Open.Add(sheet);
    object.Sum = CloseBodies(part.Open, part.Closed);
    return part;
  }

  Part Close(MeasuredGroup& group) {
    Part whole = {{}, Pool(Sheets)};
    // What closes goes at once, so that of two cylinders on top of each other each is a body.
    const auto add = [&](Part part) {
      whole.Closed.Add(part.Closed);
      whole.Open.Take(std::move(part.Open));
      group.Sum = CloseBodies(whole.Open, whole.Closed);
    };
    for (MeasuredObject& object : group.Objects) add(Close(object));
    for (MeasuredGroup& inner : group.Groups) add(Close(inner));
    return whole;
  }

  Resolution Fineness;
  OpenSheets Sheets;
  std::vector<OpenSheets::Range> Ranges;  ///< of the objects, in order
  std::vector<OpenSheets::Range>::const_iterator Next;
};

}  // namespace

void Measures::AddBody(const std::optional<double>& volume, std::uint64_t nonManifoldEdges) {
  ++Bodies;
  NonManifoldEdges += nonManifoldEdges;
  if (!volume) return;
  ++BodiesWithVolume;
  BodiesVolume += *volume;
}

void Measures::Add(const Measures& part) {
  Box.Add(part.Box);
  Area += part.Area;
  Points += part.Points;
  Faces += part.Faces;
  Bodies += part.Bodies;
  BodiesWithVolume += part.BodiesWithVolume;
  BodiesVolume += part.BodiesVolume;
  OpenSurfaces += part.OpenSurfaces;
  OpenEdges += part.OpenEdges;
  NonManifoldEdges += part.NonManifoldEdges;
}

MeasuredGroup MeasureModel(const CKelWorld& world, const Resolution& resolution) {
  return ModelMeasurer(resolution).Measure(world);
}
