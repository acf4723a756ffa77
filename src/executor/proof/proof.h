// Runs a program on the machine and says whether it covers the part.
#pragma once

#include <stop_token>
#include <string_view>
#include <vector>

#include "executor/machine/limits.h"
#include "executor/machine/mandrel.h"
#include "executor/measure/laid_angle.h"
#include "executor/measure/run.h"
#include "executor/measure/tow.h"
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
  double seconds = 0;   // with what follows until the next layer begins
  double filament = 0;  // the length of the tow, with its turns at the ends and behind the layer
  TowMass mass;
  // Over machines that gain speed at once or as their accelerations let them, and over controllers that read
  // a dwell against an angle just reached as over or as a revolution, and a swing round an end as led by the
  // mandrel or by the carriage.
  Range time, tow, covered;
  bool slowed = false;  // an axis loses time to its acceleration
  DrivenAxis slowest = DrivenAxis::Mandrel;
  Reversal reversal;
  int twofoldDwells = 0, twofoldSwings = 0;
  int twofoldLine = 0;  // the first of them
  bool hoop = false;
  double askedAngle = 0;  // by the display; 0 where none is told, and of a hoop
  LaidAngle angle;
  Level stands = Level::Ok;  // by the worst finding of the layer
  bool judged = false;       // the figures below could be worked out
  bool fits = false;         // the bands run beside each other: the pattern says something
  double zLow = 0, zHigh = 0;
  double band = 0;
  Mandrel mandrel;       // what it is wound on; its radii are 0 where they are not told
  double thickness = 0;  // of the band, as the program's head tells; 0 where it does not
  double coveredShare = 0;
  int rows = 0;  // of the raster that showed it
  Pattern pattern;
};

// How far an axis is used. `limit` is 0 where none is set: it is not checked.
struct AxisUse {
  std::string_view what;  // "carriage speed"
  double most = 0, limit = 0;
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
  TowMass mass;
  double spoolLength = 0;  // in the program's unit; 0 for one without end
  Spools spools{0};
  double announcedTow = 0;  // by who has designed it; 0 where nothing is announced
  // As those of the layers: the whole run, the winding alone, and its tow.
  Range run, winding, tow;
  bool accelerates = false;  // an acceleration is known
  std::vector<AxisUse> axes;
  std::vector<LayerFigures> layers;
  Findings findings;
};

// Any bytes will do. `limits` are in inches whatever the program's unit. Asked to stop, it returns what it
// has so far, which says nothing of the whole.
Proof Prove(std::string_view program, const Limits& limits, const std::stop_token& stop = {},
            Progress* progress = nullptr);

// Holds the winding's tow against what was announced, in the program's unit.
void JudgeTow(Proof& proof, double announced);

// One layer against its own announcement, its cover by so many rows of a raster at most; for Prove.
LayerFigures ProveLayer(const Layer& layer, const HeadComments& comments, const Limits& limits,
                        double unitsPerInch, int rowsAtMost, Findings& findings, const std::stop_token& stop);

}  // namespace torvane::executor
