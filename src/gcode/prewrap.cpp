#include "gcode/prewrap.h"

#include "design/units.h"
#include "gcode/dialect.h"

namespace torvane {

void WriteStartPosition(GCodeSession& session, bool beforePreWrap) {
  const DesignState& s = session.s;
  Program& p = session.program;
  const Field& home = s.gIsLHDrive ? s.gLeftStopText : s.gRightStopText;
  dialect::Move(p, FormatForUnits(s, s.txtLimitSwitchApproachSpeed, false), home.through("###0.000"_mask),
                "Move Carriage to Starting Position");
  if (beforePreWrap) {
    dialect::WaitForButton(p, "Wait for Operator Button Press");
    dialect::EmptyLine(p);
  }
}

void WritePreWrap(GCodeSession& session, int n) {
  const DesignState& s = session.s;
  Program& p = session.program;
  const Number rpm = number(s.cmbPreWrapRPM(n));
  const Number advance = number(s.txtPreWrapAdvance(n));
  const Field& far = s.txtZ2(s.gIsLHDrive ? 1 : 0);
  const Field& home = s.txtZ2(s.gIsLHDrive ? 0 : 1);

  dialect::CommentLine(p, "MANDREL #", n, " PRE-WRAP --------------------------");
  if (n != 2) dialect::WaitForButton(p, "Wait for Button Press");
  dialect::ShowPreWrap(p, n, rpm.plain(), advance.plain());
  dialect::Turn(p, rpm.plain(), "Mandrel CW Rotation");
  if (holds(advance != 0)) {
    const Number feed = rpm / 60 * InUnits(s, advance, false);
    dialect::Move(p, feed.as("###.##"_mask), far.through("###0.00"_mask), "Carriage Move for Pre-Wrap");
  }
  dialect::Dwell(p, number(s.txtMandrelAdvanceAfterPreWrapCarriageStop).plain(),
                 "Add User Defined Rev's after Pre-Wrap");
  dialect::Stop(p, "Mandrel Stop after Pre-Wrap");
  dialect::WaitForButton(p, "Wait for Button Press");
  dialect::Move(p, InUnits(s, number(s.txtLimitSwitchApproachSpeed), false).plain(),
                home.through("###0.00"_mask), "Carriage Back to Starting Position");
  dialect::EmptyLine(p);
}

}  // namespace torvane
