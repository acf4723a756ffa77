// A motion cut into blocks that gain and lose speed along its own way.
#pragma once

#include <vector>

namespace torvane::post {

struct Block {
  double share = 0;  // of the motion's way
  double seconds = 0;
};

// For a controller that does not slow down where the carriage turns round while the mandrel turns on.
// `jumps`: the motion's speed in units of the speed that its axes gain within `blockSeconds`. The way is
// kept, the mandrel slows down with the carriage; one block where the speed may come at once.
std::vector<Block> Ramped(double seconds, double jumps, double blockSeconds);

}  // namespace torvane::post
