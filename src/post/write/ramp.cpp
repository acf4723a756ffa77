#include "post/write/ramp.h"

#include <algorithm>
#include <cmath>

namespace torvane::post {

std::vector<Block> Ramped(double seconds, double jumps, double blockSeconds) {
  // The k-th block of a ramp runs at (k - 1/2) jumps; a ramp of n covers n * n / 2 jumps' way in a block's
  // time.
  const double wanted = std::ceil(jumps - 0.5);
  const double fitting = std::floor(std::sqrt(seconds * jumps / blockSeconds));
  const int steps = jumps > 1 ? static_cast<int>(std::min(wanted, fitting)) : 0;
  if (steps < 1) return {{1, seconds}};
  std::vector<Block> blocks;
  double rest = 1;
  for (int k = 1; k <= steps; ++k) {
    const double share = (k - 0.5) / jumps * blockSeconds / seconds;
    blocks.push_back({share, blockSeconds});
    rest -= 2 * share;
  }
  const double top = fitting < wanted ? steps / jumps : 1;
  constexpr double kNothing = 1e-9;
  if (rest > kNothing) blocks.push_back({rest, rest * seconds / top});
  for (int k = steps; k >= 1; --k)
    blocks.push_back({(k - 0.5) / jumps * blockSeconds / seconds, blockSeconds});
  return blocks;
}

}  // namespace torvane::post
