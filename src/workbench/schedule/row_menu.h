// The menu of a row of the schedule, for whoever shows it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "workbench/station/station.h"

namespace torvane {

struct RowMenuEntry {
  std::string_view control;
  std::string caption;
  std::string_view tip;  // what the operator may not expect of it; empty for most
  bool beginsGroup;
  bool usable;  // there is a row that it works on
};

// The entries for the schedule in use.
std::vector<RowMenuEntry> RowMenu(const DesignState& s);

// The menu has closed, with or without a choice.
void CloseRowMenu(Station& station);

}  // namespace torvane
