// What the drawing of the part shows. It is the windows' own affair: no file and no program holds it.
#pragma once

#include <cstdint>

namespace torvane {

enum class PartShows : std::uint8_t { Pattern, Coverage, Thickness };

struct PartView {
  PartShows shows = PartShows::Pattern;
  bool allLayers = false;  // else the pressed row, where there is one
  bool unrolled = false;   // with the map of the surface below

  bool mapped() const { return shows != PartShows::Pattern; }
  bool operator==(const PartView&) const = default;
};

}  // namespace torvane
