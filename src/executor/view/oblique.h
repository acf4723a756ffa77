// The mandrel seen from the side and a little from its right end, so that its face shows.
#pragma once

#include <optional>

namespace torvane::dryrun {

// All in pixels of the side view, heights upwards from the mandrel's axis. What lies at `at` along the axis
// when seen square on is drawn where Across() says.
struct Oblique {
  static constexpr double kDegrees = 14;

  double left = 0, right = 1;              // of the body, square on
  double leftRadius = 0, rightRadius = 0;  // of its ends
  double dome = 0;                         // how far hemispherical ends reach out; 0 for flat ones

  double RadiusAt(double at) const;  // 0 beyond the part
  // Where a point is drawn that stands so far out towards the eye.
  double Across(double at, double towards) const;
  // What of the axis' length is seen at a place of the picture; nothing beside the mandrel and on its face.
  std::optional<double> SeenAt(double x, double height) const;
};

}  // namespace torvane::dryrun
