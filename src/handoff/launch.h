// Handing a program to the executor, and the viewers beside it.
#pragma once

#include <span>

#include "workbench/station/station.h"

namespace torvane {

// The operations of the build, of manual operation and of the viewers.
std::span<const Operation> LaunchOperations();

// A station with the operations of all rooms.
class WholeStation : public Station {
 public:
  explicit WholeStation(const Platform& computer);
  static std::vector<std::span<const Operation>> Tables();
};

}  // namespace torvane
