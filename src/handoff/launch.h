// Handing a program to the executor, and the viewers beside it.
#pragma once

#include <span>

#include "workbench/station.h"

namespace torvane {

// The operations of the build, of manual operation and of the viewers.
std::span<const Operation> LaunchOperations();

// A station with everything that hands work to other programs.
class WholeStation : public Station {
 public:
  explicit WholeStation(const Platform& computer);
};

}  // namespace torvane
