// Inch fields and their millimetre twins: one value shown twice.
#pragma once

#include "workbench/station/station.h"

namespace torvane {

// Sets the twin from the inch field, times 25.4, under its mask.
void SetTwin(Field& twin, const Field& inches, Mask mask);

// The same where changes are mirrored, and not while the twin itself is being typed.
void MirrorInTwin(const Station& station, Field& twin, const Field& inches, Mask mask);

// A key released in a twin: the inch field takes its value, and what was typed stands.
void SetInchesFromTwin(Station& station, Field& inches, const Field& twin, Mask mask);

}  // namespace torvane
