#include "gcode/four_axis_program.h"

#include "calc/four_axis.h"
#include "calc/patterns.h"
#include "design/units.h"
#include "gcode/dialect.h"
#include "gcode/end_wraps.h"
#include "gcode/hoop.h"

namespace torvane {

namespace {

// Lines of a pass whatever of it fails: its head, two moves and two end wraps.
constexpr int kLinesOfPass = 7;

// What the layers of one program share. A layer whose pattern cannot be read goes on with the values as they
// stood.
struct Schedule {
  GCodeSession& session;
  int layers = 0;
  Number circumference = 0;
  Number traverseLength = 0;

  Kept passes{};  // of a group
  Kept groups{};  // of a layer
  Kept wrapAngle{};
  Kept traverseAngle{};
  Kept mandrelRPM{};
  Kept carriageSpeed{};
  Kept target{};  // Z of the traverse in hand
};

dialect::LayerDisplay DisplayOf(const DesignState& s, int n) {
  dialect::LayerDisplay d;
  d.layer = n;
  d.layers = s.txtNumberOfLayers(1).text();
  d.rpm = {true, s.lblRPM(n).text()};
  d.carriageSpeed = {true, s.lblcSpeed(n).text()};
  d.leftDiameter = PlainOf(s, s.txtDia(0));
  d.bandWidth = PlainOf(s, s.txtBandWidth(1));
  d.leftOffset = {true, {}};
  return d;
}

void CalculateSpeeds(Schedule& schedule, std::string_view pattern, int row, int n) {
  DesignState& s = schedule.session.s;
  Number mandrelRPM = schedule.mandrelRPM;
  Number carriageSpeed = schedule.carriageSpeed;
  CalculateFourAxisRow(s, s.gWindAngle, mandrelRPM, carriageSpeed, pattern, row);
  schedule.mandrelRPM = mandrelRPM;
  schedule.carriageSpeed = carriageSpeed;
  WriteSpeeds(s, n, mandrelRPM, carriageSpeed);
}

void WriteTraverse(Schedule& schedule, Number z, Number mandrelTurn, std::string_view comment) {
  dialect::FourAxisMove move;
  move.f = schedule.carriageSpeed.value();
  schedule.target = z;
  move.z = schedule.target.value();
  move.s = schedule.mandrelRPM.value();
  move.c = mandrelTurn.value();
  move.a = schedule.session.gMandrelAngle.value();
  dialect::MoveAxes(schedule.session.program, move, comment);
}

struct PassNumber {
  int group, pass;
  bool first() const { return group == 1 && pass == 1; }
};

// To the left end and back, with an end wrap at each. The first pass of a layer starts where the band meets
// the part; the last pass of a group moves the mandrel on by one band.
void WritePass(Schedule& schedule, int n, PassNumber at, const dialect::LayerDisplay& display) {
  GCodeSession& session = schedule.session;
  const DesignState& s = session.s;
  Program& p = session.program;
  const bool hemi = s.IsHemi();
  const Number groups = schedule.groups;
  const Number passes = schedule.passes;
  static const MaybeText noMinutes{true, "0"};

  dialect::CommentLine(p, "Layer ", n, ": Group ", at.group, "/", groups.plain(), " : Pass ", at.pass, "/",
                       passes.plain());
  const int count = static_cast<int>(((at.group - 1) * passes + at.pass).value());
  dialect::ShowLayer(p, display, count, &noMinutes);

  Kept& angle = session.gMandrelAngle;
  angle = angle + schedule.traverseAngle;
  Number mandrelTurn = schedule.traverseAngle;
  if (at.first()) {
    angle = angle - session.gMandrelStartAngle;
    mandrelTurn = schedule.traverseAngle + session.gMandrelStartAngle;
  }
  WriteTraverse(schedule, number(s.txtZ4(hemi ? 1 : 0)), mandrelTurn, "MOVE LEFT END");
  angle = angle + schedule.wrapAngle;
  WriteEndWrap(session, n, End::Left, schedule.wrapAngle, std::nullopt);

  angle = angle + schedule.traverseAngle;
  WriteTraverse(schedule, number(s.txtZ4(hemi ? 2 : 3)), schedule.traverseAngle, "MOVE RIGHT END");
  angle = angle + schedule.wrapAngle;
  std::optional<Number> shift;
  if (holds(at.pass == passes)) {
    shift = 360 / (groups * passes);
    angle = angle + *shift;
  }
  WriteEndWrap(session, n, End::Right, schedule.wrapAngle, shift);
  if (!holds(at.pass == passes) || !holds(at.group == groups)) dialect::EmptyLine(p);
}

void WritePatternLayer(Schedule& schedule, int n, const PatternFields& pattern) {
  GCodeSession& session = schedule.session;
  DesignState& s = session.s;
  Program& p = session.program;
  s.gWindAngle = s.Read(pattern.angle);
  schedule.passes = Int(s.Read(pattern.groups));
  schedule.groups = Int(s.Read(pattern.circuits));
  schedule.wrapAngle = s.Read(pattern.wrapAngle);
  schedule.traverseAngle =
      schedule.traverseLength * Tan(s.gWindAngle * kShortPi / 180) / schedule.circumference * 360;
  CalculateSpeeds(schedule, "", 0, n);
  dialect::EmptyLine(p);
  dialect::CommentLine(p, "START LAYER #", n, " ----------------------------------------------");

  const Number all = schedule.passes * schedule.groups;
  dialect::LayerDisplay display = DisplayOf(s, n);
  display.passes = TextOf(s.signs, all.plain());
  display.angle = TextOf(s.signs, Number(s.gWindAngle).plain());
  display.method = "4AX";
  p.BeginLayer(n, all, kLinesOfPass);
  if (!holds(all >= 1)) return;
  for (int group = 1; holds(group <= schedule.groups); ++group)
    for (int pass = 1; holds(pass <= schedule.passes); ++pass) {
      const double done = ((group - 1) * schedule.passes + pass).value() / all.value();
      if (!p.GoesOn((n - 1 + done) / schedule.layers)) return;
      WritePass(schedule, n, {group, pass}, display);
    }
}

void WriteHoop(Schedule& schedule, int n) {
  GCodeSession& session = schedule.session;
  DesignState& s = session.s;
  WriteHoopHead(session, n, DisplayOf(s, n));
  s.gWindAngle = HoopLeadAngle(s, BandWidth(s, 1));
  CalculateSpeeds(schedule, "HOOP", n, n);
  WriteHoopLayer(session, n);
}

void WriteLayer(Schedule& schedule, int n) {
  DesignState& s = schedule.session.s;
  Program& p = schedule.session.program;
  if (n == 1) dialect::Save(p, dialect::Register::FarEnd, "MARK THE MANDREL REFERFENCE ANGLE");
  const PatternFields pattern = SplitPatternFields(s, s.cmbPattern(n).text());
  if (pattern.angle == "HOOP")
    WriteHoop(schedule, n);
  else
    WritePatternLayer(schedule, n, pattern);
  dialect::CommentLine(p, "END LAYER #", n, " ----------------------------------------------");
  dialect::EmptyLine(p);
  if (s.chkPause(n).checked()) dialect::WaitForButton(p, "User Requested Pause After This Layer");
}

}  // namespace

void Write4AxWindingGCode(GCodeSession& session) {
  const DesignState& s = session.s;
  Program& p = session.program;
  if (!s.chkWindingSchedule.checked()) return;
  dialect::EmptyLine(p);
  dialect::CommentLine(
      p, s.IsHemi()
             ? "BEGIN 4-AXIS WINDING WITH HEMI ENDS --------------------------------------------------- "
             : "BEGIN 4-AXIS WINDING WITH FLAT ENDS --------------------------------------------------- ");
  dialect::ShowStage(p, "Winding Schedule");
  dialect::WaitForButton(p, "Wait for Button Press to Begin  Winding Schedule");

  const int layers = RowsOf(s.txtNumberOfLayers(1));
  Schedule schedule{session, layers, number(s.txtDia(0)) * kPi, TraverseLength(s)};
  session.gMandrelAngle = session.gMandrelStartAngle;
  for (int n = 1; n <= layers && p.refusal().empty(); ++n) WriteLayer(schedule, n);

  dialect::CommentLine(p, "END WINDING ----------------------------------------------");
  dialect::ShowMessageWithBlanks(p, "Winding_Process_Complete");
  dialect::Stop(p, "Mandrel Stop");
  dialect::EmptyLine(p);
  dialect::EmptyLine(p);
}

}  // namespace torvane
