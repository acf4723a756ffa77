// What to look at before a build. It warns and stops nothing.
#pragma once

#include <string>
#include <vector>

#include "workbench/station/station.h"

namespace torvane {

// A thing that makes a program other than the operator may think, in two short sentences, and the field that
// it hangs on.
struct BuildWarning {
  const Field* field;
  std::string what;
  std::string why;
};

// In the order in which a program runs: the file, the part, the layers. Changes nothing.
std::vector<BuildWarning> BuildWarnings(const Station& station);

}  // namespace torvane
