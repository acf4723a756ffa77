// Runs a program on the machine and says whether it covers the part.
#pragma once

#include <stop_token>
#include <string_view>
#include <vector>

#include "executor/machine/limits.h"
#include "executor/program/progress.h"
#include "executor/proof/finding.h"
#include "executor/proof/pattern.h"

namespace torvane::executor {

// What a layer came to. Lengths in the program's unit, angles in degrees.
struct LayerFigures {
  int number = 0, line = 0;
  int passesRun = 0;
  double passesAnnounced = 0;
  bool carriageShift = false;
  double seconds = 0, filament = 0;
  Level stands = Level::Ok;  // by the worst finding of the layer
  bool judged = false;       // the figures below could be worked out
  bool fits = false;         // the bands run beside each other: the pattern says something
  double zLow = 0, zHigh = 0;
  double band = 0;
  double coveredShare = 0;
  Pattern pattern;
};

struct Proof {
  bool anyStatement = false;
  bool millimetres = false;
  int statements = 0;
  double seconds = 0;           // without what the operator takes
  double windingSeconds = 0;    // of the layers
  double announcedSeconds = 0;  // 0 where nothing is announced
  bool endless = false;
  int waits = 0;
  bool carriageMoved = false;
  double lowestZ = 0, highestZ = 0;
  double filament = 0;
  std::vector<LayerFigures> layers;
  Findings findings;
};

// Any bytes will do. `limits` are in inches whatever the program's unit. Asked to stop, it returns what it
// has so far, which says nothing of the whole.
Proof Prove(std::string_view program, const Limits& limits, const std::stop_token& stop = {},
            Progress* progress = nullptr);

// One layer against its own announcement, its cover by so many rows of a raster at most; for Prove.
LayerFigures ProveLayer(const Layer& layer, const HeadComments& comments, double unitsPerInch, int rowsAtMost,
                        Findings& findings, const std::stop_token& stop);

}  // namespace torvane::executor
