#include "qelvrml/platform/brix/polygons/LoopCrossings.h"

#include "qelvrml/platform/brix/polygons/LoopGroups.h"
#include "qelvrml/platform/brix/polygons/PlanarEngine.h"

namespace qelvrml {
namespace {

enum class Meeting { None, Joint, Crossing };

/// Looks at pairs of segments by exact predicates, so that no two answers contradict each other.
class SegmentPairs {
public:
  /// How segments meet whose boxes overlap.
  Meeting Meet(const PlanarSegment& s, const PlanarSegment& t) const {
    if (s.A == t.A) return MeetAt(s.A, s.B, t.B);
    if (s.A == t.B) return MeetAt(s.A, s.B, t.A);
    if (s.B == t.A) return MeetAt(s.B, s.A, t.B);
    if (s.B == t.B) return MeetAt(s.B, s.A, t.A);
    const bool apart = Side(s, t.A) * Side(s, t.B) > 0 || Side(t, s.A) * Side(t, s.B) > 0;
    return apart ? Meeting::None : Meeting::Crossing;
  }

  /// A point on a line counts as right of it. So a line through a joint of two segments crosses one, both or neither of
  /// them, as if it passed by the joint on its left.
  bool Cross(const PlanarSegment& s, const PlanarSegment& t) const {
    return (Side(s, t.A) > 0) != (Side(s, t.B) > 0) && (Side(t, s.A) > 0) != (Side(t, s.B) > 0);
  }

private:
  int Side(const PlanarSegment& line, const PlanarPoint& point) const { return Engine.SideOf(line.A, line.B, point); }

  // Segments from one point lie on each other or have only that in common.
  Meeting MeetAt(const PlanarPoint& from, const PlanarPoint& to, const PlanarPoint& other) const {
    const double along = (to[0] - from[0]) * (other[0] - from[0]) + (to[1] - from[1]) * (other[1] - from[1]);
    return along > 0.0 && Engine.SideOf(from, to, other) == 0 ? Meeting::Crossing : Meeting::Joint;
  }

  PlanarEngine Engine;
};

}  // namespace

LoopContacts FindContacts(std::span<const PlanarSegment> loops) {
  const SegmentPairs pairs;
  SegmentTree tree(loops);
  const std::span<const PlanarSegment> segments = tree.All();
  std::size_t joints = 0;
  std::size_t crossings = 0;
  for (std::size_t i = 0; i < segments.size(); ++i) {
    const bool complete = tree.VisitNear(segments[i], i + 1, [&](const PlanarSegment& other) {
      const Meeting meeting = pairs.Meet(segments[i], other);
      if (meeting == Meeting::Joint) ++joints;
      if (meeting == Meeting::Crossing) ++crossings;
      return crossings <= MaximumCrossings;
    });
    if (!complete) return {LoopContactKinds::TooMany, crossings};
  }
  // Each point joins two segments unless it is used twice.
  const bool none = crossings == 0 && joints == segments.size();
  return {none ? LoopContactKinds::None : LoopContactKinds::Some, crossings};
}

// Goes from a place outside to each point and counts the segments on the way.
std::vector<bool> FindInside(std::span<const PlanarSegment> loops, std::span<const PlanarPoint> points) {
  const SegmentPairs pairs;
  SegmentTree tree(loops);
  const PlanarBox& bounds = tree.GetBounds();
  std::vector<bool> inside(points.size());
  PlanarPoint place = {2.0 * bounds.Low[0] - bounds.High[0], bounds.Low[1]};
  bool odd = false;
  for (const std::size_t i : OrderByPlace(points, bounds)) {
    const PlanarSegment way = {place, points[i]};
    const bool complete = tree.VisitNear(way, 0, [&](const PlanarSegment& segment) {
      odd = odd != pairs.Cross(way, segment);
      return true;
    });
    if (!complete) return {};
    inside[i] = odd;
    place = points[i];
  }
  return inside;
}

}  // namespace qelvrml
