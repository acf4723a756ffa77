#include "gcode/three_axis_program.h"

#include <array>

#include "calc/four_axis.h"
#include "design/units.h"
#include "gcode/dialect.h"
#include "gcode/hoop.h"
#include "gcode/two_axis_program.h"

namespace torvane {

namespace {

using dialect::HeadTurn;
using dialect::Register;

// Lines of a pass whatever of it fails: an empty one and its head.
constexpr int kLinesOfPass = 2;
constexpr double kBytesOfPass = 24;
constexpr Mask kMask = dialect::kFourAxisMask;

// What the layers of one program share.
struct Schedule {
  GCodeSession& session;
  int layers = 0;
  Kept timeLeft{};
  Kept windingAngle{};
  Kept headRotation{};
};

// One layer: its display, and the head's swing to either side.
struct Layer {
  int number = 0;
  Number passes = Number::Failure();
  Number windingAngle = 0;
  MaybeText rpm{}, speed{};
  HeadTurn toFar{}, toHome{}, toMiddle{};
  MandrelShift farShift, homeShift;
  dialect::LayerDisplay display{};
};

Layer LayerOf(Schedule& schedule, int n) {
  const DesignState& s = schedule.session.s;
  schedule.windingAngle = number(s.cmbPattern(n));
  Layer layer{.number = n,
              .windingAngle = schedule.windingAngle,
              .farShift = {s, "F", schedule.windingAngle},
              .homeShift = {s, "H", schedule.windingAngle}};
  layer.passes = number(s.lblNPasses(n));
  layer.rpm = PlainOf(s, s.lblRPM(n));
  layer.speed = PlainOf(s, s.lblcSpeed(n));

  const Number far = 90 - layer.windingAngle + 5;
  const Number home = -90 + layer.windingAngle - 5;
  const Number radius = number(s.txtAdjust(3)) + number(s.txtDia(0)) / 2;
  schedule.headRotation =
      0.75 * (number(s.lblcSpeed(n)) * Abs(far) * Tan(layer.windingAngle * kPi / 180) / radius) * 60 / 360;
  const Masked rotation = Number(schedule.headRotation).as(kMask);
  layer.toFar = {rotation, far.as(kMask)};
  layer.toHome = {rotation, home.as(kMask)};
  layer.toMiddle = {rotation, Number(0).as(kMask)};

  dialect::LayerDisplay& d = layer.display;
  d.layer = n;
  d.layers = s.txtNumberOfLayers(1).text();
  d.passes = PlainOf(s, s.lblNPasses(n));
  d.rpm = layer.rpm;
  d.carriageSpeed = layer.speed;
  d.angle = PlainOf(s, s.cmbPattern(n));
  d.method = "ms";
  d.leftDiameter = PlainOf(s, s.txtDia(0));
  d.bandWidth = PlainOf(s, s.txtBandWidth(1));
  d.leftOffset = {true, {}};
  return layer;
}

void ExtraTurn(GCodeSession& session, const Field& setting) {
  if (setting.text() == "Y") dialect::Dwell(session.program, "360", "Add Extra 360 deg.");
}

template <class Pass>
void WritePassHead(Program& p, const Layer& layer, const Pass& pass) {
  dialect::EmptyLine(p);
  dialect::CommentLine(p, "Layer ", layer.number, " : Pass ", pass);
}

void WriteFirstPass(GCodeSession& session, const Layer& layer, const MaybeText& minutesLeft) {
  const DesignState& s = session.s;
  Program& p = session.program;
  WritePassHead(p, layer, 1);
  dialect::LayerDisplay display = layer.display;
  display.showsOffset = false;
  dialect::ShowLayer(p, display, 1, &minutesLeft);
  dialect::Turn(p, layer.rpm, "Mandrel CW Rotation");
  dialect::Dwell(p, "360", "360 DEG AT START");
  dialect::Save(p, Register::HomeEnd,
                "Save the Mandrel Home End Reference Angle at Start of First Pass to Register L602");
  dialect::MoveTurning(p, layer.speed, s.gFarEndZ.text(), layer.toFar, "Move Far End");
  dialect::DwellTurning(p, "360", layer.toMiddle, "Dwell Far End");
  ExtraTurn(session, s.txt3AX1stPass360);
  dialect::Save(p, Register::FarEnd, "Save Mandrel Ref Angle");
  dialect::MoveTurning(p, layer.speed, s.gHomeEndZ.text(), layer.toHome, "Move Home End");
  dialect::DwellTurning(p, Register::HomeEnd,
                        TextOf(p.signs(), layer.homeShift.AngleAt(1).as(dialect::kShiftAngleMask)).text,
                        layer.toMiddle, "Dwell Home End");
  ExtraTurn(session, s.txt3AX1stPass360);
}

// What tells a later pass from the others of its layer.
constexpr Slot kPass{0, dialect::kCountMask};
constexpr Slot kFarAngle{1, dialect::kShiftAngleMask, true}, kHomeAngle{2, dialect::kShiftAngleMask, true};

void WriteLaterPass(GCodeSession& session, const Layer& layer) {
  const DesignState& s = session.s;
  Program& p = session.program;
  WritePassHead(p, layer, kPass);
  dialect::ShowLayer(p, layer.display, kPass, nullptr);
  dialect::MoveTurningAtLastSpeed(p, s.gFarEndZ.text(), layer.toFar, "Move Far End");
  dialect::DwellTurning(p, Register::FarEnd, kFarAngle, layer.toMiddle, "Dwell Far End");
  ExtraTurn(session, s.txt2AXAdd360YN);
  dialect::MoveTurningAtLastSpeed(p, s.gHomeEndZ.text(), layer.toHome, "Move Home End");
  dialect::DwellTurning(p, Register::HomeEnd, kHomeAngle, layer.toMiddle, "Dwell Home End");
  ExtraTurn(session, s.txt2AXAdd360YN);
}

void WritePasses(Schedule& schedule, Layer& layer) {
  GCodeSession& session = schedule.session;
  const DesignState& s = session.s;
  Program& p = session.program;
  p.BeginLayer(layer.number);
  Passage laterPass;
  for (int pass = 1; holds(pass <= layer.passes); ++pass) {
    if (!p.GoesOn((layer.number - 1 + pass / layer.passes.value()) / schedule.layers)) return;
    if (pass == 1) {
      WriteFirstPass(session, layer,
                     MinutesLeft(p.signs(), s.lblMinutes, layer.number, schedule.layers, schedule.timeLeft));
      layer.display.angle = {true, s.cmbPattern(layer.number).text()};
      laterPass = p.Spelled([&] { WriteLaterPass(session, layer); });
    } else {
      p.Repeat(laterPass,
               std::array<Number, 3>{pass, layer.farShift.AngleAt(pass - 1), layer.homeShift.AngleAt(pass)});
    }
  }
}

void WriteHoop(GCodeSession& session, Layer& layer) {
  DesignState& s = session.s;
  const int n = layer.number;
  s.gWindAngle = HoopLeadAngle(s, BandWidth(s, 1));
  CalculateAndShow(s, s.gWindAngle, "HOOP", n);
  layer.display.rpm = {true, s.lblRPM(n).text()};
  layer.display.carriageSpeed = {true, s.lblcSpeed(n).text()};
  WriteHoopHead(session, n, layer.display);
  WriteHoopLayer(session, n);
}

}  // namespace

void WriteThreeAxisProgram(GCodeSession& session) {
  DesignState& s = session.s;
  Program& p = session.program;
  if (!s.chkWindingSchedule.checked()) return;
  const std::string left = s.txtZ4(0).through(dialect::kStopMask);
  const std::string right = s.txtZ4(3).through(dialect::kStopMask);
  s.gFarEndZ = FarOf(s, left, right);
  s.gHomeEndZ = HomeOf(s, left, right);

  dialect::EmptyLine(p);
  dialect::CommentLine(
      p, "BEGIN 3-AXIS WINDING WITH DH ROTARY MOVEMENT -------------------------------------------------- ");
  dialect::ShowStage(p, "Winding Schedule");
  dialect::WaitForButton(p, "Wait for Button Press to Begin  Winding Schedule");
  Schedule schedule{session, RowsOf(s.txtNumberOfLayers(1))};
  for (int n = 1; n <= schedule.layers; ++n) {
    const Number passes = number(s.lblNPasses(n));
    if (passes.good() && s.cmbPattern(n).text() != "HOOP")
      p.ExpectLayer(n, passes, kLinesOfPass, kBytesOfPass);
  }
  for (int n = 1; n <= schedule.layers && p.refusal().empty(); ++n) {
    Layer layer = LayerOf(schedule, n);
    if (s.cmbPattern(n).text() == "HOOP")
      WriteHoop(session, layer);
    else
      WritePasses(schedule, layer);
    WriteAdvanceToNextLayer(session, n, PlainOf(s, s.lblRPM(n)), true);
    dialect::EmptyLine(p);
  }
  dialect::EmptyLine(p);
  dialect::ShowMessage(p, "Winding_Process_Complete");
  dialect::Stop(p, "Mandrel Stop - Winding Complete");
  dialect::EmptyLine(p);
}

}  // namespace torvane
