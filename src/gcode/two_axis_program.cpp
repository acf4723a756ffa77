#include "gcode/two_axis_program.h"

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
  Number windingAngle = 0;  // degrees
  Number passes = Number::Failure();
  bool mandrelShift = false;   // the method is "ms"
  bool carriageShift = false;  // the method is "cs"
  MaybeText speed{};           // of the carriage
  MaybeText rpm{};
  dialect::LayerDisplay display{};

  // The operator's own wrap at the ends of a pass, degrees.
  bool hasAddedWrap = false;
  Number addedWrap = Number::Failure();
};

// A wrap of a fraction of a degree shows nothing under the mask; the dwell is written all the same.
void WriteAddedWrap(const Layer& layer, std::string_view comment) {
  dialect::Dwell(layer.p, layer.addedWrap.as("####"_mask), comment, layer.addedWrap.plain(), " deg.");
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
    dialect::DwellBehind(p, Register::HomeEnd, MandrelShiftAngleText(s, "H", layer.windingAngle, 1),
                         "Carriage Dwell Home End");
  else
    dialect::DwellTo(p, Register::HomeEnd, "Carriage Dwell Home End");
}

// The mandrel always comes back to the same angle, and the carriage reverses one band further along.
void WriteCarriageShiftPass(const Layer& layer, int pass) {
  const DesignState& s = layer.s;
  Program& p = layer.p;
  Kept shift;
  shift = CarriageShift(s, layer.windingAngle, pass);
  const Number right = number(s.txtRight(layer.number));
  const Number left = number(s.txtLeft(layer.number));

  dialect::MoveAtLastSpeed(p, (number(s.Length_Total) - right + shift).as("######.#0"_mask), "Move to L",
                           layer.number, " Far End Right Offset Plus Carriage Shift Distance");
  PositiveAddedWrap(layer, "Carriage Dwell Far End by User Defined Add'l Angle=");
  dialect::DwellTo(p, Register::FarEnd, "Dwell Far End to Mandrel Ref. Angle");
  dialect::MoveAtLastSpeed(p, (left + shift).as("######.#0"_mask), "Move to L", layer.number,
                           " Home End Right Offset Plus Carriage Shift Distance");
  PositiveAddedWrap(layer, "Carriage Dwell Home End by User Defined Add'l Angle=");
  dialect::DwellTo(p, Register::HomeEnd, "Dwell Home End to Mandrel Ref. Angle");
}

// The carriage always reverses at the same Z, and the mandrel dwells one step further. The far end lags a
// step behind: the home dwell of the first pass was step 1.
void WriteMandrelShiftPass(const Layer& layer, int pass) {
  const DesignState& s = layer.s;
  Program& p = layer.p;
  dialect::MoveAtLastSpeed(p, s.gFarEndZ.text(), "Move to Z=", s.gFarEndZ.text());
  AddedWrap(layer, "Add User Defined Add'l Angle=");
  ExtraTurnOfEveryPass(layer);
  dialect::DwellBehind(p, Register::FarEnd, MandrelShiftAngleText(s, "F", layer.windingAngle, pass - 1),
                       "Dwell Until Mandrel Shift Angle Reached");
  dialect::MoveAtLastSpeed(p, s.gHomeEndZ.text(), "Move to Z=", s.gHomeEndZ.text());
  AddedWrap(layer, "Carriage Dwell Home End by User Defined Add'l Angle=");
  ExtraTurnOfEveryPass(layer);
  dialect::DwellBehind(p, Register::HomeEnd, MandrelShiftAngleText(s, "H", layer.windingAngle, pass),
                       "Dwell Home End To Mandrel Shift Angle");
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
  Layer layer{.s = s, .p = session.program, .number = n, .windingAngle = windingAngle};
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
  return layer;
}

// Lines of a later pass, its empty line included, whatever of it fails.
constexpr int kLinesOfPass = 3;

// What the layers of one program share.
struct Schedule {
  GCodeSession& session;
  int layers = 0;
  Kept windingAngle{};
  Kept timeLeft{};  // minutes
};

void WriteLayer(Schedule& schedule, int n) {
  GCodeSession& session = schedule.session;
  const Field& angle = session.s.txtWA(n);
  schedule.windingAngle = number(angle);
  Layer layer = LayerOf(session, n, schedule.windingAngle);
  Program& p = session.program;
  WriteLayerHead(layer);
  if (layer.passes.good()) p.BeginLayer(n, layer.passes, kLinesOfPass);
  for (int pass = 1; holds(pass <= layer.passes); ++pass) {
    if (!p.GoesOn((n - 1 + pass / layer.passes.value()) / schedule.layers)) return;
    if (pass == 1) {
      WriteFirstPass(
          layer, MinutesLeft(p.signs(), session.s.lblMinutesToCover, n, schedule.layers, schedule.timeLeft));
      // A later pass shows the angle as the operator's window does.
      layer.display.angle = {angle.exists(), angle.text()};
      continue;
    }
    dialect::EmptyLine(p);
    dialect::ShowLayer(p, layer.display, pass, nullptr);
    if (layer.carriageShift)
      WriteCarriageShiftPass(layer, pass);
    else
      WriteMandrelShiftPass(layer, pass);
  }
  WriteAdvanceToNextLayer(session, n, layer.rpm, layer.mandrelShift);
}

}  // namespace

Number CarriageShift(const DesignState& s, Number windingAngle, Number pass) {
  const Number bandWidth = SpacingBandWidth(s);
  return (pass - 1) * (bandWidth / Sin(windingAngle * kPi / 180));
}

void SetPassEnds(DesignState& s) {
  const std::string left = s.gLeftStopText.through("###0.00"_mask);
  const std::string right = s.gRightStopText.through("###0.00"_mask);
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
  for (int n = 1; n <= schedule.layers && p.refusal().empty(); ++n) WriteLayer(schedule, n);

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

std::string MandrelShiftAngleText(const DesignState& s, std::string_view endCode, Number windingAngle,
                                  int stepCount) {
  // The right end is the home end but where the drive stands at the left. Three axes wind the four-axis part.
  const bool rightEnd = (endCode == "H") != s.gIsLHDrive;
  const Number diameter = s.gShow4Axis ? number(s.txtDia(rightEnd ? 1 : 0))
                                       : number(rightEnd ? s.Diameter_Right : s.Diameter_Left);
  const Number bandWidth = SpacingBandWidth(s);
  const Number bandAround = bandWidth / Cos(windingAngle * kPi / 180);
  const Number circumference = diameter * kPi;
  const bool bandWidthSpacing = s.txtUseProportionalFilamentSpacingYN.text() == "N";
  const Number turns = Number(stepCount) * 360;
  const Number angle =
      bandWidthSpacing ? turns * bandAround / circumference : turns / (Int(circumference / bandAround) + 1);
  return TextOf(s.signs, angle.as("###.00"_mask)).text;
}

}  // namespace torvane
