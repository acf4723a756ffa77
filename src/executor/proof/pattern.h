// How the bands of a layer lie beside each other: the gaps between neighbours, where the next circuit would
// begin, and bands beside their place. All from the traverses as straight lines of angle over Z.
#pragma once

#include <stop_token>
#include <vector>

#include "executor/machine/mandrel.h"

namespace torvane::executor {

struct BandAside {
  int line = 0;
  int pass = 0;  // index
  double degrees = 0;
  bool first = false;  // the first traverse of the layer
};

struct Pattern {
  double windingAngle = 0;  // degrees, at the middle
  double bandDegrees = 0;   // how far round the mandrel a band reaches there
  double leastBand = 0;     // and where that is least, at the thicker end
  double axialBand = 0;     // the band's width along Z there
  int bands = 0;            // of the direction that has more of them
  // Between neighbours, across the band, of the direction whose bands lie closer; below 0 they overlap.
  double smallestGap = 0, largestGap = 0;
  // The largest gap at best, had no speed and no turn been rounded.
  double roundedGap = 0;
  // The next circuit would begin this many degrees short of a band that is laid (or beyond it), 0 on top.
  double miss = 0;
  // By how much rounded turns and angles may have moved that, degrees.
  double drift = 0;
  std::vector<BandAside> aside;
  // Steps from band to band in the direction that has the fewer of them alike, first pass left out. A pattern
  // has two kinds of steps at most: within a group, and from one to the next.
  int steps = 0, alikeSteps = 0;
  int oddLine = 0;  // where the first of the others leads; 0: there is none
};

// The traverses between zLow and zHigh; there must be one at least. Asked to stop, it returns anything.
Pattern FindPattern(const Layer& layer, const Mandrel& mandrel, double zLow, double zHigh,
                    double unitsPerInch, const std::stop_token& stop);

}  // namespace torvane::executor
