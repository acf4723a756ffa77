// Values that no program can mean, whatever the machine's limits are.
#pragma once

#include "executor/machine/limits.h"
#include "executor/proof/readiness.h"

namespace torvane::executor {

// Judges the values of one statement. `motion` is what it made the machine do.
void WatchSense(const Line& line, const Motion& motion, const Place& place, const Machine& machine,
                const Limits& limits, Findings& findings);

// Control characters, in comments too: other readers end a text or a line at them. A tab is none.
void WatchBytes(const Line& line, Findings& findings);

}  // namespace torvane::executor
