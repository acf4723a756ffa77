#include "gcode/prewrap.h"

#include "calc/four_axis.h"
#include "calc/patterns.h"
#include "design/units.h"
#include "gcode/dialect.h"
#include "gcode/hoop.h"

namespace torvane {

namespace {

bool BeginsWithHoop(const DesignState& s) { return s.cmbPattern(1).text() == "HOOP"; }

const Field& FarStop(const DesignState& s) {
  return s.gShow4Axis ? FarOf(s, s.txtZ4(0), s.txtZ4(3)) : FarOf(s, s.txtZ2(0), s.txtZ2(1));
}
const Field& HomeStop(const DesignState& s) {
  return s.gShow4Axis ? HomeOf(s, s.txtZ4(0), s.txtZ4(3)) : HomeOf(s, s.txtZ2(0), s.txtZ2(1));
}

// The wind angle of the layer that starts here.
void TakeWindAngle(DesignState& s, int layer) {
  if (s.IsNoWrap()) {
    s.gWindAngle = number(s.cmbPattern(1));
  } else if (BeginsWithHoop(s) && layer == 1) {
    s.gWindAngle = HoopLeadAngle(s, BandWidth(s, 1));
  } else {
    s.gWindAngle = s.Read(SplitPatternFields(s, s.cmbPattern(layer).text()).angle);
  }
}

// Where carriage and mandrel stand before the first pass of a layer. The carriage begins beyond the end by
// what the band needs to meet the part at its angle, half a part length at most; the mandrel stands back by
// the turn that this takes. Returns the carriage's Z.
Number DHandMandrelStartingPosition(GCodeSession& session, int layer) {
  DesignState& s = session.s;
  TakeWindAngle(s, layer);
  const Number tangent = Tan(s.gWindAngle * kPi / 180);
  const bool straight = s.IsNoWrap() || s.cmbPattern(layer).text() == "HOOP";
  // A first row without an angle, such as one not chosen yet, begins at the end itself.
  Kept leadIn;
  if (!straight) leadIn = number(s.txtDia(1)) / 2 / tangent;
  const Number rightEnd = number(s.txtZ4(3));
  session.gMoveZ = s.IsNoWrap() ? rightEnd : number(s.txtZ4(2)) + leadIn;
  const Number farthest = rightEnd + 0.5 * number(s.lblLengthTotal);
  if (holds(farthest < session.gMoveZ)) session.gMoveZ = farthest;
  Kept excess;
  excess = session.gMoveZ - rightEnd;
  session.gMandrelStartAngle = s.IsNoWrap() || s.cmb3D(1).text() == "HOOP"
                                   ? Number(0)
                                   : -360 * (excess * tangent) / (number(s.txtDia(0)) * kPi);
  return session.gMoveZ;
}

// The head lies along the band as it comes from the right end.
Number StartHeadAngle(const DesignState& s) {
  if (s.gIsLHDrive) return -90 + s.gWindAngle;
  if (s.IsNoWrap()) return 0;
  return BeginsWithHoop(s) ? HoopHeadAngle(s.gWindAngle) : 90 - s.gWindAngle;
}

void WriteFourAxisStart(GCodeSession& session, int mark, int layer) {
  DesignState& s = session.s;
  Kept z;
  z = number(s.txtZ4(s.IsNoWrap() ? 3 : 2));
  if (s.chkPreWrap2.checked() && mark == 1)
    z = number(s.txtZ4(2));
  else if (layer != 0)
    z = DHandMandrelStartingPosition(session, layer);
  Kept speed;
  speed = number(s.txtLimitSwitchApproachSpeed);
  session.gMoveY = number(s.txtAdjust(3)) + number(s.txtDia(0)) / 2;
  session.gMoveB = StartHeadAngle(s);
  if (!s.IsNoWrap() && BeginsWithHoop(s) && layer < 2)
    z = s.IsHemi() ? number(s.txtZ4(2)) : number(s.txtZ4(3)) + BandWidth(s, 1) / 2;
  dialect::MoveToStart(session.program,
                       {FormatForUnits(s, Number(speed), false), Number(z).as(dialect::kFourAxisMask),
                        Number(session.gMoveY).plain(), FormatForUnits(s, 1.0, false), session.gMoveB,
                        s.IsNoWrap() ? 20 : 10, !s.IsNoWrap()});
}

}  // namespace

void WriteStartPosition(GCodeSession& session, int mark, int layer) {
  const DesignState& s = session.s;
  Program& p = session.program;
  if (s.gShow4Axis) {
    WriteFourAxisStart(session, mark, layer);
  } else {
    const Field& home = HomeOf(s, s.gLeftStopText, s.gRightStopText);
    dialect::Move(p, FormatForUnits(s, s.txtLimitSwitchApproachSpeed, false),
                  home.through(dialect::kHomeMask), "Move Carriage to Starting Position");
  }
  if (s.gShow4Axis ? mark == 1 : mark != 0) {
    dialect::WaitForButton(p, "Wait for Operator Button Press");
    dialect::EmptyLine(p);
  }
}

void WritePreWrap(GCodeSession& session, int n) {
  const DesignState& s = session.s;
  Program& p = session.program;
  const Number rpm = number(s.cmbPreWrapRPM(n));
  const Number advance = number(s.txtPreWrapAdvance(n));

  dialect::CommentLine(p, "MANDREL #", n, " PRE-WRAP --------------------------");
  if (n != 2) dialect::WaitForButton(p, "Wait for Button Press");
  dialect::ShowPreWrap(p, n, rpm.plain(), advance.plain());
  dialect::Turn(p, rpm.plain(), "Mandrel CW Rotation");
  if (holds(advance != 0)) {
    const Number feed = rpm / 60 * InUnits(s, advance, false);
    dialect::Move(p, feed.as(dialect::kFeedMask), FarStop(s).through(dialect::kStopMask),
                  "Carriage Move for Pre-Wrap");
  }
  dialect::Dwell(p, number(s.txtMandrelAdvanceAfterPreWrapCarriageStop).plain(),
                 "Add User Defined Rev's after Pre-Wrap");
  dialect::Stop(p, "Mandrel Stop after Pre-Wrap");
  dialect::WaitForButton(p, "Wait for Button Press");
  if (s.gShow4Axis && !s.IsNoWrap()) {
    WriteStartPosition(session, n, 0);
    return;
  }
  dialect::Move(p, InUnits(s, number(s.txtLimitSwitchApproachSpeed), false).plain(),
                HomeStop(s).through(dialect::kStopMask), "Carriage Back to Starting Position");
  dialect::EmptyLine(p);
}

}  // namespace torvane
