// The recovery copy: an unsaved design in a file of the station's folder, for the start after a crash.
#pragma once

#include "workbench/station/station.h"

namespace torvane {

// The files of the station of a number, in the station's folder.
std::string RecoveryFile(int number);
std::string LockFile(int number);

// Takes the lowest number that no other station in this folder has, for as long as this one runs, and tells
// the operator of any other. Each station has a recovery copy of its own.
void TakePlace(Station& station);

// After a doing of the operator: a changed design is copied a while later, a saved or discarded one needs no
// copy any more.
void FollowWithRecovery(Station& station, bool changed);

// Writes the copy of an unsaved design. A refusal interrupts nobody: it stands in `recovery.refusal` and
// among the warnings of a build. False if no copy holds the design as it is.
bool WriteRecovery(Station& station);

// Asks whether a design that a former station could not save is to be brought back, and does so. Copies of
// stations that run are theirs. What was not wanted stays until another unsaved design takes its place.
void OfferRecovery(Station& station);

// A clean end: this station's own copy goes.
void DropRecovery(Station& station);

}  // namespace torvane
