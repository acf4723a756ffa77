#include "gcode/hoop.h"

#include "calc/four_axis.h"
#include "design/units.h"
#include "gcode/prewrap.h"

namespace torvane {

namespace {

constexpr double kHeadRotation = 10;  // speed at which the head turns
constexpr double kLead = 6;           // degrees
constexpr double kLeastHeadAngle = 5;

// The carriage and the head go to where the hoop begins, and the operator lays the filament on.
void WriteMoveToHoop(GCodeSession& session, Number rightZ) {
  const DesignState& s = session.s;
  dialect::MoveToHoop(session.program, InUnits(s, number(s.txtLimitSwitchApproachSpeed), false).plain(),
                      rightZ, session.gMoveY);
  dialect::WaitForButton(session.program, "PAUSE BEFORE HOOP WINDING");
}

}  // namespace

Number HoopHeadAngle(Number leadAngle) {
  const Number angle = 90 - leadAngle - kLead;
  return holds(angle < kLeastHeadAngle) ? kLeastHeadAngle : angle;
}

void WriteHoopHead(GCodeSession& session, int n, dialect::LayerDisplay display) {
  Program& p = session.program;
  const MaybeText noMinutes{true, "0"};
  dialect::EmptyLine(p);
  dialect::CommentLine(p, "Layer ", n, ": HOOP LAYER   ----------------------------------------------");
  display.countsPasses = false;
  display.angle = {true, "HOOP"};
  display.method = "4AX HOOP";
  dialect::ShowLayer(p, display, 1, &noMinutes);
}

void WriteHoopLayer(GCodeSession& session, int n) {
  DesignState& s = session.s;
  Program& p = session.program;
  const bool angles = s.optType(2).checked();
  const bool hemi = s.optType(1).checked();
  if (n != 1 && s.gPauseBeforeHoop.text() == "Y") dialect::WaitForButton(p, "PAUSE BEFORE HOOP WINDING");
  Kept rightZ;
  Kept leftZ;
  rightZ = number(s.txtZ4(hemi ? 2 : 3));
  leftZ = number(s.txtZ4(hemi ? 1 : 0));
  if (!angles) {
    session.gMoveY = number(s.txtAdjust(3)) + number(s.txtDia(0)) / 2;
    if (!s.chkPreWrap1.checked() && n != 1) WriteMoveToHoop(session, rightZ);
  }

  const Number bandWidth = SteppingBandWidth(s, 1);
  Kept mandrelAngle;
  mandrelAngle = (Int(Abs(Number(rightZ) - Number(leftZ)) / bandWidth) + 1) * 360;
  s.gWindAngle = HoopLeadAngle(s, bandWidth);
  const Number headAngle = HoopHeadAngle(s.gWindAngle);

  dialect::FourAxisMove move;
  move.f = number(s.lblcSpeed(n)).valueOr0();
  move.r = kHeadRotation;
  move.s = number(s.lblRPM(n)).valueOr0();
  move.c = mandrelAngle.value();

  session.gMandrelAngle = session.gMandrelAngle + mandrelAngle;
  move.z = leftZ.value();
  move.b = headAngle.valueOr0();
  const auto runningAngle = [&session] { return Number(session.gMandrelAngle).as(dialect::kRunningAngle); };
  dialect::MoveAxes(p, move, runningAngle(), "MOVE LEFT END");
  session.gMandrelAngle = session.gMandrelAngle + mandrelAngle;
  move.z = rightZ.value();
  move.b = -headAngle.valueOr0();
  dialect::MoveAxes(p, move, runningAngle(), "MOVE BACK RIGHT END");

  dialect::WaitForButton(p, "PAUSE AFTER HOOP WINDING");
  if (holds(LayersOf(s.txtNumberOfLayers(1)) != n)) {
    WriteStartPosition(session, 0, n + 1);
    if (s.cmbPattern(n + 1).text() != "HOOP") dialect::WaitForButton(p, "PAUSE AFTER HOOP WINDING");
  }
  dialect::CommentLine(p, "END Layer ", n, ": HOOP LAYER   ----------------------------------------------");
}

}  // namespace torvane
