// The menu of a row of the schedule.
#pragma once

#include <string_view>
#include <vector>

#include "workbench/station/station.h"

namespace torvane {

struct RowMenuEntry {
  std::string_view control;
  std::string_view tip;  // what the operator may not expect of it, else what it does
  bool beginsGroup = false;
};

// The entries for the schedule in use.
std::vector<RowMenuEntry> RowMenu(const Station& station);

// A command on a row of the schedule can be given.
bool ARowIsPressed(const Station& station);

// The menu has closed, with or without a choice.
void CloseRowMenu(Station& station);

}  // namespace torvane
