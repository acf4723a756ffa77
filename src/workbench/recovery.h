// The recovery copy: an unsaved design in a file of the station's folder, for the start after a crash.
#pragma once

#include "workbench/station.h"

namespace torvane {

inline constexpr std::string_view kRecoveryFile = "\\TV_RECOVERY.TVR";

// After a doing of the operator: a changed design is copied a while later, a saved or discarded one needs no
// copy any more.
void FollowWithRecovery(Station& station, bool changed);

// Writes the copy of an unsaved design. A refusal interrupts nobody: it stands in `recovery.refusal` and
// among the warnings of a build. False if no copy holds the design as it is.
bool WriteRecovery(Station& station);

// Asks whether the design that a former station could not save is to be brought back, and does so. What was
// not wanted stays until another unsaved design takes its place.
void OfferRecovery(Station& station);

// A clean end: this station's own copy goes.
void DropRecovery(Station& station);

}  // namespace torvane
