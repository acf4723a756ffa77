// The wraps round the ends of a part.
#pragma once

#include <optional>

#include "gcode/session.h"

namespace torvane {

enum class End { Left, Right };

// Two moves at an end of a pass of row `n`: an ellipse that carries the delivery head toward the part's axis
// and turns it, then a withdrawal to its traversing position and angle. They share the mandrel's turn of
// `wrapAngle` degrees. `shift` moves the mandrel on with the withdrawal, at the right end, in the same time.
// The slots take the running angle behind either move.
void WriteEndWrap(GCodeSession& session, int n, End end, Number wrapAngle, std::optional<Number> shift,
                  const Slot& behindEllipse, const Slot& behindWithdrawal);

// Running angle behind the ellipse of the last end wrap written, of which `behindWrap` is that behind both
// moves.
Number AngleBehindEllipse(const GCodeSession& session, Number behindWrap, Number wrapAngle);

}  // namespace torvane
