// Correcting the design by one step: pairs of buttons of which one adds the step and the other takes it away.
#pragma once

#include "workbench/station/station.h"

namespace torvane {

// A pair of jog buttons: members 0 and 1 of one control.
struct JogPair {
  std::string_view control;
  Event event;      // what a press of either sets off
  bool alongPart;   // moves in Z, else to the mandrel and away from it
  bool plusAtZero;  // member 0 adds the step
};

// The pair that shifts the whole part along the machine: panel 0 two axes, 1 four.
const JogPair& PartJog(int panel);
// The pair of a delivery head offset, 0 to 6.
const JogPair& OffsetJog(int offset);

// The member that moves to the right along the part, or away from the mandrel; the other one moves back.
// Z grows away from home, which stands at the drive's side.
int MemberForward(const JogPair& pair, const DesignState& s);

std::span<const Operation> JogOperations();

}  // namespace torvane
