// What is marked in the design, for whoever lists it.
#pragma once

#include <string>
#include <vector>

#include "design/state.h"

namespace torvane {

// The mark that a field is shown with: its own, or that its text is no number where a number is taken.
Mark ShownMark(const Field& field);

// What a mark says, in the system's words.
const char* WordsOf(Mark mark);

// What the operator knows a field by: "Winding Angle, layer 3"; its own name where it has no words.
std::string CalledName(const Field& field);

// Fields of the family in use that are marked and can be seen, worst first.
std::vector<const Field*> MarkedFields(const DesignState& s);

}  // namespace torvane
