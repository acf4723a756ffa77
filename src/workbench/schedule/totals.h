// The totals of a design, one table for every place that shows them.
#pragma once

#include <string_view>
#include <vector>

#include "design/state.h"

namespace torvane {

struct Total {
  std::string_view caption;
  const Field* figure;
  std::string_view unit;  // in the station's characters; empty of a count
};

// The most wanted first.
std::vector<Total> TotalsOf(const DesignState& s, Family family);
// Of four axes: the station has the fields, but nothing fills them, so they keep the figure of the start.
std::vector<Total> UncalculatedTotalsOf(const DesignState& s);
// Those of the family in use that are to be read from the machine.
std::vector<Total> LargeTotalsOf(const DesignState& s);

// Four axes with patterns show the end view instead of a list of totals.
inline bool ShowsEndView(const DesignState& s) { return s.gShow4Axis && !s.optType(2).checked(); }

}  // namespace torvane
