// Opening a design for a command, as an operator does some time after the start.
#pragma once

#include <memory>
#include <string>

#include "cli/computer/computer.h"
#include "workbench/station/station.h"

namespace torvane {

// A station of its own with one design open. Its settings are the run's, and what it writes to them stays
// with it.
class OpenedDesign {
 public:
  // `design` is a path of the computer. Complains and holds no station if it could not be read.
  OpenedDesign(Computer& computer, const std::string& design);

  explicit operator bool() const { return station_ != nullptr; }
  Station& station() { return *station_; }

 private:
  OverlayStore settings_;
  std::unique_ptr<Station> station_;
};

// The ending of a design's name in small letters: "t2d", "t4d", "tvd".
std::string EndingOf(const std::string& path);
bool IsTwoAxisEnding(const std::string& ending);

}  // namespace torvane
