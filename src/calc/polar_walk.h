// A winding pattern as seen from the end of the part: the picture as figures in a plane with its origin on
// the mandrel's axis, x to the right, y upward, angles counter-clockwise from the positive x axis.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calc/patterns.h"
#include "design/state.h"

namespace torvane {

enum class PolarColour { Outline, Tick, Split, Wrap, Closing, Band };
enum class PolarKind { Circle, Tick, Arc, Chord };

struct PolarFigure {
  PolarKind kind{};
  PolarColour colour{};
  double radius = 0;  // of a circle or arc
  double from = 0;    // of an arc, radians
  double to = 0;
  double x1 = 0, y1 = 0;  // of a tick or chord
  double x2 = 0, y2 = 0;
};

// What the picture is made from, in design units and degrees.
struct PolarPattern {
  double radius = 0;
  int groups = 0;  // passes of a circuit
  int circuits = 0;
  double wrapAngle = 0;
  double traverseRotation = 0;
  double bandStep = 0;  // a band's share of a turn
};

// The pattern on the part in hand; nothing if a value cannot be read.
std::optional<PolarPattern> PolarPatternOf(const DesignState& s, const PatternFields& pattern);

// Mandrel, polar opening and the ticks on the axes.
std::vector<PolarFigure> PolarBase(const DesignState& s);

// Arcs of the split angle, where it can be read, and of the end wrap.
std::vector<PolarFigure> PolarArcs(const PolarPattern& pattern, Number splitAngle);
// Where the first band lands.
PolarFigure PolarFirstBand(const PolarPattern& pattern);

// Marks sized by the band and whole degrees, or by equal division of the circle.
enum class PolarMarks { ByBand, ByDivision };

// Walks a pattern pass by pass, as the winding program does.
class PolarWalk {
 public:
  struct Step {
    int circuit = 0;
    int pass = 0;
    bool closesCircuit = false;
    // Mark and chord; none for the last pass, which completes the picture.
    std::vector<PolarFigure> figures;
    // The mandrel's fraction of a turn, degrees, after the wrap at the far end and at the near end.
    double farAngle = 0;
    double nearAngle = 0;
  };

  PolarWalk(const PolarPattern& pattern, PolarMarks marks) : pattern_(pattern), marks_(marks) {}

  // Nothing once the picture is complete.
  std::optional<Step> Next();

 private:
  PolarFigure Mark(bool closing, double start) const;

  PolarPattern pattern_;
  PolarMarks marks_;
  double mandrel_ = 0;  // degrees
  int circuit_ = 1;
  int pass_ = 0;
};

// More passes than this are no picture.
inline constexpr double kMostPolarPasses = 100'000;

// The short trace text of a pattern, its lines joined by "|": the machine's set-up, and behind it the part of
// one pass.
std::string PolarTraceHead(const DesignState& s);
std::string PolarTracePass(const DesignState& s, const PolarWalk::Step& step, int row);

}  // namespace torvane
