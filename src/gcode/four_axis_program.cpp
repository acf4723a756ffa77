#include "gcode/four_axis_program.h"

#include <array>
#include <optional>

#include "calc/four_axis.h"
#include "calc/patterns.h"
#include "design/units.h"
#include "gcode/dialect.h"
#include "gcode/end_wraps.h"
#include "gcode/hoop.h"

namespace torvane {

namespace {

// Lines of a pass whatever of it fails, its head, two moves and two end wraps, and their bytes at least.
constexpr int kLinesOfPass = 7;
constexpr double kBytesOfPass = 400;

// What tells a pass from the others of its layer: which it is, and where the mandrel stands behind its moves.
constexpr Slot kGroup{0, dialect::kCountMask}, kPass{1, dialect::kCountMask}, kCount{2, dialect::kCountMask};
constexpr Slot kBehindLeft{3, dialect::kRunningAngle}, kBehindRight{6, dialect::kRunningAngle};
constexpr Slot kBehindLeftEllipse{4, dialect::kRunningAngle}, kBehindRightEllipse{7, dialect::kRunningAngle};
constexpr Slot kBehindLeftWrap{5, dialect::kRunningAngle}, kBehindRightWrap{8, dialect::kRunningAngle};
using PassNumbers = std::array<Number, 9>;

// Where all axes but the mandrel stand between two passes.
struct Stand {
  Kept z, y, b, wrapRPM, ellipseAngle, target;
  bool operator==(const Stand&) const = default;
};

struct PassKind {
  bool firstOfLayer, lastOfGroup, lastOfLayer;
  bool operator==(const PassKind&) const = default;
};

// Passes of a kind that begin from one stand are alike.
struct SpelledPass {
  std::optional<PassKind> kind;
  Stand before, behind;
  Passage passage;
};

// Of the layers in turn, as the program counts them: its groups are the circuits of the window's pattern, and
// a group has as many passes as the pattern has groups.
struct PassCounts {
  Kept passes{};  // of a group
  Kept groups{};  // of a layer

  void Take(const DesignState& s, const PatternFields& pattern) {
    passes = Int(s.Read(pattern.groups));
    groups = Int(s.Read(pattern.circuits));
  }
  Number All() const { return passes * groups; }
};

// What the layers of one program share. A layer whose pattern cannot be read goes on with the values as they
// stood.
struct Schedule {
  GCodeSession& session;
  int layers = 0;
  Number circumference = 0;
  Number traverseLength = 0;

  PassCounts counts{};
  Kept wrapAngle{};
  Kept traverseAngle{};
  Kept mandrelRPM{};
  Kept carriageSpeed{};
  Kept target{};                         // Z of the traverse in hand
  std::array<SpelledPass, 2> spelled{};  // within a group, and its last one

