#include "gcode/finishing.h"

#include "design/units.h"
#include "gcode/dialect.h"

namespace torvane {

namespace {

// Both passes run between the stops as the operator typed them; on a part with wrapped ends the tape stays
// between the points where the ends begin.
void SetEnds(DesignState& s, bool tape) {
  const bool inner = tape && !s.IsNoWrap();
  const Field& left = s.gShow4Axis ? s.txtZ4(inner ? 1 : 0) : s.txtZ2(0);
  const Field& right = s.gShow4Axis ? s.txtZ4(inner ? 2 : 3) : s.txtZ2(1);
  s.gFarEndZ.CopyFrom(FarOf(s, left, right));
  s.gHomeEndZ.CopyFrom(HomeOf(s, left, right));
}

void WriteHeatShrinkTape(GCodeSession& session) {
  DesignState& s = session.s;
  Program& p = session.program;
  dialect::CommentLine(p, "HEAT SHRINK TAPE APPLICATION ------------------------------------------- ");
  dialect::ShowMessage(p, "Awaiting Button Press to Start Heat Shrink Tape Fwd Pass");
  dialect::ShowStage(p, "Heat Shrink Tape");
  dialect::WaitForButton(p, "Wait for Button Press, then Start Heat Shrink Pass");
  dialect::ShowMessage(p, "Proceeding with Heat Shrink Tape Fwd Pass");
  dialect::Turn(p, number(s.cmbHSTRPM).plain(), "Start Mandrel for HST Pass");
  SetEnds(s, true);
  const Number feed = number(s.cmbHSTRPM) / 60 * InUnits(s, number(s.txtHSTWidth), false);
  dialect::Move(p, feed.as(dialect::kFeedMask), s.gFarEndZ.text(),
                "Forward Pass for Heat Shrink Tape Application");
  dialect::Dwell(p, number(s.txtMandrelAdvanceAfterHSTCarriageStop).plain(),
                 "Additional User Defined Mandrel Angle After HST Pass");
  dialect::Stop(p, "Mandrel Stop after HST Completion");
  dialect::ShowMessage(p, "Heat Shrink Tape Application Complete");
  dialect::WaitForButton(p, "Wait for Button Press, Then Return to Home Offset");
  dialect::Move(p, InUnits(s, number(s.txtLimitSwitchApproachSpeed), false).plain(), s.gHomeEndZ.text(),
                "Move Carriage to Home OffSet +1 at User Set Medium Speed");
}

// The run to and fro has no end: the operator stops the executor when the part is cured.
void WriteHeatGun(GCodeSession& session) {
  DesignState& s = session.s;
  Program& p = session.program;
  dialect::EmptyLine(p);
  dialect::CommentLine(p, "HEAT GUN APPLICATION ----------------------------------------------------");
  dialect::ShowMessage(p, "Awaiting Button Press to Start Heat Gun Application");
  dialect::ShowStage(p, "Heat Gun Curing");
  dialect::WaitForButton(p, "Wait for Button Press, Then Start Heat Gun Curing Process");
  dialect::Turn(p, number(s.cmbHGRPM).plain(), "SET MANDREL RPM");
  SetEnds(s, false);
  dialect::MoveAtLastSpeed(p, s.gHomeEndZ.text(), "MOVE TO HOME OFFSET");
  dialect::EmptyLine(p);
  dialect::CommentLine(p, "HEAT GUN FOREVER UNTIL USER CANCELS OR KILLS PROGRAM -----------------");
  dialect::RunForever(p, s.gHomeEndZ.text(), s.gFarEndZ.text(), "Heat Gun Forever Between These Z Values");
}

}  // namespace

void WriteFinishingPasses(GCodeSession& session) {
  const bool tape = session.s.chkPromptForHST.checked();
  const bool heatGun = session.s.chkHeatGunApp.checked();
  Program& p = session.program;
  if (!tape && !heatGun) {
    dialect::Stop(p, "Mandrel Stop");
    return;
  }
  if (tape)
    WriteHeatShrinkTape(session);
  else
    dialect::ShowMessage(p, "No Heat Shrink Application");
  if (heatGun)
    WriteHeatGun(session);
  else
    dialect::ShowMessage(p, "No Heat Gun Application");
}

}  // namespace torvane
