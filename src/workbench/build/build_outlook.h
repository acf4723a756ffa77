// How a build stands: whether it can be started, and what to look at first.
#pragma once

#include <string>
#include <vector>

#include "workbench/build/build_warnings.h"

namespace torvane {

struct BuildOutlook {
  bool ready = false;    // the design has layers and a name
  bool clear = false;    // and nothing in it is to be looked at first
  std::string sentence;  // what stands in the way, or else what the build does; for below a button
};

BuildOutlook OutlookOf(const Station& station);

// The warnings that hang on no marked field: what a mark says already is not said twice.
std::vector<BuildWarning> WarningsBesideMarks(const Station& station);

}  // namespace torvane
