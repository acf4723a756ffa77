#include "gcode/two_axis_program.h"

#include <array>
#include <vector>

#include "design/units.h"
#include "gcode/dialect.h"
#include "text/text.h"

namespace torvane {

namespace {

using dialect::Register;

// What the passes of one layer share.
struct Layer {
  const DesignState& s;
  Program& p;
  int number = 0;
  Number passes = Number::Failure();
  bool mandrelShift = false;   // the method is "ms"
  bool carriageShift = false;  // the method is "cs"
  MaybeText speed{};           // of the carriage
  MaybeText rpm{};
  dialect::LayerDisplay display{};

  // The operator's own wrap at the ends of a pass, degrees.
  bool hasAddedWrap = false;
  Number addedWrap = Number::Failure();

  MandrelShift farShift, homeShift;
  Number bandOnAxis = Number::Failure();
  Number far = Number::Failure(), home = Number::Failure();  // Z at which a carriage shift begins
  Passage laterPass{};
};

// A wrap of a fraction of a degree shows nothing under the mask; the dwell is written all the same.
void WriteAddedWrap(const Layer& layer, std::string_view comment) {
  dialect::Dwell(layer.p, layer.addedWrap.as(dialect::kAddedWrapMask), comment, layer.addedWrap.plain(),
                 " deg.");
}

void AddedWrap(const Layer& layer, std::string_view comment) {
  if (layer.hasAddedWrap && holds(layer.addedWrap != 0)) WriteAddedWrap(layer, comment);
}

// Where the carriage shifts, a negative wrap counts as none.
void PositiveAddedWrap(const Layer& layer, std::string_view comment) {
  if (layer.hasAddedWrap && holds(layer.addedWrap > 0)) WriteAddedWrap(layer, comment);
}

void ExtraTurnOfFirstPass(const Layer& layer) {
  if (layer.s.txtAddExtra360AtFarEndYN.text() == "Y")
    dialect::Dwell(layer.p, "360", "One Time 360 Add'l Rev at End of First Pass");
}

void ExtraTurnOfEveryPass(const Layer& layer) {
  if (layer.s.txt2AXAdd360YN.text() == "Y") dialect::Dwell(layer.p, "360", "Add Extra 360 deg.");
}

void WriteFirstPass(const Layer& layer, const MaybeText& minutesLeft) {
  const DesignState& s = layer.s;
  Program& p = layer.p;
  const std::string& farEnd = s.gFarEndZ.text();
  const std::string& homeEnd = s.gHomeEndZ.text();
  dialect::ShowLayer(p, layer.display, 1, &minutesLeft);
  dialect::Turn(p, layer.rpm, "Mandrel CW Rotation");
  dialect::Save(p, Register::HomeEnd,
                "Save the Mandrel Home End Reference Angle at Start of First Pass to Register L602");
  dialect::Move(p, layer.speed, farEnd, "Carriage Move to Z=", farEnd);
  AddedWrap(layer, "User Added Add'l Wrap Angle=");
  ExtraTurnOfFirstPass(layer);
  ExtraTurnOfEveryPass(layer);
  dialect::Save(p, Register::FarEnd, "Save Mandrel Ref Angle");
  dialect::Move(p, layer.speed, homeEnd, "Carriage Move to Z=", homeEnd);
  AddedWrap(layer, "User Added Add'l Wrap Angle=");
  ExtraTurnOfFirstPass(layer);
  if (layer.mandrelShift)
    dialect::DwellBehind(p, Register::HomeEnd,
                         TextOf(p.signs(), layer.homeShift.AngleAt(1).as(dialect::kShiftAngleMask)).text,
                         "Carriage Dwell Home End");
  else
    dialect::DwellTo(p, Register::HomeEnd, "Carriage Dwell Home End");
}

// What tells a later pass from the others of its layer: its number, and for either end the Z or the mandrel
// angle at which it reverses. An angle that cannot be worked out stays empty.
constexpr Slot kPass{0, dialect::kCountMask};
constexpr Slot kFarZ{1, dialect::kShiftedMask}, kHomeZ{2, dialect::kShiftedMask};
constexpr Slot kFarAngle{1, dialect::kShiftAngleMask, true}, kHomeAngle{2, dialect::kShiftAngleMask, true};
using PassNumbers = std::array<Number, 3>;

// The mandrel always comes back to the same angle, and the carriage reverses one band further along.
void WriteCarriageShiftPass(const Layer& layer) {
  Program& p = layer.p;
  dialect::MoveAtLastSpeed(p, kFarZ, "Move to L", layer.number,
                           " Far End Right Offset Plus Carriage Shift Distance");
  PositiveAddedWrap(layer, "Carriage Dwell Far End by User Defined Add'l Angle=");
  dialect::DwellTo(p, Register::FarEnd, "Dwell Far End to Mandrel Ref. Angle");
  dialect::MoveAtLastSpeed(p, kHomeZ, "Move to L", layer.number,
                           " Home End Right Offset Plus Carriage Shift Distance");
  PositiveAddedWrap(layer, "Carriage Dwell Home End by User Defined Add'l Angle=");
  dialect::DwellTo(p, Register::HomeEnd, "Dwell Home End to Mandrel Ref. Angle");
}

// The carriage always reverses at the same Z, and the mandrel dwells one step further.
void WriteMandrelShiftPass(const Layer& layer) {
  const DesignState& s = layer.s;
  Program& p = layer.p;
  dialect::MoveAtLastSpeed(p, s.gFarEndZ.text(), "Move to Z=", s.gFarEndZ.text());
  AddedWrap(layer, "Add User Defined Add'l Angle=");
  ExtraTurnOfEveryPass(layer);
  dialect::DwellBehind(p, Register::FarEnd, kFarAngle, "Dwell Until Mandrel Shift Angle Reached");
  dialect::MoveAtLastSpeed(p, s.gHomeEndZ.text(), "Move to Z=", s.gHomeEndZ.text());
  AddedWrap(layer, "Carriage Dwell Home End by User Defined Add'l Angle=");
  ExtraTurnOfEveryPass(layer);
  dialect::DwellBehind(p, Register::HomeEnd, kHomeAngle, "Dwell Home End To Mandrel Shift Angle");
}

void WriteLaterPass(const Layer& layer) {
  dialect::EmptyLine(layer.p);
  dialect::ShowLayer(layer.p, layer.display, kPass, nullptr);
  if (layer.carriageShift)
    WriteCarriageShiftPass(layer);
  else
    WriteMandrelShiftPass(layer);
}

// It shows the angle as the operator's window does.
Passage LaterPassOf(Layer layer) {
  const Field& angle = layer.s.txtWA(layer.number);
  layer.display.angle = {angle.exists(), angle.text()};
  return layer.p.Spelled([&layer] { WriteLaterPass(layer); });
}

PassNumbers NumbersOf(const Layer& layer, int pass) {
  if (layer.carriageShift) {
    Kept shift;
    shift = (pass - 1) * layer.bandOnAxis;
    return {pass, layer.far + shift, layer.home + shift};
  }
  // The far end lags a step behind: the home dwell of the first pass was step 1.
  return {pass, layer.farShift.AngleAt(pass - 1), layer.homeShift.AngleAt(pass)};
}

void WriteLayerHead(const Layer& layer) {
  const std::string& layers = layer.s.txtNumberOfLayers(0).text();
  dialect::EmptyLine(layer.p);
  if (layer.carriageShift)
    dialect::CommentLine(layer.p, "BEGIN LAYER ", layer.number, " of ", layers,
                         " --------- (Carriage Shift Method) ----------------- ");
  else
    dialect::CommentLine(layer.p, "BEGIN LAYER ", layer.number, " of ", layers,
                         " --------------------------------------------------- ");
}

Layer LayerOf(GCodeSession& session, int n, Number windingAngle) {
  const DesignState& s = session.s;
  const auto plain = [&s](const Field& field) { return PlainOf(s, field); };
  const std::string& method = s.cmbMethod(n).text();
  Layer layer{.s = s,
              .p = session.program,
              .number = n,
              .farShift = {s, "F", windingAngle},
              .homeShift = {s, "H", windingAngle}};
  layer.passes = number(s.lblPassesToCover(n));
  layer.mandrelShift = EqualNoCase(method, "ms");
  layer.carriageShift = EqualNoCase(method, "cs");
  layer.speed = plain(s.txtCarriageSpeed(n));
  layer.rpm = plain(s.txtMRPM(n));
  layer.display = {n,
                   s.txtNumberOfLayers(0).text(),
                   plain(s.lblPassesToCover(n)),
                   layer.rpm,
                   layer.speed,
                   plain(s.txtWA(n)),
                   method,
                   plain(s.txtDiameterLeft),
                   plain(s.txtBandWidth(0)),
                   plain(s.txtLeft(n))};
  layer.hasAddedWrap = !Trim(s.txtAddRevs(n).text()).empty();
  layer.addedWrap = number(s.txtAddRevs(n));
  layer.bandOnAxis = BandOnAxis(s, windingAngle);
  layer.far = number(s.Length_Total) - number(s.txtRight(n));
  layer.home = number(s.txtLeft(n));
  layer.laterPass = LaterPassOf(layer);
  return layer;
}

// What the layers of one program share.
struct Schedule {
  GCodeSession& session;
  int layers = 0;
  Kept timeLeft{};  // minutes
};

void WriteLayer(Schedule& schedule, const Layer& layer) {
  const DesignState& s = layer.s;
  Program& p = layer.p;
  const int n = layer.number;
  WriteLayerHead(layer);
  p.BeginLayer(n);
  for (int pass = 1; holds(pass <= layer.passes); ++pass) {
    if (!p.GoesOn((n - 1 + pass / layer.passes.value()) / schedule.layers)) return;
    if (pass == 1)
      WriteFirstPass(layer,
                     MinutesLeft(p.signs(), s.lblMinutesToCover, n, schedule.layers, schedule.timeLeft));
    else
      p.Repeat(layer.laterPass, NumbersOf(layer, pass));
  }
  WriteAdvanceToNextLayer(schedule.session, n, layer.rpm, layer.mandrelShift);
}

// All of them, so that a program that would be too long is refused before its first pass.
std::vector<Layer> LayersOf(GCodeSession& session, int count) {
  std::vector<Layer> layers;
  Kept windingAngle;
  for (int n = 1; n <= count; ++n) {
    windingAngle = number(session.s.txtWA(n));
    const Layer& layer = layers.emplace_back(LayerOf(session, n, windingAngle));
    if (layer.passes.good())
      session.program.ExpectLayer(n, layer.passes, layer.laterPass.lines(),
                                  static_cast<double>(layer.laterPass.bytes()));
  }
  return layers;
}

}  // namespace

Number BandOnAxis(const DesignState& s, Number windingAngle) {
  return SpacingBandWidth(s) / Sin(windingAngle * kPi / 180);
}

void SetPassEnds(DesignState& s) {
  const std::string left = s.gLeftStopText.through(dialect::kStopMask);
  const std::string right = s.gRightStopText.through(dialect::kStopMask);
  s.gFarEndZ = FarOf(s, left, right);
  s.gHomeEndZ = HomeOf(s, left, right);
}

void WriteTwoAxisProgram(GCodeSession& session) {
  DesignState& s = session.s;
  Program& p = session.program;
  if (!s.chkWindingSchedule.checked()) return;
  SetPassEnds(s);
  dialect::EmptyLine(p);
  dialect::CommentLine(p, "BEGIN 2-AXIS WINDING --------------------------------------------------------- ");
  dialect::ShowStage(p, "Winding Schedule");
  dialect::WaitForButton(p, "Wait for Button Press to Begin  Winding Schedule");

  Schedule schedule{session, RowsOf(s.txtNumberOfLayers(0))};
  for (const Layer& layer : LayersOf(session, schedule.layers))
    if (p.refusal().empty()) WriteLayer(schedule, layer);

  dialect::EmptyLine(p);
  dialect::ShowMessage(p, "Winding_Process_Complete");
  dialect::Stop(p, "Mandrel Stop - Winding Complete");
  dialect::EmptyLine(p);
  NotifyWindingComplete(session);
}

void WriteAdvanceToNextLayer(GCodeSession& session, int layer, const MaybeText& rpm, bool mandrelShift) {
  const DesignState& s = session.s;
  Program& p = session.program;
  const Number rotation = number(s.txtMandrelRotateAfterLayerCompletion);
  if (!s.chkShiftLayer || !holds(layer != LayersOf(s.txtNumberOfLayers(s.Panel()))) || !holds(rotation != 0))
    return;
  dialect::EmptyLine(p);
  dialect::CommentLine(p, "Shift Mandrel Before Starting Next Layer");
  dialect::Turn(p, rpm, "Mandrel RPM");
  const auto comment = "Winding layer Complete, Advance Mandrel by User Defined ";
  if (mandrelShift)
    dialect::Dwell(p, rotation.plain(), comment, rotation.plain(), " deg.");
  else
    dialect::DwellBehind(p, Register::HomeEnd, rotation.plain(), comment, rotation.plain(), " deg.");
}

MaybeText MinutesLeft(NumberSigns signs, const FieldArray& minutes, int layer, int layers, Kept& timeLeft) {
  const Field& total = minutes(IndexSet::kAllRows);
  if (layer == 1) {
    timeLeft = number(total);
    return {true, total.text()};
  }
  timeLeft = timeLeft - number(minutes(layers - layer + 1));
  return TextOf(signs, Number(timeLeft).plain());
}

MandrelShift::MandrelShift(const DesignState& s, std::string_view endCode, Number windingAngle)
    : bandAround_(SpacingBandWidth(s) / Cos(windingAngle * kPi / 180)),
      circumference_(0),
      bandWidthSpacing_(s.txtUseProportionalFilamentSpacingYN.text() == "N") {
  // The right end is the home end but where the drive stands at the left. Three axes wind the four-axis part.
  const bool rightEnd = (endCode == "H") != s.gIsLHDrive;
  const Number diameter = s.gShow4Axis ? number(s.txtDia(rightEnd ? 1 : 0))
                                       : number(rightEnd ? s.Diameter_Right : s.Diameter_Left);
  circumference_ = diameter * kPi;
}

Number MandrelShift::AngleAt(int step) const {
  const Number turns = Number(step) * 360;
  return bandWidthSpacing_ ? turns * bandAround_ / circumference_
                           : turns / (Int(circumference_ / bandAround_) + 1);
}

}  // namespace torvane
