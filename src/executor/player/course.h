// What a program will come to in time, known before it is played: its stages, its waits, the part it winds.
#pragma once

#include <stop_token>
#include <string>
#include <vector>

#include "executor/machine/mandrel.h"
#include "executor/program/program.h"

namespace torvane::executor {

// A layer, or a stage outside the layers.
struct Stretch {
  int layer = 0;     // 0 outside the layers
  std::string name;  // of a stage, in the program's 8-bit text
  double begins = 0, seconds = 0;
};

struct ButtonWait {
  int line = 0;
  std::string why;  // the program's comment
};

// Where a layer lies, by its first pass.
struct LayerPlace {
  Mandrel mandrel;
  double band = 0;  // the program's unit; 0 unknown
};

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

  // The widest layer's ends and radii; both Z alike where nothing is wound.
  Mandrel Part() const;
};

// Runs the program once without anybody waiting for it, in a time in proportion to its length. Asked to stop,
// it returns what it has so far.
Course FollowCourse(const Program& program, const std::stop_token& stop = {});

// What stands in the brackets of a comment.
std::string_view InBrackets(std::string_view comment);

}  // namespace torvane::executor
