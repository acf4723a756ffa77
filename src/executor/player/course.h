// What a program will come to in time, known before it is played: its stages, its waits, the part it winds.
#pragma once

#include <limits>
#include <stop_token>
#include <string>
#include <vector>

#include "executor/machine/mandrel.h"
#include "executor/player/moment.h"
#include "executor/program/program.h"
#include "executor/program/progress.h"
#include "executor/proof/cover_count.h"

namespace torvane::executor {

// A layer, or a stage outside the layers.
struct Stretch {
  int layer = 0;     // 0 outside the layers
  std::string name;  // of a stage, in the program's 8-bit text
  double begins = 0, seconds = 0;
  int line = 0;  // of the display that begins it; 0 where the program does
};

struct ButtonWait {
  int line = 0;
  std::string why;  // the program's comment
  double at = 0;    // seconds
  // The line of the first statement behind it that takes time: up to there the machine still stands.
  int until = std::numeric_limits<int>::max();
};

// Where a layer lies, by its first pass.
struct LayerPlace {
  Mandrel mandrel;
  double band = 0;  // the program's unit; 0 unknown
};

// What a layer is covered at one of its strokes.
struct CoverPoint {
  std::size_t layer = 0;    // from 0
  std::size_t strokes = 0;  // laid so far
  CoverCount cover;
};

// Holds views into the program.
struct Course {
  double seconds = 0;  // without what the operator takes, up to an endless run
  bool endless = false;
  bool millimetres = false;
  bool head = false, rotation = false;  // axes that the program moves
  bool domes = false;                   // the part has hemispherical ends
  double lowestZ = 0, highestZ = 0;     // of all carriage moves
  double homeZ = 0;
  std::vector<Stretch> stretches;  // those that take time
  std::vector<ButtonWait> waits;   // in the order of their lines
  std::vector<LayerPlace> layers;  // in the order in which they are wound
  std::vector<Layer> wound;        // the same, with all that is wound
  CheckPoints points;              // not empty

  // The widest layer's ends and radii; both Z alike where nothing is wound.
  Mandrel Part() const;
};

// Runs the program once without anybody waiting for it, in a time in proportion to its length. Asked to stop,
// it returns what it has so far.
Course FollowCourse(const Program& program, const std::stop_token& stop = {}, Progress* progress = nullptr);

// Within long layers, so many in all at most, in the order of the run.
constexpr std::size_t kMostCovers = 256;
std::vector<CoverPoint> CountCovers(const Course& course, const std::stop_token& stop = {});

// When the statement of that line, or the next one that is run, begins; at the end where none is. In a time
// that does not grow with the program.
double SecondsAt(const Course& course, int line);

// What stands in the brackets of a comment.
std::string_view InBrackets(std::string_view comment);

}  // namespace torvane::executor
