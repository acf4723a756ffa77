// The station's numbered messages.
#pragma once

#include <string>

#include "workbench/station/station.h"

namespace torvane {

// How a message is shown.
struct MessageFlags {
  bool okOnly = false;  // a notice, else a yes-or-no question
  bool beep = false;
  bool offer = false;  // with the box by which the operator silences it for good
};

// Asks or warns the operator and leaves the answer in `gMsgAnswer`. A message that has been silenced is not
// shown and gives the last answer to any question; one that was shown gives False.
bool ShowMessageDialog(Station& station, const std::string& text, int number, MessageFlags flags);

}  // namespace torvane