  Stand Stands() const {
    return {session.gMoveZ, session.gMoveY, session.gMoveB, session.gWrapRPM, session.ellipseAngle, target};
  }
  void StandAt(const Stand& stand) {
    session.gMoveZ = stand.z;
    session.gMoveY = stand.y;
    session.gMoveB = stand.b;
    session.gWrapRPM = stand.wrapRPM;
    session.ellipseAngle = stand.ellipseAngle;
    target = stand.target;
  }
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

void WriteTraverse(Schedule& schedule, Number z, Number mandrelTurn, const Slot& runningAngle,
                   std::string_view comment) {
  dialect::FourAxisMove move;
  move.f = schedule.carriageSpeed.value();
  schedule.target = z;
  move.z = schedule.target.value();
  move.s = schedule.mandrelRPM.value();
  move.c = mandrelTurn.value();
  dialect::MoveAxes(schedule.session.program, move, runningAngle, comment);
}

// By how much the last pass of a group moves the mandrel on, degrees.
Number ShiftOfGroup(const Schedule& schedule) {
  return 360 / (schedule.counts.groups * schedule.counts.passes);
}

// To the left end and back, with an end wrap at each. The first pass of a layer starts where the band meets
// the part; the last pass of a group moves the mandrel on by one band.
void SpellPass(Schedule& schedule, int n, const PassKind& kind, const dialect::LayerDisplay& display) {
  GCodeSession& session = schedule.session;
  const DesignState& s = session.s;
  Program& p = session.program;
  const bool hemi = s.IsHemi();
  static const MaybeText noMinutes{true, "0"};

  dialect::CommentLine(p, "Layer ", n, ": Group ", kGroup, "/", Number(schedule.counts.groups).plain(),
                       " : Pass ", kPass, "/", Number(schedule.counts.passes).plain());
  dialect::ShowLayer(p, display, kCount, &noMinutes);
  const Number traverse = schedule.traverseAngle;
  WriteTraverse(schedule, number(s.txtZ4(hemi ? 1 : 0)),
                kind.firstOfLayer ? traverse + session.gMandrelStartAngle : traverse, kBehindLeft,
                "MOVE LEFT END");
  WriteEndWrap(session, n, End::Left, schedule.wrapAngle, std::nullopt, kBehindLeftEllipse, kBehindLeftWrap);
  WriteTraverse(schedule, number(s.txtZ4(hemi ? 2 : 3)), traverse, kBehindRight, "MOVE RIGHT END");
  WriteEndWrap(session, n, End::Right, schedule.wrapAngle,
               kind.lastOfGroup ? std::optional(ShiftOfGroup(schedule)) : std::nullopt, kBehindRightEllipse,
               kBehindRightWrap);
  if (!kind.lastOfLayer) dialect::EmptyLine(p);
}

const Passage& PassageOf(Schedule& schedule, int n, const PassKind& kind,
                         const dialect::LayerDisplay& display) {
  SpelledPass& spelled = schedule.spelled[kind.lastOfGroup ? 1 : 0];
  const Stand before = schedule.Stands();
  if (spelled.kind == kind && spelled.before == before) {
    schedule.StandAt(spelled.behind);
    return spelled.passage;
  }
  spelled.passage = schedule.session.program.Spelled([&] { SpellPass(schedule, n, kind, display); });
  spelled.kind = kind;
  spelled.before = before;
  spelled.behind = schedule.Stands();
  return spelled.passage;
}

// The mandrel turns on through the whole program: its angle is added up move by move.
PassNumbers TurnMandrel(Schedule& schedule, int group, int pass, const PassKind& kind) {
  const GCodeSession& session = schedule.session;
  Kept& angle = schedule.session.gMandrelAngle;
  const int count = static_cast<int>(((group - 1) * schedule.counts.passes + pass).value());
  PassNumbers numbers{group, pass, count, 0, 0, 0, 0, 0, 0};
  angle = angle + schedule.traverseAngle;
  if (kind.firstOfLayer) angle = angle - session.gMandrelStartAngle;
  numbers[kBehindLeft.number] = angle;
  angle = angle + schedule.wrapAngle;
  numbers[kBehindLeftEllipse.number] = AngleBehindEllipse(session, angle, schedule.wrapAngle);
  numbers[kBehindLeftWrap.number] = angle;
  angle = angle + schedule.traverseAngle;
  numbers[kBehindRight.number] = angle;
  angle = angle + schedule.wrapAngle;
  if (kind.lastOfGroup) angle = angle + ShiftOfGroup(schedule);
  numbers[kBehindRightEllipse.number] = AngleBehindEllipse(session, angle, schedule.wrapAngle);
  numbers[kBehindRightWrap.number] = angle;
  return numbers;
}

void WritePass(Schedule& schedule, int n, int group, int pass, const dialect::LayerDisplay& display) {
  const bool lastOfGroup = holds(pass == schedule.counts.passes);
  const PassKind kind{group == 1 && pass == 1, lastOfGroup,
                      lastOfGroup && holds(group == schedule.counts.groups)};
  const Passage& passage = PassageOf(schedule, n, kind, display);
  schedule.session.program.Repeat(passage, TurnMandrel(schedule, group, pass, kind));
}

void WritePatternLayer(Schedule& schedule, int n, const PatternFields& pattern) {
  GCodeSession& session = schedule.session;
  DesignState& s = session.s;
  Program& p = session.program;
  s.gWindAngle = s.Read(pattern.angle);
  schedule.counts.Take(s, pattern);
  schedule.wrapAngle = s.Read(pattern.wrapAngle);
  schedule.traverseAngle =
      schedule.traverseLength * Tan(s.gWindAngle * kShortPi / 180) / schedule.circumference * 360;
  CalculateSpeeds(schedule, "", 0, n);
  dialect::EmptyLine(p);
  dialect::CommentLine(p, "START LAYER #", n, " ----------------------------------------------");

  const Number all = schedule.counts.All();
  dialect::LayerDisplay display = DisplayOf(s, n);
  display.passes = TextOf(s.signs, all.plain());
  display.angle = TextOf(s.signs, Number(s.gWindAngle).plain());
  display.method = "4AX";
  p.BeginLayer(n);
  schedule.spelled = {};
  if (!holds(all >= 1)) return;
  for (int group = 1; holds(group <= schedule.counts.groups); ++group)
    for (int pass = 1; holds(pass <= schedule.counts.passes); ++pass) {
      const double done = ((group - 1) * schedule.counts.passes + pass).value() / all.value();
      if (!p.GoesOn((n - 1 + done) / schedule.layers)) return;
      WritePass(schedule, n, group, pass, display);
    }
}

// So that a program that would be too long is refused before its first pass.
void ExpectLayers(GCodeSession& session, int layers) {
  DesignState& s = session.s;
  PassCounts counts;
  for (int n = 1; n <= layers; ++n) {
    const PatternFields pattern = SplitPatternFields(s, s.cmbPattern(n).text());
    if (pattern.angle == "HOOP") continue;
    counts.Take(s, pattern);
    session.program.ExpectLayer(n, counts.All(), kLinesOfPass, kBytesOfPass);
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
  ExpectLayers(session, layers);
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
