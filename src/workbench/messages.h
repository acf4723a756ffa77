// The station's numbered messages.
#pragma once

#include <string>

#include "workbench/station.h"

namespace torvane {

// How a message is shown: `OkOnly` a notice, else a yes-or-no question; `Offer` the box with which the
// operator silences it for good.
struct MessageFlags {
  bool okOnly = false;
  bool beep = false;
  bool offer = false;
};

// Asks or warns the operator and leaves the answer in `gMsgAnswer`. A message that has been silenced is not
// shown and gives the last answer to any question; one that was shown gives False.
bool ShowMessageDialog(Station& station, const std::string& text, int number, MessageFlags flags);

// Puts the question whether a changed design is to be saved first; saves it on yes.
void AskToSaveFirst(Station& station);

}  // namespace torvane
