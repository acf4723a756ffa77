// The machine page: what belongs to the machine and stands in no other window. Its fields are copies; OK
// hands them to the station and to its store.
#pragma once

#include "workbench/station/station.h"

namespace torvane {

// Opens it. Returns at once. Its controls: `btnOK`, `btnCancel`, and `btnShowMessages`, which lets every
// silenced message be shown again.
void OpenMachine(Station& station);

// A field of the page: its name and the words beside it.
struct MachineLine {
  std::string field;
  std::string sentence;
  bool check = false;
  bool calibration = false;
};

// In the order of the page: the machine, the addresses of the notices, the calibration.
const std::vector<MachineLine>& MachineLines();

}  // namespace torvane
